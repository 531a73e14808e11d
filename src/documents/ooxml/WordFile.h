// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "documents/model/ShapeFile.h"
#include "documents/ooxml/OoxmlPackage.h"
#include "documents/ooxml/Theme.h"
#include "documents/ooxml/WordShapes.h"
#include "documents/package/Package.h"

namespace huebrush::documents::ooxml {

/// A text document of Word: .docx, .docm, .dotx, .dotm, transitional or strict. Its shapes are
/// those of the text, its footnotes and endnotes; those of headers and footers are left alone.
class WordFile final : public ShapeFile {
 public:
    /// DocumentError when it is not one, or damaged.
    explicit WordFile(Package package);
    ~WordFile() override;

    const std::vector<ShapeRecord>& shapes() const override { return shapes_; }
    std::string with(const NewFills& fills) const override;

 private:
    struct Part;
    class PartPictures;
    class AddedPictures;

    void readSettings(const std::string& name);
    void addPart(const std::string& name);
    ShapeRecord recordOf(Part& part, const FoundNode& node);
    void write(Part& part, const NewFills& fills, AddedPictures& pictures,
               PackageChanges& changes) const;

    Package package_;
    std::string mainName_;
    Theme theme_;
    std::vector<std::unique_ptr<Part>> parts_;
    std::vector<ShapeRecord> shapes_;
    /// By number: what is known of a shape's fill.
    std::vector<SharedFill> fills_;
};

/// Whether the package is one of such a document.
bool isWordPackage(const Package& package);

}  // namespace huebrush::documents::ooxml
