// SPDX-License-Identifier: MPL-2.0

#include "documents/ooxml/WordFile.h"

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
    throw DocumentError("is no document of Word: it has no main part");
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
struct WordFile::Part {
    struct Shape {
        std::size_t number;
        FillPlace place;
        std::vector<FillPlace> twins;
    };

    std::string name;
    std::unique_ptr<Outline> outline;
    std::vector<Relation> relations;
    FoundShapes found;
    /// Those that have a number.
    std::vector<Shape> shapes;
};

/// The pictures that a part has.
class WordFile::PartPictures final : public Pictures {
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
class WordFile::AddedPictures final : public NewPictures {
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

WordFile::WordFile(Package package)
    : package_(std::move(package)), mainName_(mainPartOf(package_)) {
    std::vector<std::string> notes;
    std::string settings;
    for (const Relation& each : relationsOf(package_, mainName_)) {
        if (!package_.has(each.target)) continue;
        if (each.type == "theme") theme_ = Theme(outlineOf(package_, each.target));
        if (each.type == "settings") settings = each.target;
        if (each.type == "footnotes" || each.type == "endnotes") notes.push_back(each.target);
    }
    if (!settings.empty()) readSettings(settings);
    addPart(mainName_);
    for (const std::string& each : notes) addPart(each);

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

WordFile::~WordFile() = default;

void WordFile::readSettings(const std::string& name) {
    const auto outline = outlineOf(package_, name);
    const ElementId mapping = outline->child(Outline::root(), kColorMapping);
    if (mapping == kNoElement) return;
    for (const Attribute& each : outline->attributesOf(mapping)) {
        // Of all names only these four are mapped to others.
        static constexpr std::pair<std::string_view, std::string_view> kNames[] = {
            {"bg1", "bg1"}, {"t1", "tx1"}, {"bg2", "bg2"}, {"t2", "tx2"}};
        for (const auto& [written, used] : kNames) {
            if (each.local == written) theme_.map(used, outline->textOf(each.value));
        }
    }
}

void WordFile::addPart(const std::string& name) {
    auto part = std::make_unique<Part>();
    part->name = name;
    part->outline = outlineOf(package_, name);
    part->relations = relationsOf(package_, name);
    part->found = findShapes(*part->outline);
    parts_.push_back(std::move(part));
}

ShapeRecord WordFile::recordOf(Part& part, const FoundNode& node) {
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
                              : drawingFill(outline, shape.place.drawing, theme_, pictures));
    }
    std::optional<std::int32_t> line;
    if (shape.place.isVml) {
        line = vmlLine(outline, shape.place.vml);
    } else if (const auto color = drawingLine(outline, shape.place.drawing, theme_)) {
        line = color->rgb;
    }
    record.lineVisible = line.has_value();
    record.lineColor = mapping::toHostColor(line.value_or(0));
    record.number = fills_.size();
    fills_.push_back(record.fill);
    part.shapes.push_back({record.number, shape.place, shape.twins});
    return record;
}

std::string WordFile::with(const NewFills& fills) const {
    if (!signaturesIn(package_).empty()) {
        throw DocumentError("is signed: any change would make its signature invalid");
    }
    PackageChanges changes;
    const std::size_t slash = mainName_.rfind('/');
    AddedPictures pictures(
        package_, slash == std::string::npos ? std::string() : mainName_.substr(0, slash + 1),
        changes);
    for (const auto& part : parts_) write(*part, fills, pictures, changes);
    pictures.finish();
    return package_.with(changes);
}

void WordFile::write(Part& part, const NewFills& fills, AddedPictures& pictures,
                     PackageChanges& changes) const {
    pictures.select(part);
    Splices splices;
    const bool isStrict =
        part.outline->text().find("http://purl.oclc.org/ooxml/") != std::string::npos;
    const PartChanges context{*part.outline, splices, pictures, isStrict};
    for (const Part::Shape& shape : part.shapes) {
        const auto wanted = fills.find(shape.number);
        if (wanted == fills.end() || !fills_[shape.number]) continue;
        const FillChange change = changeTo(wanted->second, *fills_[shape.number]);
        const auto writeAt = [&](const FillPlace& place) {
            if (place.isVml) {
                writeVmlFill(context, place.vml, change);
            } else if (place.drawing.properties != kNoElement) {
                writeDrawingFill(context, place.drawing, change);
            }
        };
        writeAt(shape.place);
        for (const FillPlace& twin : shape.twins) writeAt(twin);
    }
    if (splices.empty()) return;
    changes[part.name] = splices.applied(part.outline->text());
    pictures.finishPart();
}

bool isWordPackage(const Package& package) {
    if (!package.has(std::string(kContentTypesName))) return false;
    const auto outline = outlineOf(package, std::string(kContentTypesName));
    for (ElementId each = outline->firstChild(Outline::root()); each != kNoElement;
         each = outline->nextSibling(each)) {
        const std::string type = outline->attribute(each, "ContentType").value_or("");
        const bool isMain = type.ends_with(".main+xml");
        if (isMain && (type.find("wordprocessingml") != std::string::npos ||
                       type.find("application/vnd.ms-word.") == 0)) {
            return true;
        }
    }
    return false;
}

}  // namespace huebrush::documents::ooxml
