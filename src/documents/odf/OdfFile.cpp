// SPDX-License-Identifier: MPL-2.0

#include "documents/odf/OdfFile.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <utility>

#include "base/Base64.h"
#include "base/Text.h"
#include "documents/odf/StyleChanges.h"
#include "documents/odf/Values.h"
#include "documents/package/DocumentError.h"
#include "documents/xml/Edits.h"
#include "mapping/Image.h"

namespace huebrush::documents::odf {

using base::text;

namespace {

constexpr const char* kContentName = "content.xml";
constexpr const char* kStylesName = "styles.xml";
constexpr const char* kMetaName = "meta.xml";
constexpr const char* kManifestName = "META-INF/manifest.xml";
/// What follows in the type of a document that can be read here.
constexpr std::string_view kTypes = "application/vnd.oasis.opendocument.";
constexpr std::string_view kKnownTypes[] = {"text",         "text-template",
                                            "graphics",     "graphics-template",
                                            "presentation", "presentation-template"};
/// Pictures of ours are small.
constexpr std::size_t kLargestOwnPicture = 20'000;

std::vector<std::uint8_t> bytesOf(const std::string& content) {
    return {content.begin(), content.end()};
}

std::unique_ptr<Outline> outlineOf(const Package& package, const char* name) {
    return std::make_unique<Outline>(package.read(name), words(), name);
}

bool isKnownType(std::string_view type) {
    if (!type.starts_with(kTypes)) return false;
    type.remove_prefix(kTypes.size());
    return std::find(std::begin(kKnownTypes), std::end(kKnownTypes), type) != std::end(kKnownTypes);
}

/// The ending and the type of a picture's file, by its first bytes.
struct PictureKind {
    std::string_view begin;
    std::string_view ending;
    std::string_view type;
};

constexpr PictureKind kKinds[] = {
    {"BM", "bmp", "image/bmp"},
    {"\x89PNG", "png", "image/png"},
    {"GIF8", "gif", "image/gif"},
    {"\xFF\xD8\xFF", "jpg", "image/jpeg"},
    {"II*", "tif", "image/tiff"},
    {"MM", "tif", "image/tiff"},
    {"\xD7\xCD\xC6\x9A", "wmf", "image/x-wmf"},
    {"<?xml", "svg", "image/svg+xml"},
    {"<svg", "svg", "image/svg+xml"},
};

const PictureKind& kindOf(std::string_view bytes) {
    const auto* const found =
        std::find_if(std::begin(kKinds), std::end(kKinds),
                     [&](const PictureKind& each) { return bytes.starts_with(each.begin); });
    if (found == std::end(kKinds))
        throw DocumentError("cannot hold this texture: it is no picture");
    return *found;
}

/// A name that is a file's in the package.
std::string fileNameOf(const std::string& name) {
    std::string file;
    for (const char each : identifierOf(name)) {
        file += static_cast<unsigned char>(each) < 0x80 ? each : '_';
    }
    return file;
}

/// Of the program that wrote the document, such as "LibreOffice/7.4.7.2$Linux …".
std::string generatorIn(const Outline& outline) {
    const Place meta = Place{&outline, Outline::root()}.child(kMetaElement);
    if (!meta) return {};
    const Place generator = meta.child(kGenerator);
    return generator ? std::string(outline.textOf(outline.contentOf(generator.element)))
                     : std::string();
}

bool wroteTenthsOfDegrees(std::string_view generator) {
    constexpr std::string_view kName = "LibreOffice/";
    constexpr int kFirstWithUnits = 7;
    if (generator.starts_with("OpenOffice")) return true;
    if (!generator.starts_with(kName)) return false;
    generator.remove_prefix(kName.size());
    int version = kFirstWithUnits;
    std::from_chars(generator.data(), generator.data() + generator.size(), version);
    return version < kFirstWithUnits;
}

}  // namespace

class OdfFile::Pictures : public PictureTable {
 public:
    std::optional<mapping::OwnPicture> recognise(const Place& fillImage) override {
        const std::string bytes = bytesIn(fillImage);
        if (bytes.empty()) return {};
        return mapping::ownPictureOf(mapping::imageOfBitmapFile(bytesOf(bytes)));
    }

 private:
    /// Nothing for one that is no picture of ours.
    virtual std::string bytesIn(const Place& fillImage) const = 0;
};

/// Pictures that are files of the package.
class OdfFile::PackagePictures final : public Pictures, public NewPictures {
 public:
    PackagePictures(const Package& package, const Styles& styles)
        : package_(package), styles_(styles) {}

