// SPDX-License-Identifier: MPL-2.0

#include "documents/ooxml/OoxmlFile.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "base/Text.h"
#include "documents/ooxml/Words.h"
#include "documents/package/DocumentError.h"
#include "documents/xml/Edits.h"
#include "mapping/Image.h"

namespace huebrush::documents::ooxml {

using base::text;

namespace {

constexpr std::string_view kContentTypesName = "[Content_Types].xml";

std::string mainPartOf(const Package& package) {
    for (const Relation& each : relationsOf(package, {})) {
        if (each.type == "officeDocument" && package.has(each.target)) return each.target;
    }
    throw DocumentError("is no document: it has no main part");
}

enum class DocumentKind { none, text, presentation, workbook };

/// By what the package says of its main part.
DocumentKind kindOf(const Package& package) {
    if (!package.has(std::string(kContentTypesName))) return DocumentKind::none;
    struct Name {
        std::string_view in;
        DocumentKind kind;
    };
    static constexpr Name kNames[] = {
        {"wordprocessingml", DocumentKind::text},
        {"application/vnd.ms-word.", DocumentKind::text},
        {"presentationml", DocumentKind::presentation},
        {"application/vnd.ms-powerpoint.", DocumentKind::presentation},
        {"spreadsheetml", DocumentKind::workbook},
        {"application/vnd.ms-excel.", DocumentKind::workbook},
    };
    const auto outline = outlineOf(package, std::string(kContentTypesName));
    for (ElementId each = outline->firstChild(Outline::root()); each != kNoElement;
         each = outline->nextSibling(each)) {
        const std::string type = outline->attribute(each, "ContentType").value_or("");
        if (!type.ends_with(".main+xml")) continue;
        for (const Name& name : kNames) {
            if (type.find(name.in) != std::string::npos) return name.kind;
        }
    }
    return DocumentKind::none;
}

/// The part of that kind of relation; empty where there is none.
std::string targetOfType(const std::vector<Relation>& relations, std::string_view type) {
    for (const Relation& each : relations) {
        if (each.type == type) return each.target;
    }
    return {};
}

/// The parts that a list of a main part refers to, in its order.
std::vector<std::string> listedParts(const Outline& main, NameId listName,
                                     const std::vector<Relation>& relations) {
    std::vector<std::string> parts;
    const ElementId list = main.child(Outline::root(), listName);
    if (list == kNoElement) return parts;
    for (ElementId each = main.firstChild(list); each != kNoElement;
         each = main.nextSibling(each)) {
        const std::string id = main.attribute(each, kRelations, "id").value_or("");
        for (const Relation& relation : relations) {
            if (relation.id == id) parts.push_back(relation.target);
        }
    }
    return parts;
}

/// The names that an element's attributes map to others; none of kNoElement.
std::vector<std::pair<std::string, std::string>> mappingIn(const Outline& outline,
                                                           ElementId element) {
    std::vector<std::pair<std::string, std::string>> mapping;
    if (element == kNoElement) return mapping;
    for (const Attribute& each : outline.attributesOf(element)) {
        mapping.emplace_back(each.local, outline.textOf(each.value));
    }
    return mapping;
}

/// The ending and the type of a picture's file, by its first bytes.
struct PictureKind {
    std::string_view begin;
    std::string_view ending;
    std::string_view type;
};

constexpr PictureKind kKinds[] = {
    {"BM", "bmp", "image/bmp"},    {"\x89PNG", "png", "image/png"},
    {"GIF8", "gif", "image/gif"},  {"\xFF\xD8\xFF", "jpeg", "image/jpeg"},
    {"II*", "tiff", "image/tiff"}, {"MM", "tiff", "image/tiff"},
};

const PictureKind& kindOf(std::string_view bytes) {
    const auto* const found =
        std::find_if(std::begin(kKinds), std::end(kKinds),
                     [&](const PictureKind& each) { return bytes.starts_with(each.begin); });
    if (found == std::end(kKinds)) {
        throw DocumentError("cannot hold this texture: it is no BMP, PNG, GIF, JPEG or TIFF file");
    }
    return *found;
}

std::vector<std::uint8_t> bytesOf(const std::string& content) {
    return {content.begin(), content.end()};
}

/// A name that nobody else gives.
std::string pictureNameOf(const std::string& bytes) {
    std::string name = base::lowerCase(mapping::nameOfFile(bytesOf(bytes)));
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
}

/// Adds elements before the end tag of the root.
std::string withChildren(const Outline& outline, const std::string& children) {
    Splices splices;
    insertLast(outline, splices, Outline::root(), children);
    return splices.applied(outline.text());
}

/// The name as the root has it, with its prefix.
std::string prefixed(const Outline& outline, std::string_view local) {
    return withPrefix(prefixOf(outline.writtenName(Outline::root())), local);
}

}  // namespace

/// A part with shapes.
struct OoxmlFile::Part {
    struct Shape {
        std::size_t number;
        FillPlace place;
        std::vector<FillPlace> twins;
    };

