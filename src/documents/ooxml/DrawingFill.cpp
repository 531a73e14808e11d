// SPDX-License-Identifier: MPL-2.0

#include "documents/ooxml/DrawingFill.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "base/Color.h"
#include "base/Text.h"
#include "documents/ooxml/Words.h"
#include "documents/package/DocumentError.h"
#include "documents/xml/Edits.h"

namespace huebrush::documents::ooxml {

using base::text;
using host::MsoFillType;
using mapping::OfficeFill;
using mapping::OfficeFillStyle;
using mapping::OfficeGradient;
using mapping::OfficeGradientStyle;

namespace {

constexpr std::int32_t kOpaque = 100'000;
constexpr std::int32_t kDegree = 60'000;
constexpr std::int32_t kFullTurn = 3600;

/// The names of the patterns 1 to 54.
constexpr std::array<std::string_view, mapping::kPatternCount> kPatterns = {
    "pct5",     "pct10",      "pct20",    "pct25",     "pct30",      "pct40",      "pct50",
    "pct60",    "pct70",      "pct75",    "pct80",     "pct90",      "dkHorz",     "dkVert",
    "dkDnDiag", "dkUpDiag",   "smCheck",  "trellis",   "ltHorz",     "ltVert",     "ltDnDiag",
    "ltUpDiag", "smGrid",     "dotDmnd",  "wdDnDiag",  "wdUpDiag",   "dashUpDiag", "dashDnDiag",
    "narVert",  "narHorz",    "dashVert", "dashHorz",  "lgConfetti", "lgGrid",     "horzBrick",
    "lgCheck",  "smConfetti", "zigZag",   "solidDmnd", "diagBrick",  "openDmnd",   "plaid",
    "sphere",   "weave",      "dotGrid",  "divot",     "shingle",    "wave",       "horz",
    "vert",     "cross",      "dnDiag",   "upDiag",    "diagCross"};

std::int32_t numberOf(const Outline& outline, ElementId element, std::string_view name,
                      std::int32_t otherwise) {
    const auto value = outline.attribute(element, name);
    std::int32_t number = otherwise;
    if (!value) return otherwise;
    const auto [end, error] = std::from_chars(value->data(), value->data() + value->size(), number);
    if (error != std::errc()) return otherwise;
    // Strict documents write per cents, which count thousandths everywhere else.
    const bool isPercent = end != value->data() + value->size() && *end == '%';
    return isPercent ? std::clamp(number, -1000, 1000) * 1000 : number;
}

float transparencyOf(std::int32_t alpha) {
    return static_cast<float>(kOpaque - alpha) / static_cast<float>(kOpaque);
}

std::int32_t alphaOf(float transparency) {
    return static_cast<std::int32_t>(std::lround((1.0 - transparency) * kOpaque));
}

/// A transparency as a grey of the mapping's gradients: black is opaque.
std::int32_t grayOfAlpha(std::int32_t alpha) {
    const auto part = static_cast<std::int32_t>(std::lround((kOpaque - alpha) * 255.0 / kOpaque));
    return part << 16 | part << 8 | part;
}
std::int32_t alphaOfGray(std::int32_t gray) {
    return static_cast<std::int32_t>(std::lround(kOpaque - (gray & 0xFF) / 255.0 * kOpaque));
}

struct Stop {
    std::int32_t place;  ///< in thousandths of a per cent
    Color color;
};

std::vector<Stop> stopsOf(const Outline& outline, ElementId fill, const Theme& theme,
                          const std::optional<Color>& placeholder) {
    std::vector<Stop> stops;
    const ElementId list = outline.child(fill, kStops);
    if (list == kNoElement) return stops;
    for (ElementId each = outline.firstChild(list); each != kNoElement;
         each = outline.nextSibling(each)) {
        if (outline.nameOf(each) != kStop) continue;
        stops.push_back({std::clamp(numberOf(outline, each, "pos", 0), 0, kOpaque),
                         colorIn(outline, each, theme, placeholder).value_or(Color{})});
    }
    std::stable_sort(stops.begin(), stops.end(),
                     [](const Stop& a, const Stop& b) { return a.place < b.place; });
    return stops;
}

bool isMirrored(const std::vector<Stop>& stops) {
    return stops.size() == 3 && stops[0].color == stops[2].color && stops[0].place == 0 &&
           stops[1].place == kOpaque / 2 && stops[2].place == kOpaque;
}

/// Whether start and end say all there is to know of the stops.
bool isPlain(const std::vector<Stop>& stops) {
    return stops.size() == 2 && stops[0].place == 0 && stops[1].place == kOpaque;
}

void readPath(const Outline& outline, ElementId path, OfficeGradient& gradient) {
    const bool isCircle = outline.attribute(path, "path") == "circle";
    gradient.style = isCircle ? OfficeGradientStyle::radial : OfficeGradientStyle::rect;
    const ElementId rectangle = outline.child(path, kFillToRect);
    const auto side = [&](std::string_view name) {
        return rectangle == kNoElement
                   ? 0
                   : std::clamp(numberOf(outline, rectangle, name, 0), 0, kOpaque);
    };
    const auto middle = [](std::int32_t low, std::int32_t high) {
        return low + high == 0 ? 50 : low * 100 / (low + high);
    };
    gradient.xOffset = middle(side("l"), side("r"));
    gradient.yOffset = middle(side("t"), side("b"));
}

/// Gives a gradient the values of its stops, colours or transparencies.
template <class Value>
void setStops(const std::vector<Stop>& stops, bool isPath, const Value& value,
              OfficeGradient& gradient) {
    if (gradient.style == OfficeGradientStyle::axial) {
        gradient.startColor = value(stops[1].color);
        gradient.endColor = value(stops[0].color);
        return;
    }
    gradient.startColor = value((isPath ? stops.back() : stops.front()).color);
    gradient.endColor = value((isPath ? stops.front() : stops.back()).color);
    if (isPlain(stops)) return;
    for (const Stop& each : stops) {
        const std::int32_t place = each.place / 10;
        gradient.stops.push_back({place, value(each.color)});
    }
}

mapping::KnownFill gradientFill(const Outline& outline, ElementId fill, const Theme& theme,
                                const std::optional<Color>& placeholder) {
    const std::vector<Stop> stops = stopsOf(outline, fill, theme, placeholder);
    mapping::KnownFill known;
    if (stops.empty()) return known;
    const ElementId path = outline.child(fill, kPath);
    const bool isPath = path != kNoElement;
    OfficeGradient shape;
    if (isPath) {
        readPath(outline, path, shape);
    } else {
        const ElementId linear = outline.child(fill, kLinear);
        const std::int32_t angle =
            linear == kNoElement ? 0 : numberOf(outline, linear, "ang", 0) / (kDegree / 10);
        shape.angle = ((8100 - angle) % kFullTurn + kFullTurn) % kFullTurn;
        shape.style = isMirrored(stops) ? OfficeGradientStyle::axial : OfficeGradientStyle::linear;
    }
    OfficeFill& office = known.office;
    office.style = OfficeFillStyle::gradient;
    office.gradient = shape;
    setStops(
        stops, isPath, [](const Color& color) { return color.rgb; }, office.gradient);
    const std::int32_t alpha = stops.front().color.alpha;
    const bool isUniform = std::all_of(stops.begin(), stops.end(),
                                       [&](const Stop& each) { return each.color.alpha == alpha; });
    if (!isUniform) {
        office.transparenceGradient = shape;
        setStops(
            stops, isPath, [](const Color& color) { return grayOfAlpha(color.alpha); },
            *office.transparenceGradient);
    }
    known.host = hostFillOf(office, {});
    if (isUniform) known.host.transparency = transparencyOf(alpha);
    return known;
}

mapping::KnownFill solidFill(const Color& color) {
    mapping::KnownFill known;
    known.office.style = OfficeFillStyle::solid;
    known.office.color = color.rgb;
    known.host = hostFillOf(known.office, {});
    known.host.transparency = transparencyOf(color.alpha);
    return known;
}

mapping::KnownFill ownPictureFill(const mapping::OwnPicture& picture, std::int32_t alpha) {
    mapping::KnownFill known;
    known.office.style = OfficeFillStyle::bitmap;
    known.office.bitmapName = nameOf(picture);
    known.host = hostFillOf(known.office, picture);
    known.host.transparency = transparencyOf(alpha);
    return known;
}

mapping::KnownFill patternFill(const Outline& outline, ElementId fill, const Theme& theme,
                               const std::optional<Color>& placeholder) {
    const auto color = [&](NameId name, std::int32_t otherwise) {
        const ElementId holder = outline.child(fill, name);
        if (holder == kNoElement) return Color{otherwise};
        return colorIn(outline, holder, theme, placeholder).value_or(Color{otherwise});
    };
    const std::string name = outline.attribute(fill, "prst").value_or("");
    const auto* const found = std::find(kPatterns.begin(), kPatterns.end(), name);
    const auto number =
        found == kPatterns.end() ? 1 : static_cast<std::int32_t>(found - kPatterns.begin()) + 1;
    const Color fore = color(kForeColor, 0x000000);
    const Color back = color(kBackColor, 0xFFFFFF);
    return ownPictureFill(mapping::PatternFill{number, fore.rgb, back.rgb}, fore.alpha);
}

mapping::KnownFill pictureFill(const Outline& outline, ElementId fill, Pictures& pictures) {
    const ElementId blip = outline.child(fill, kBlip);
    std::int32_t alpha = kOpaque;
    std::optional<mapping::OwnPicture> own;
    const bool isTiled = outline.child(fill, kTile) != kNoElement;
    if (blip != kNoElement) {
        const ElementId fixed = outline.child(blip, kFixedAlpha);
        if (fixed != kNoElement) {
            alpha = std::clamp(numberOf(outline, fixed, "amt", kOpaque), 0, kOpaque);
        }
        const auto relation = outline.attribute(blip, kRelations, "embed");
        if (isTiled && relation) own = pictures.recognise(*relation);
    }
    if (own) return ownPictureFill(*own, alpha);
    mapping::KnownFill known;
    known.office.style = OfficeFillStyle::bitmap;
    known.office.bitmapMode =
        isTiled ? mapping::OfficeBitmapMode::repeat : mapping::OfficeBitmapMode::stretch;
    known.host = hostFillOf(known.office, {});
    known.host.transparency = transparencyOf(alpha);
    return known;
}

mapping::KnownFill fillOfElement(const Outline& outline, ElementId fill, const Theme& theme,
                                 const std::optional<Color>& placeholder, Pictures& pictures) {
    switch (outline.nameOf(fill)) {
        case kSolidFill:
            if (const auto color = colorIn(outline, fill, theme, placeholder)) {
                return solidFill(*color);
            }
            return {};
        case kGradientFill:
            return gradientFill(outline, fill, theme, placeholder);
        case kPatternFill:
            return patternFill(outline, fill, theme, placeholder);
        case kPictureFill:
            return pictureFill(outline, fill, pictures);
        default:
            return {};
    }
}

/// What the pictures of a theme are does not matter for the shapes that use them.
class ThemePictures final : public Pictures {
 public:
    std::optional<mapping::OwnPicture> recognise(const std::string&) override { return {}; }
};

/// The number and the colour of a reference to one of the theme's styles.
struct Reference {
    std::size_t index = 0;
    std::optional<Color> color;
};

Reference referenceIn(const Outline& outline, ElementId style, NameId name, const Theme& theme) {
    if (style == kNoElement) return {};
    const ElementId reference = outline.child(style, name);
    if (reference == kNoElement) return {};
    const std::int32_t index = numberOf(outline, reference, "idx", 0);
    return {static_cast<std::size_t>(std::max(index, 0)), colorIn(outline, reference, theme, {})};
}

/// The one colour that a line's fill comes down to.
Color lineColorOf(const Outline& outline, ElementId fill, const Theme& theme) {
    if (outline.nameOf(fill) == kGradientFill) {
        const std::vector<Stop> stops = stopsOf(outline, fill, theme, {});
        return stops.empty() ? Color{} : stops[stops.size() > 2 ? 1 : 0].color;
    }
    if (outline.nameOf(fill) != kPatternFill)
        return colorIn(outline, fill, theme, {}).value_or(Color{});
    const ElementId back = outline.child(fill, kBackColor);
    const ElementId holder = back != kNoElement ? back : outline.child(fill, kForeColor);
    if (holder == kNoElement) return {};
    return colorIn(outline, holder, theme, {}).value_or(Color{});
}

// Writing.

/// Writes the elements of one fill.
class FillText {
 public:
    FillText(const PartChanges& part, ElementId at, const FillChange& change)
        : part_(part),
          at_(at),
          change_(change),
          prefix_(drawingPrefix(part, at)),
          alpha_(alphaOf(change.target.host.transparency)) {}

