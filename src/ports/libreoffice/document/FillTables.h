// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/container/XNameContainer.hpp>
#include <com/sun/star/drawing/XShape.hpp>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "mapping/OwnPictures.h"
#include "ports/libreoffice/document/DocumentModel.h"
#include "ports/libreoffice/document/FillOrigin.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// A document's tables of bitmaps and transparency gradients, the only permanent way to these
/// fills: a picture is put in under a name, and the shape is given the name. What was put in or
/// kept here stays at hand while the document is open, also when no shape uses it for a while.
class FillTables {
 public:
    FillTables(const ContextReference& context, const ModelReference& model);

    /// Makes sure that the table has our picture under its name.
    void ensure(const mapping::OwnPicture& picture);
    /// Makes sure that the table has a user's picture file, and gives its name there. An error when
    /// the file cannot be read or is no picture.
    std::string addFile(const std::string& path);
    /// Keeps the bitmap that a shape has; and makes sure that the table has it, where it is needed
    /// again and was kept.
    bool keeps(const std::string& name) const { return kept_.contains(name); }
    void keep(const std::string& name, const com::sun::star::uno::Any& bitmap);
    void restore(const std::string& name);

    /// Puts a transparency gradient into its own table of the document, and gives its name there.
    rtl::OUString addTransparence(const com::sun::star::uno::Any& gradient);

    /// What a shape's bitmap is known as, by its name or its pixels.
    std::optional<mapping::OwnPicture> recognise(const std::string& name,
                                                 const com::sun::star::uno::Any& bitmap);
    /// The properties about a fill's origin that shapes of this one's type have.
    const OriginProperties& originProperties(
        const com::sun::star::uno::Reference<com::sun::star::drawing::XShape>& shape);

    /// Bitmaps may have changed under their names.
    void forgetRecognised() { recognised_.clear(); }

 private:
    com::sun::star::uno::Any graphicOf(const std::vector<std::uint8_t>& bytes) const;

    ContextReference context_;
    com::sun::star::uno::Reference<com::sun::star::container::XNameContainer> bitmaps_;
    com::sun::star::uno::Reference<com::sun::star::container::XNameContainer> transparences_;
    std::map<std::string, com::sun::star::uno::Any> kept_;
    std::map<std::string, std::optional<mapping::OwnPicture>> recognised_;
    /// By the types of shapes.
    std::map<rtl::OUString, OriginProperties> originProperties_;
};

}  // namespace huebrush::libreoffice