    std::string name;
    std::unique_ptr<Outline> outline;
    std::vector<Relation> relations;
    const Theme* theme = nullptr;
    FoundShapes found;
    /// Those that have a number.
    std::vector<Shape> shapes;
};

/// The pictures that a part has.
class OoxmlFile::PartPictures final : public Pictures {
 public:
    PartPictures(const Package& package, const Part& part) : package_(package), part_(part) {}

    std::optional<mapping::OwnPicture> recognise(const std::string& relation) override {
        const auto known = known_.find(relation);
        if (known != known_.end()) return known->second;
        return known_[relation] = read(relation);
    }

 private:
    std::optional<mapping::OwnPicture> read(const std::string& relation) const {
        // Ours are small and of this kind.
        constexpr std::size_t kLargest = 20'000;
        for (const Relation& each : part_.relations) {
            if (each.id != relation || !package_.has(each.target)) continue;
            if (!each.target.ends_with(".bmp")) return {};
            const std::string bytes = package_.read(each.target);
            if (bytes.size() > kLargest) return {};
            return mapping::ownPictureOf(mapping::imageOfBitmapFile(bytesOf(bytes)));
        }
        return {};
    }

    const Package& package_;
    const Part& part_;
    std::unordered_map<std::string, std::optional<mapping::OwnPicture>> known_;
};

/// Takes pictures into the package, one part for each content.
class OoxmlFile::AddedPictures final : public NewPictures {
 public:
    AddedPictures(const Package& package, std::string folder, PackageChanges& changes)
        : package_(package), folder_(std::move(folder)), changes_(changes) {}

    /// The part that the next pictures are for.
    void select(const Part& part) {
        part_ = &part;
        ids_.clear();
    }

    std::string add(const std::string& bytes) override {
        const PictureKind& kind = kindOf(bytes);
        const std::string name = text(pictureNameOf(bytes), ".", kind.ending);
        const auto known = ids_.find(name);
        if (known != ids_.end()) return known->second;
        changes_[text(folder_, "media/", name)] = bytes;
        kinds_.emplace(kind.ending, kind.type);
        return ids_[name] = freeId();
    }

    /// Writes the relations of the part to what was added for it.
    void finishPart() {
        if (ids_.empty()) return;
        const std::string name = relationsNameOf(part_->name);
        if (!package_.has(name)) {
            changes_[name] =
                "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/"
                "relationships\"></Relationships>";
        }
        const Outline outline(package_.has(name) ? package_.read(name) : changes_[name], words(),
                              name);
        std::string added;
        for (const auto& [file, id] : ids_) {
            added += text("<", prefixed(outline, "Relationship"), " Id=\"", id,
                          "\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/"
                          "relationships/image\" Target=\"/",
                          folder_, "media/", file, "\"/>");
        }
        changes_[name] = withChildren(outline, added);
    }

    /// Says of what kind the added files are.
    void finish() {
        if (kinds_.empty()) return;
        const std::string name(kContentTypesName);
        const auto outline = outlineOf(package_, name);
        for (ElementId each = outline->firstChild(Outline::root()); each != kNoElement;
             each = outline->nextSibling(each)) {
            if (outline->nameOf(each) != kDefault) continue;
            kinds_.erase(outline->attribute(each, "Extension").value_or(""));
        }
        std::string added;
        for (const auto& [ending, type] : kinds_) {
            added += text("<", prefixed(*outline, "Default"), " Extension=\"", ending,
                          "\" ContentType=\"", type, "\"/>");
        }
        if (!added.empty()) changes_[name] = withChildren(*outline, added);
    }

 private:
    std::string freeId() {
        const auto isTaken = [this](const std::string& id) {
            const auto& relations = part_->relations;
            return std::any_of(relations.begin(), relations.end(),
                               [&](const Relation& each) { return each.id == id; });
        };
        std::string id;
        do {
            id = text("rIdHuebrush", ++last_);
        } while (isTaken(id));
        return id;
    }