    std::string text() const {
        const mapping::HostFill& fill = change_.target.host;
        if (!fill.shown()) return empty("noFill", {}, true);
        switch (fill.type) {
            case MsoFillType::msoFillGradient:
                return gradient();
            case MsoFillType::msoFillPatterned:
                return pattern();
            case MsoFillType::msoFillTextured:
                return picture();
            default:
                return holder("solidFill", {}, color(change_.target.office.color, alpha_));
        }
    }

    std::string color(std::int32_t rgb, std::int32_t alpha, bool declares = false) const {
        const std::string hex = base::toHex(mapping::toHostColor(rgb)).substr(1);
        const std::string value = base::text(" val=\"", hex, "\"");
        if (alpha >= kOpaque) return empty("srgbClr", value, declares);
        return holder("srgbClr", value, empty("alpha", base::text(" val=\"", alpha, "\"")),
                      declares);
    }

    std::int32_t alpha() const { return alpha_; }

 private:
    std::string open(std::string_view name, std::string_view attributes, bool declares) const {
        return base::text("<", prefix_.name(name), declares ? prefix_.declaration : std::string(),
                          attributes);
    }
    std::string empty(std::string_view name, std::string_view attributes,
                      bool declares = false) const {
        return open(name, attributes, declares) + "/>";
    }
    std::string holder(std::string_view name, std::string_view attributes, std::string_view content,
                       bool declares) const {
        return base::text(open(name, attributes, declares), ">", content, "</", prefix_.name(name),
                          ">");
    }
    /// The outermost element declares the prefix.
    std::string holder(std::string_view name, std::string_view attributes,
                       std::string_view content) const {
        return holder(name, attributes, content, true);
    }

