// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "documents/model/ShapeFile.h"
#include "documents/ooxml/OoxmlPackage.h"
#include "documents/ooxml/PartShapes.h"
#include "documents/ooxml/Theme.h"
#include "documents/package/Package.h"

namespace huebrush::documents::ooxml {

/// A document of Office Open XML, transitional or strict, with macros or without, or a template of
/// one. The shapes of a text (.docx) are those of the text, its footnotes and endnotes; those of
/// headers and footers are left alone. The shapes of a presentation (.pptx) are those of its
/// slides, of a workbook (.xlsx) those of its sheets, in their order; those of masters, layouts,
/// notes and comments are left alone.
class OoxmlFile final : public ShapeFile {
 public:
    /// DocumentError when it is not one, or damaged.
    explicit OoxmlFile(Package package);
    ~OoxmlFile() override;

    const std::vector<ShapeRecord>& shapes() const override { return shapes_; }
    std::string with(const ShapeChanges& wanted) const override;

 private:
    struct Part;
    class PartPictures;
    class AddedPictures;

    struct PageTheme;

    void readText();
    void readSlides();
    void readSheets();
    void readSettings(const std::string& name, Theme& theme);
    const Theme& themeOfSlide(const Part& slide);
    const PageTheme& themeOfMaster(const std::string& master);
    Theme& themeOfRelations(const std::vector<Relation>& relations);
    bool isRead(const std::string& part) const;
    Part& addPart(const std::string& name, Surface surface);
    ShapeRecord recordOf(Part& part, const FoundNode& node);
    void write(Part& part, const ShapeChanges& wanted, AddedPictures& pictures,
               PackageChanges& changes) const;

    Package package_;
    std::string mainName_;
    /// By the part, and by what maps its colours.
    std::map<std::string, Theme> themes_;
    std::map<std::string, PageTheme> masters_;
    std::vector<std::unique_ptr<Part>> parts_;
    std::vector<ShapeRecord> shapes_;
    /// By number: what is known of a shape's fill.
    std::vector<SharedFill> fills_;
};

/// Whether the package is one of such a document.
bool isOoxmlPackage(const Package& package);

}  // namespace huebrush::documents::ooxml