    const Package& package_;
    std::string folder_;
    PackageChanges& changes_;
    const Part* part_ = nullptr;
    std::map<std::string, std::string> ids_;
    std::map<std::string, std::string, std::less<>> kinds_;
    int last_ = 0;
};

/// The theme of a master, and how it maps the names of colours.
struct OoxmlFile::PageTheme {
    std::string theme;
    std::vector<std::pair<std::string, std::string>> mapping;
};

OoxmlFile::OoxmlFile(Package package)
    : package_(std::move(package)), mainName_(mainPartOf(package_)) {
    switch (kindOf(package_)) {
        case DocumentKind::presentation:
            readSlides();
            break;
        case DocumentKind::workbook:
            readSheets();
            break;
        default:
            readText();
    }
    std::vector<std::pair<double, ShapeRecord>> records;
    for (const auto& part : parts_) {
        for (const FoundNode& node : part->found.nodes) {
            records.emplace_back(node.height, recordOf(*part, node));
        }
    }
    std::stable_sort(records.begin(), records.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    for (auto& [height, record] : records) shapes_.push_back(std::move(record));
}

OoxmlFile::~OoxmlFile() = default;

OoxmlFile::Part& OoxmlFile::addPart(const std::string& name, Surface surface) {
    auto part = std::make_unique<Part>();
    part->name = name;
    part->outline = outlineOf(package_, name);
    part->relations = relationsOf(package_, name);
    part->found = findShapes(*part->outline, surface);
    parts_.push_back(std::move(part));
    return *parts_.back();
}

Theme& OoxmlFile::themeOfRelations(const std::vector<Relation>& relations) {
    const std::string name = targetOfType(relations, "theme");
    Theme& theme = themes_[name];
    if (package_.has(name)) theme = Theme(outlineOf(package_, name));
    return theme;
}

// Texts.

void OoxmlFile::readText() {
    const std::vector<Relation> relations = relationsOf(package_, mainName_);
    Theme& theme = themeOfRelations(relations);
    std::vector<std::string> parts{mainName_};
    for (const Relation& each : relations) {
        if (!package_.has(each.target)) continue;
        if (each.type == "settings") readSettings(each.target, theme);
        if (each.type == "footnotes" || each.type == "endnotes") parts.push_back(each.target);
    }
    for (const std::string& each : parts) addPart(each, Surface::text).theme = &theme;
}

void OoxmlFile::readSettings(const std::string& name, Theme& theme) {
    const auto outline = outlineOf(package_, name);
    const ElementId mapping = outline->child(Outline::root(), kColorMapping);
    if (mapping == kNoElement) return;
    for (const Attribute& each : outline->attributesOf(mapping)) {
        // Of all names only these four are mapped to others.
        static constexpr std::pair<std::string_view, std::string_view> kNames[] = {
            {"bg1", "bg1"}, {"t1", "tx1"}, {"bg2", "bg2"}, {"t2", "tx2"}};
        for (const auto& [written, used] : kNames) {
            if (each.local == written) theme.map(used, outline->textOf(each.value));
        }
    }
}

// Presentations.

void OoxmlFile::readSlides() {
    const auto main = outlineOf(package_, mainName_);
    const std::vector<Relation> relations = relationsOf(package_, mainName_);
    for (const std::string& each : listedParts(*main, kSlides, relations)) {
        if (!package_.has(each) || isRead(each)) continue;
        Part& slide = addPart(each, Surface::page);
        slide.theme = &themeOfSlide(slide);
    }
}

const OoxmlFile::PageTheme& OoxmlFile::themeOfMaster(const std::string& master) {
    const auto known = masters_.find(master);
    if (known != masters_.end()) return known->second;
    PageTheme& page = masters_[master];
    if (!package_.has(master)) return page;
    page.theme = targetOfType(relationsOf(package_, master), "theme");
    const auto outline = outlineOf(package_, master);
    page.mapping = mappingIn(*outline, outline->child(Outline::root(), kColorMap));
    return page;
}

const Theme& OoxmlFile::themeOfSlide(const Part& slide) {
    const std::string layout = targetOfType(slide.relations, "slideLayout");
    const PageTheme& page =
        themeOfMaster(targetOfType(relationsOf(package_, layout), "slideMaster"));
    const Outline& outline = *slide.outline;
    ElementId own = outline.child(Outline::root(), kColorMapOverride);
    if (own != kNoElement) own = outline.child(own, kOverridingColorMap);
    const auto mapping = own == kNoElement ? page.mapping : mappingIn(outline, own);
    std::string key = page.theme;
    for (const auto& [name, color] : mapping) key += text("|", name, "=", color);
    const auto [found, isNew] = themes_.try_emplace(key);
    if (!isNew) return found->second;
    if (package_.has(page.theme)) found->second = Theme(outlineOf(package_, page.theme));
    for (const auto& [name, color] : mapping) found->second.map(name, color);
    return found->second;
}

// Workbooks.

void OoxmlFile::readSheets() {
    const auto main = outlineOf(package_, mainName_);
    const std::vector<Relation> relations = relationsOf(package_, mainName_);
    const Theme& theme = themeOfRelations(relations);
    for (const std::string& each : listedParts(*main, kSheets, relations)) {
        const std::string drawing = targetOfType(relationsOf(package_, each), "drawing");
        if (!package_.has(drawing) || isRead(drawing)) continue;
        addPart(drawing, Surface::page).theme = &theme;
    }
}

bool OoxmlFile::isRead(const std::string& part) const {
    return std::any_of(parts_.begin(), parts_.end(),
                       [&](const auto& known) { return known->name == part; });
}

ShapeRecord OoxmlFile::recordOf(Part& part, const FoundNode& node) {
    ShapeRecord record;
    record.name = node.name;
    if (node.shape == FoundNode::kGroup) {
        record.type = host::MsoShapeType::msoGroup;
        for (const FoundNode& each : node.members) {
            record.members.push_back(recordOf(part, each));
        }
        return record;
    }
    const FoundShape& shape = part.found.shapes[node.shape];
    const Outline& outline = *part.outline;
    PartPictures pictures(package_, part);
    record.canHaveFill = shape.canHaveFill;
    if (shape.isControl) record.type = host::MsoShapeType::msoFormControl;
    if (shape.canHaveFill) {
        record.fill = std::make_shared<const mapping::KnownFill>(
            shape.place.isVml ? vmlFill(outline, shape.place.vml, pictures)
                              : drawingFill(outline, shape.place.drawing, *part.theme, pictures));
    }
    std::optional<std::int32_t> line;
    if (shape.place.isVml) {
        line = vmlLine(outline, shape.place.vml);
    } else if (const auto color = drawingLine(outline, shape.place.drawing, *part.theme)) {
        line = color->rgb;
    }
    record.lineVisible = line.has_value();
    record.lineColor = mapping::toHostColor(line.value_or(0));
    record.number = fills_.size();
    fills_.push_back(record.fill);
    part.shapes.push_back({record.number, shape.place, shape.twins});
    return record;
}

namespace {

/// Writes a fill and a line's colour, 0xRRGGBB, in one of the two languages.
void writeAt(const PartChanges& part, const Theme& theme, const FillPlace& place,
             const std::optional<FillChange>& fill, const std::optional<std::int32_t>& line) {
    if (place.isVml) {
        writeVml(part, place.vml, fill, line);
    } else if (place.drawing.properties != kNoElement) {
        std::optional<Color> color;
        if (line) color = drawingLine(part.outline, place.drawing, theme).value_or(Color{});
        if (color) color->rgb = *line;
        writeDrawing(part, place.drawing, fill, color);
    }
}

}  // namespace

std::string OoxmlFile::with(const ShapeChanges& wanted) const {
    if (!signaturesIn(package_).empty()) {
        throw DocumentError("is signed: any change would make its signature invalid");
    }
    PackageChanges changes;
    const std::size_t slash = mainName_.rfind('/');
    AddedPictures pictures(
        package_, slash == std::string::npos ? std::string() : mainName_.substr(0, slash + 1),
        changes);
    for (const auto& part : parts_) write(*part, wanted, pictures, changes);
    pictures.finish();
    return package_.with(changes);
}

void OoxmlFile::write(Part& part, const ShapeChanges& wanted, AddedPictures& pictures,
                      PackageChanges& changes) const {
    pictures.select(part);
    Splices splices;
    const bool isStrict =
        part.outline->text().find("http://purl.oclc.org/ooxml/") != std::string::npos;
    const PartChanges context{*part.outline, splices, pictures, isStrict};
    for (const Part::Shape& shape : part.shapes) {
        const auto found = wanted.find(shape.number);
        if (found == wanted.end()) continue;
        std::optional<FillChange> fill;
        if (found->second.fill && fills_[shape.number]) {
            fill = changeTo(*found->second.fill, *fills_[shape.number]);
        }
        std::optional<std::int32_t> line = found->second.lineColor;
        if (line) line = mapping::toOfficeColor(*line);
        writeAt(context, *part.theme, shape.place, fill, line);
        for (const FillPlace& twin : shape.twins) {
            writeAt(context, *part.theme, twin, fill, line);
        }
    }
    if (splices.empty()) return;
    changes[part.name] = splices.applied(part.outline->text());
    pictures.finishPart();
}

bool isOoxmlPackage(const Package& package) {
    return kindOf(package) != DocumentKind::none;
}

}  // namespace huebrush::documents::ooxml
