// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "documents/model/ShapeFile.h"
#include "documents/odf/FillReader.h"
#include "documents/odf/OdfShapes.h"
#include "documents/odf/StyleChanges.h"
#include "documents/odf/Styles.h"
#include "documents/package/Package.h"
#include "documents/xml/Outline.h"

namespace huebrush::documents::odf {

/// A text, a drawing or a presentation of the OpenDocument format, or a template of one: .odt,
/// .odg, .odp, .ott, .otg, .otp; flat ones, too: .fodt, .fodg, .fodp.
class OdfFile final : public ShapeFile {
 public:
    /// DocumentError when it is none, or damaged.
    explicit OdfFile(Package package);
    /// One whose parts are all in one XML document.
    explicit OdfFile(std::string flat);
    ~OdfFile() override;

    const std::vector<ShapeRecord>& shapes() const override { return shapes_; }
    std::string with(const ShapeChanges& changes) const override;

 private:
    struct Shape {
        ElementId element;
        StyleNames styles;
        SharedFill fill;
    };
    struct Look {
        SharedFill fill;
        Line line;
    };
    class Pictures;
    class PackagePictures;
    class FlatPictures;

    void read();
    const Outline& common() const { return package_ ? *common_ : *content_; }
    bool hasOldAngles() const;
    const Look& lookOf(const StyleNames& names);
    static StyleChanges::Look wantedLook(const Shape& shape, const ShapeChange& change);
    ShapeRecord recordOf(const FoundShape& found);

    /// Nothing for a flat document.
    std::optional<Package> package_;
    std::unique_ptr<Outline> content_;
    std::unique_ptr<Outline> common_;
    std::unique_ptr<Styles> styles_;
    std::unique_ptr<Pictures> pictures_;
    std::unique_ptr<FillReader> reader_;
    std::map<StyleNames, Look> looks_;
    std::vector<ShapeRecord> shapes_;
    std::vector<Shape> byNumber_;
};

/// Whether parts of a package are encrypted, as its manifest says.
bool isEncrypted(const Package& package);

/// Whether the package is one of such a document.
bool isOdfPackage(const Package& package);
/// Whether the bytes may be those of a flat one.
bool isFlatOdf(std::string_view bytes);

}  // namespace huebrush::documents::odf