    std::string stop(std::int32_t place, std::int32_t rgb, std::int32_t alpha) const {
        return holder("gs", base::text(" pos=\"", place, "\""), color(rgb, alpha), false);
    }

    std::string stops(const OfficeGradient& gradient,
                      const std::optional<OfficeGradient>& clear) const {
        const auto startAlpha = clear ? alphaOfGray(clear->startColor) : alpha_;
        const auto endAlpha = clear ? alphaOfGray(clear->endColor) : alpha_;
        if (gradient.style == OfficeGradientStyle::axial) {
            return stop(0, gradient.endColor, endAlpha) +
                   stop(kOpaque / 2, gradient.startColor, startAlpha) +
                   stop(kOpaque, gradient.endColor, endAlpha);
        }
        if (!gradient.stops.empty()) {
            std::string out;
            for (std::size_t i = 0; i < gradient.stops.size(); ++i) {
                const bool hasOwn = clear && i < clear->stops.size();
                out += stop(gradient.stops[i].place * 10, gradient.stops[i].color,
                            hasOwn ? alphaOfGray(clear->stops[i].color) : alpha_);
            }
            return out;
        }
        if (gradient.style == OfficeGradientStyle::linear) {
            return stop(0, gradient.startColor, startAlpha) +
                   stop(kOpaque, gradient.endColor, endAlpha);
        }
        return stop(0, gradient.endColor, endAlpha) +
               stop(kOpaque, gradient.startColor, startAlpha);
    }