    Element add(const std::string& name, const std::string& bytes) override {
        const PictureKind& kind = kindOf(bytes);
        const std::string file = text("Pictures/", fileNameOf(name), ".", kind.ending);
        added_[file] = {bytes, kind.type};
        const auto prefix =
            styles_.commonStyles().outline->prefixFor(styles_.commonStyles().element, kXlink);
        const std::string xlink = prefix.value_or("xlink");
        return {text(prefix ? "" : text(" xmlns:xlink=\"", kXlinkAddress, "\""), " ", xlink,
                     ":href=\"", escaped(file), "\" ", xlink, ":type=\"simple\" ", xlink,
                     ":show=\"embed\" ", xlink, ":actuate=\"onLoad\""),
                {}};
    }

    void finish(PackageChanges& changes) const {
        if (added_.empty()) return;
        const auto manifest = outlineOf(package_, kManifestName);
        const std::string_view prefix = prefixOf(manifest->writtenName(Outline::root()));
        std::string entries;
        for (const auto& [file, picture] : added_) {
            changes[file] = picture.first;
            if (package_.has(file)) continue;
            entries += text("<", withPrefix(prefix, "file-entry"), " ",
                            withPrefix(prefix, "full-path"), "=\"", escaped(file), "\" ",
                            withPrefix(prefix, "media-type"), "=\"", picture.second, "\"/>");
        }
        Splices splices;
        insertLast(*manifest, splices, Outline::root(), entries);
        changes[kManifestName] = splices.applied(manifest->text());
    }

 private:
    std::string bytesIn(const Place& fillImage) const override {
        const std::string file = fillImage.attribute(kXlink, "href").value_or("");
        if (!file.ends_with(".bmp") || !package_.has(file)) return {};
        std::string bytes = package_.read(file);
        return bytes.size() > kLargestOwnPicture ? std::string() : bytes;
    }

    const Package& package_;
    const Styles& styles_;
    std::map<std::string, std::pair<std::string, std::string_view>> added_;
};

/// Pictures that stand as text in their definitions.
class OdfFile::FlatPictures final : public Pictures, public NewPictures {
 public:
    explicit FlatPictures(const Outline& document) : document_(document) {}

    Element add(const std::string& /*name*/, const std::string& bytes) override {
        kindOf(bytes);
        const auto raw = bytesOf(bytes);
        const std::string name =
            withPrefix(prefixOf(document_.writtenName(Outline::root())), "binary-data");
        return {{}, text("<", name, ">", base::toBase64(raw), "</", name, ">")};
    }

 private:
    std::string bytesIn(const Place& fillImage) const override {
        const Place data = fillImage.child(kBinaryData);
        if (!data) return {};
        std::string written(document_.textOf(document_.contentOf(data.element)));
        if (written.size() > 2 * kLargestOwnPicture) return {};
        std::erase_if(written, [](char each) { return static_cast<unsigned char>(each) <= ' '; });
        const auto bytes = base::fromBase64(written);
        return bytes ? std::string(bytes->begin(), bytes->end()) : std::string();
    }