    std::string gradient() const {
        const OfficeGradient& gradient = change_.target.office.gradient;
        const std::string list =
            holder("gsLst", {}, stops(gradient, change_.target.office.transparenceGradient), false);
        const bool isStraight = gradient.style == OfficeGradientStyle::linear ||
                                gradient.style == OfficeGradientStyle::axial;
        if (isStraight) {
            const std::int32_t angle = (8100 - gradient.angle) % kFullTurn * (kDegree / 10);
            return holder("gradFill", " rotWithShape=\"1\"",
                          list + empty("lin", base::text(" ang=\"", angle, R"(" scaled="0")")));
        }
        const bool isRound = gradient.style == OfficeGradientStyle::radial ||
                             gradient.style == OfficeGradientStyle::elliptical;
        const auto share = [](std::int32_t percent) { return percent * 1000; };
        const std::string rectangle =
            empty("fillToRect",
                  base::text(" l=\"", share(gradient.xOffset), "\" t=\"", share(gradient.yOffset),
                             "\" r=\"", share(100 - gradient.xOffset), "\" b=\"",
                             share(100 - gradient.yOffset), "\""));
        return holder(
            "gradFill", " rotWithShape=\"1\"",
            list + holder("path", base::text(" path=\"", isRound ? "circle" : "rect", "\""),
                          rectangle, false));
    }

    std::string pattern() const {
        const mapping::HostFill& fill = change_.target.host;
        const auto number =
            static_cast<std::size_t>(std::clamp(fill.pattern, 1, mapping::kPatternCount) - 1);
        const auto part = [&](std::string_view name, std::int32_t rgb) {
            return holder(name, {}, color(mapping::toOfficeColor(rgb), alpha_), false);
        };
        return holder("pattFill", base::text(" prst=\"", kPatterns.at(number), "\""),
                      part("fgClr", fill.foreColor) + part("bgClr", fill.backColor));
    }

    std::string picture() const {
        if (change_.picture.empty()) {
            throw DocumentError("has a picture fill that cannot be given to a shape anew");
        }
        const Prefix relations = relationPrefix(part_, at_);
        const std::string attributes =
            base::text(relations.declaration, " ", relations.name("embed"), "=\"",
                       part_.pictures.add(change_.picture), "\"");
        const std::string clear = alpha_ >= kOpaque
                                      ? std::string()
                                      : empty("alphaModFix", base::text(" amt=\"", alpha_, "\""));
        return holder("blipFill", R"( dpi="0" rotWithShape="1")",
                      holder("blip", attributes, clear, false) + empty("srcRect", {}) +
                          empty("tile",
                                " tx=\"0\" ty=\"0\" sx=\"100000\" sy=\"100000\" flip=\"none\" "
                                "algn=\"tl\""));
    }

    const PartChanges& part_;
    ElementId at_;
    const FillChange& change_;
    Prefix prefix_;
    std::int32_t alpha_;
};

bool hasOnlyAlpha(const Outline& outline, ElementId color) {
    ElementId each = outline.firstChild(color);
    while (each != kNoElement && outline.nameOf(each) == kAlpha) each = outline.nextSibling(each);
    return each == kNoElement;
}

/// Changes no more than the colour of a solid fill. Whether that is enough.
bool writeColorAlone(const PartChanges& part, ElementId fill, const FillChange& change) {
    const Outline& outline = part.outline;
    const mapping::HostFill& wanted = change.target.host;
    const bool isSolid = wanted.shown() && wanted.type == MsoFillType::msoFillSolid;
    if (!isSolid || outline.nameOf(fill) != kSolidFill) return false;
    const ElementId color = colorElementIn(outline, fill);
    if (color == kNoElement) return false;
    const auto value = outline.findAttribute(color, kOtherNamespace, "val");
    const std::int32_t rgb = change.target.office.color;
    if (outline.nameOf(color) == kRgbColor && value && hasOnlyAlpha(outline, color) &&
        wanted.transparency == change.before.transparency) {
        part.splices.replace(value->value, base::toHex(mapping::toHostColor(rgb)).substr(1));
        return true;
    }
    const FillText text(part, color, change);
    part.splices.replace(outline.rangeOf(color), text.color(rgb, text.alpha(), true));
    return true;
}

/// A picture that is not replaced changes in its transparency at most.
bool keepsPicture(const FillChange& change) {
    const mapping::HostFill& wanted = change.target.host;
    return wanted.shown() && change.before.shown() && wanted.type == change.before.type &&
           (wanted.type == MsoFillType::msoFillPicture ||
            (wanted.type == MsoFillType::msoFillTextured && change.picture.empty()));
}

void writePictureAlpha(const PartChanges& part, ElementId fill, const FillChange& change) {
    const Outline& outline = part.outline;
    const ElementId blip = outline.child(fill, kBlip);
    if (blip == kNoElement || outline.nameOf(fill) != kPictureFill) return;
    const Prefix prefix = drawingPrefix(part, blip);
    const ElementId former = outline.child(blip, kFixedAlpha);
    const std::int32_t alpha = alphaOf(change.target.host.transparency);
    const std::string clear = alpha >= kOpaque ? std::string()
                                               : text("<", prefix.name("alphaModFix"),
                                                      prefix.declaration, " amt=\"", alpha, "\"/>");
    if (former != kNoElement) {
        part.splices.replace(outline.rangeOf(former), clear);
    } else if (!clear.empty()) {
        insertFirst(outline, part.splices, blip, clear);
    }
}

/// Adds a fill, a line or both: behind the transformation, the geometry and the fill that is there.
void insertLook(const PartChanges& part, ElementId properties, const std::string& look) {
    const Outline& outline = part.outline;
    if (outline.isEmptyTag(properties)) {
        insertFirst(outline, part.splices, properties, look);
        return;
    }
    std::size_t at = outline.contentOf(properties).begin;
    for (const ElementId before :
         {outline.child(properties, kTransform), outline.child(properties, kPresetGeometry),
          outline.child(properties, kCustomGeometry), fillElementIn(outline, properties)}) {
        if (before != kNoElement) at = std::max(at, outline.rangeOf(before).end);
    }
    part.splices.insert(at, look);
}

void writeFill(const PartChanges& part, ElementId fill, const FillChange& change) {
    if (keepsPicture(change)) {
        writePictureAlpha(part, fill, change);
        return;
    }
    if (writeColorAlone(part, fill, change)) return;
    part.splices.replace(part.outline.rangeOf(fill), FillText(part, fill, change).text());
}

/// A line is painted as a shape is.
FillChange solidChange(const Color& color) {
    const mapping::KnownFill known = solidFill(color);
    FillChange change;
    change.target.host = known.host;
    change.target.office = known.office;
    change.before = known.host;
    return change;
}

void writeLine(const PartChanges& part, ElementId line, const FillChange& change) {
    const ElementId fill = fillElementIn(part.outline, line);
    if (fill != kNoElement) {
        writeFill(part, fill, change);
    } else {
        insertFirst(part.outline, part.splices, line, FillText(part, line, change).text());
    }
}

std::string lineElement(const PartChanges& part, ElementId properties, const FillChange& change) {
    const Prefix prefix = drawingPrefix(part, properties);
    const std::string name = prefix.name("ln");
    return text("<", name, prefix.declaration, ">", FillText(part, properties, change).text(), "</",
                name, ">");
}

}  // namespace

ElementId fillElementIn(const Outline& outline, ElementId properties) {
    if (properties == kNoElement) return kNoElement;
    ElementId each = outline.firstChild(properties);
    while (each != kNoElement &&
           (outline.nameOf(each) < kNoFill || outline.nameOf(each) > kGroupFill)) {
        each = outline.nextSibling(each);
    }
    return each;
}

mapping::KnownFill drawingFill(const Outline& outline, const DrawingShape& shape,
                               const Theme& theme, Pictures& pictures) {
    ElementId fill = fillElementIn(outline, shape.properties);
    if (fill != kNoElement && outline.nameOf(fill) == kGroupFill) {
        if (shape.groupFill == kNoElement) return {};
        fill = shape.groupFill;
    }
    if (fill != kNoElement) return fillOfElement(outline, fill, theme, {}, pictures);
    const Reference reference = referenceIn(outline, shape.style, kFillReference, theme);
    const auto style = theme.fillStyle(reference.index);
    if (!style) return {};
    ThemePictures none;
    return fillOfElement(*style->outline, style->element, theme, reference.color, none);
}

std::optional<Color> drawingLine(const Outline& outline, const DrawingShape& shape,
                                 const Theme& theme) {
    const ElementId line =
        shape.properties == kNoElement ? kNoElement : outline.child(shape.properties, kLine);
    const ElementId fill = fillElementIn(outline, line);
    if (fill != kNoElement && outline.nameOf(fill) == kNoFill) return {};
    if (fill != kNoElement) return lineColorOf(outline, fill, theme);
    const Reference reference = referenceIn(outline, shape.style, kLineReference, theme);
    const auto style = theme.lineStyle(reference.index);
    if (!style) return {};
    const ElementId styleFill = fillElementIn(*style->outline, style->element);
    if (styleFill == kNoElement || style->outline->nameOf(styleFill) == kNoFill) return {};
    return colorIn(*style->outline, styleFill, theme, reference.color).value_or(Color{});
}

void writeDrawing(const PartChanges& part, const DrawingShape& shape,
                  const std::optional<FillChange>& fill, const std::optional<Color>& line) {
    const Outline& outline = part.outline;
    const ElementId former = fillElementIn(outline, shape.properties);
    std::string added;
    if (fill && former != kNoElement) {
        writeFill(part, former, *fill);
    } else if (fill) {
        added += FillText(part, shape.properties, *fill).text();
    }
    const ElementId formerLine = outline.child(shape.properties, kLine);
    if (line && formerLine != kNoElement) {
        writeLine(part, formerLine, solidChange(*line));
    } else if (line) {
        added += lineElement(part, shape.properties, solidChange(*line));
    }
    if (!added.empty()) insertLook(part, shape.properties, added);
}

}  // namespace huebrush::documents::ooxml