    const Outline& document_;
};

OdfFile::OdfFile(Package package) : package_(std::move(package)) {
    if (isEncrypted(*package_)) throw DocumentError("is protected by a password");
    content_ = outlineOf(*package_, kContentName);
    if (package_->has(kStylesName)) common_ = outlineOf(*package_, kStylesName);
    styles_ = std::make_unique<Styles>(*content_, common_.get());
    pictures_ = std::make_unique<PackagePictures>(*package_, *styles_);
    read();
}

OdfFile::OdfFile(std::string flat)
    : content_(std::make_unique<Outline>(std::move(flat), words(), "the document")) {
    const auto type = content_->attribute(Outline::root(), kOffice, "mimetype");
    if (!type || !isKnownType(*type)) {
        throw DocumentError("is no text, drawing or presentation");
    }
    styles_ = std::make_unique<Styles>(*content_, content_.get());
    pictures_ = std::make_unique<FlatPictures>(*content_);
    read();
}

OdfFile::~OdfFile() = default;

bool OdfFile::hasOldAngles() const {
    if (!package_) return wroteTenthsOfDegrees(generatorIn(*content_));
    if (!package_->has(kMetaName)) return false;
    return wroteTenthsOfDegrees(generatorIn(*outlineOf(*package_, kMetaName)));
}

void OdfFile::read() {
    reader_ = std::make_unique<FillReader>(*styles_, *pictures_, hasOldAngles());
    for (const FoundShape& each : findShapes(*content_)) shapes_.push_back(recordOf(each));
}

const OdfFile::Look& OdfFile::lookOf(const StyleNames& names) {
    const auto known = looks_.find(names);
    if (known != looks_.end()) return known->second;
    const Properties properties = styles_->propertiesOf(names);
    return looks_[names] = {std::make_shared<const mapping::KnownFill>(reader_->fillOf(properties)),
                            lineOf(properties)};
}

ShapeRecord OdfFile::recordOf(const FoundShape& found) {
    ShapeRecord record;
    const auto value = [&](std::string_view local) {
        return content_->attribute(found.element, kDraw, local).value_or("");
    };
    record.name = value("name");
    record.type = found.type;
    if (record.isGroup()) {
        for (const FoundShape& each : found.members) record.members.push_back(recordOf(each));
        return record;
    }
    record.canHaveFill = found.canHaveFill;
    record.number = byNumber_.size();
    const StyleNames names{value("style-name"), value("text-style-name")};
    const Look& look = lookOf(names);
    if (record.canHaveFill) record.fill = look.fill;
    record.lineVisible = look.line.visible;
    record.lineColor = mapping::toHostColor(look.line.color);
    byNumber_.push_back({found.element, names, record.fill});
    return record;
}

StyleChanges::Look OdfFile::wantedLook(const Shape& shape, const ShapeChange& change) {
    StyleChanges::Look look;
    if (change.fill && shape.fill) {
        const NewFill& wanted = *change.fill;
        const std::string texture = wanted.picture.empty()
                                        ? shape.fill->office.bitmapName
                                        : mapping::nameOfFile(bytesOf(wanted.picture));
        look.fill = targetFor(wanted.fill, withStopColors(*shape.fill, wanted.stops), texture);
        look.picture = wanted.picture;
        if (look.fill->picture) {
            const auto tile = mapping::bitmapFileOf(tileOf(*look.fill->picture));
            look.picture.assign(tile.begin(), tile.end());
        }
    }
    if (change.lineColor) look.lineColor = mapping::toOfficeColor(*change.lineColor);
    return look;
}

std::string OdfFile::with(const ShapeChanges& changes) const {
    if (package_ && !signaturesIn(*package_).empty()) {
        throw DocumentError("is signed: any change would make its signature invalid");
    }
    Splices content;
    Splices common;
    std::optional<PackagePictures> inPackage;
    std::optional<FlatPictures> inText;
    if (package_) inPackage.emplace(*package_, *styles_);
    if (!package_) inText.emplace(*content_);
    NewPictures& pictures = package_ ? static_cast<NewPictures&>(*inPackage) : *inText;
    Definitions definitions(*styles_, *reader_, pictures);
    StyleChanges styles(*styles_, definitions);
    for (const auto& [number, change] : changes) {
        const Shape& shape = byNumber_.at(number);
        const StyleChanges::Look wanted = wantedLook(shape, change);
        if (!wanted.fill && !wanted.lineColor) continue;
        const mapping::OfficeFill now = shape.fill ? shape.fill->office : mapping::OfficeFill();
        const StyleNames names = styles.with(shape.styles, now, wanted);
        const std::string_view prefix = prefixOf(content_->writtenName(shape.element));
        setAttribute(*content_, content, shape.element, kDraw, withPrefix(prefix, "style-name"),
                     names.graphic);
        if (names.text != shape.styles.text) {
            setAttribute(*content_, content, shape.element, kDraw,
                         withPrefix(prefix, "text-style-name"), names.text);
        }
    }
    styles.finish(*content_, content);
    definitions.finish(package_ ? common : content);
    if (!package_) return content.applied(content_->text());
    PackageChanges parts;
    if (!content.empty()) parts[kContentName] = content.applied(content_->text());
    if (!common.empty()) parts[kStylesName] = common.applied(common_->text());
    inPackage->finish(parts);
    return package_->with(parts);
}

bool isEncrypted(const Package& package) {
    return package.has(kManifestName) &&
           package.read(kManifestName).find("encryption-data") != std::string::npos;
}

bool isOdfPackage(const Package& package) {
    if (!package.has(kContentName)) return false;
    if (package.has("mimetype")) return isKnownType(package.read("mimetype"));
    if (!package.has(kManifestName)) return false;
    const auto manifest = outlineOf(package, kManifestName);
    for (ElementId each = manifest->firstChild(Outline::root()); each != kNoElement;
         each = manifest->nextSibling(each)) {
        if (manifest->attribute(each, kManifest, "full-path") == "/") {
            return isKnownType(manifest->attribute(each, kManifest, "media-type").value_or(""));
        }
    }
    return false;
}

bool isFlatOdf(std::string_view bytes) {
    constexpr std::size_t kBeginning = 65536;
    return !isPackage(bytes) &&
           bytes.substr(0, kBeginning).find(kOfficeAddress) != std::string_view::npos;
}

}  // namespace huebrush::documents::odf
