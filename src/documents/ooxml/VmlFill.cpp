// SPDX-License-Identifier: MPL-2.0

#include "documents/ooxml/VmlFill.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <vector>

#include "base/Color.h"
#include "base/Text.h"
#include "documents/ooxml/NamedColors.h"
#include "documents/ooxml/Words.h"
#include "documents/package/DocumentError.h"
#include "documents/xml/Edits.h"

namespace huebrush::documents::ooxml {

using base::text;
using host::MsoFillType;
using host::MsoGradientColorType;
using host::MsoTextureType;
using host::MsoTriState;
using mapping::HostFill;

namespace {

constexpr std::int32_t kWhite = 0xFFFFFF;

std::optional<double> numberOf(std::string_view text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || !std::isfinite(number)) return {};
    return number;
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<std::int32_t> hexColor(std::string_view digits) {
    std::int32_t color = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), color, 16);
    if (error != std::errc() || end != digits.data() + digits.size()) return {};
    if (digits.size() == 6) return color;
    if (digits.size() != 3) return {};
    std::int32_t wide = 0;
    for (const int shift : {8, 4, 0}) wide = wide << 8 | (color >> shift & 0xF) * 0x11;
    return wide;
}

/// "rgb(1,2,3)".
std::optional<std::int32_t> listedColor(std::string_view text) {
    std::int32_t color = 0;
    text.remove_prefix(text.find('(') + 1);
    for (int i = 0; i < 3; ++i) {
        const auto part = numberOf(trimmed(text.substr(0, text.find_first_of(",)"))));
        if (!part) return {};
        color = color << 8 | static_cast<std::int32_t>(std::clamp(*part, 0.0, 255.0));
        const std::size_t comma = text.find(',');
        text = comma == std::string_view::npos ? std::string_view() : text.substr(comma + 1);
    }
    return color;
}

bool isTrue(std::string_view text) {
    return text != "f" && text != "false" && text != "0" && text != "off";
}

/// From 0 to 1: a number, per cents, or 65536ths with an f.
std::optional<double> fractionOf(std::string_view text) {
    const auto number = numberOf(text);
    if (!number) return {};
    if (text.ends_with('f')) return std::clamp(*number / 65536, 0.0, 1.0);
    if (text.ends_with('%')) return std::clamp(*number / 100, 0.0, 1.0);
    return std::clamp(*number, 0.0, 1.0);
}

/// What a fill or a line is made of, by the names of the attributes: the shape's own come first.
class Attributes {
 public:
    /// `part` is the element that has the details, such as v:fill.
    Attributes(const Outline& outline, const VmlShape& shape, NameId part)
        : outline_(outline), shape_(shape), part_(outline.child(shape.element, part)) {
        if (shape.type != kNoElement) typePart_ = outline.child(shape.type, part);
    }

    std::optional<std::string> ofPart(std::string_view name) const {
        const auto own = valueOf(part_, name);
        return own ? own : valueOf(typePart_, name);
    }
    /// Of the part or, where that does not say, of the shape.
    std::optional<std::string> ofPartOrShape(std::string_view name,
                                             std::string_view nameOfShape) const {
        if (auto own = valueOf(part_, name)) return own;
        if (auto own = valueOf(shape_.element, nameOfShape)) return own;
        if (auto ofType = valueOf(typePart_, name)) return ofType;
        return valueOf(shape_.type, nameOfShape);
    }
    std::optional<std::string> relation() const {
        if (part_ == kNoElement) return {};
        if (auto id = outline_.attribute(part_, kRelations, "id")) return id;
        return outline_.attribute(part_, kOffice, "relid");
    }

 private:
    std::optional<std::string> valueOf(ElementId element, std::string_view name) const {
        if (element == kNoElement) return {};
        return outline_.attribute(element, name);
    }

    const Outline& outline_;
    VmlShape shape_;
    ElementId part_ = kNoElement;
    ElementId typePart_ = kNoElement;
};

/// A straight gradient: how it is written, and the object model's style and variant.
struct GradientRow {
    int angle;
    int focus;
    std::int32_t style;
    std::int32_t variant;
};

/// Where two rows look the same, the first is written.
constexpr std::array kGradients = std::to_array<GradientRow>({
    {0, 100, 1, 1},
    {0, 0, 1, 2},
    {0, 50, 1, 3},
    {0, -50, 1, 4},
    {-90, 0, 2, 1},
    {-90, 100, 2, 2},
    {-90, -50, 2, 3},
    {-90, 50, 2, 4},
    {-135, 0, 3, 1},
    {-135, 100, 3, 2},
    {-135, -50, 3, 3},
    {-135, 50, 3, 4},
    {-45, 100, 4, 1},
    {-45, 0, 4, 2},
    {-45, -50, 4, 3},
    {-45, 50, 4, 4},
});

/// The nearest row. Half a turn exchanges the ends.
const GradientRow& gradientRow(double angle, double focus) {
    angle = std::remainder(angle, 360.0);
    auto eighth = static_cast<int>(std::lround(angle / 45)) * 45;
    int nearest = 0;
    for (const int each : {0, 100, 50, -50}) {
        if (std::abs(focus - each) < std::abs(focus - nearest)) nearest = each;
    }
    if (focus < -75) nearest = 100;
    if (eighth == -180) eighth = 180;
    if (eighth > 0) {
        eighth -= 180;
        nearest = nearest == 0 || nearest == 100 ? 100 - nearest : -nearest;
    }
    const auto* const found = std::find_if(
        kGradients.begin(), kGradients.end(),
        [&](const GradientRow& row) { return row.angle == eighth && row.focus == nearest; });
    return found == kGradients.end() ? kGradients.front() : *found;
}

const GradientRow& gradientRow(std::int32_t style, std::int32_t variant) {
    const auto* const found = std::find_if(
        kGradients.begin(), kGradients.end(),
        [&](const GradientRow& row) { return row.style == style && row.variant == variant; });
    return found == kGradients.end() ? kGradients.front() : *found;
}

constexpr std::int32_t kFromCorner = 5;
constexpr std::int32_t kFromCentre = 7;

/// The places of the bright spot for the variants of gradients from a corner.
constexpr std::array<std::string_view, 4> kCorners = {"", "1", ",1", "1,1"};

void readRadial(const Attributes& attributes, HostFill& fill) {
    const std::string place = attributes.ofPart("focusposition").value_or("");
    const std::size_t comma = std::min(place.find(','), place.size());
    const auto part = [](std::string_view text) { return numberOf(trimmed(text)).value_or(0); };
    const double x = part(std::string_view(place).substr(0, comma));
    const double y = comma < place.size() ? part(std::string_view(place).substr(comma + 1)) : 0;
    const bool isCentre = std::abs(x - 0.5) < 0.25 && std::abs(y - 0.5) < 0.25;
    fill.gradientStyle = isCentre ? kFromCentre : kFromCorner;
    fill.gradientVariant = isCentre ? 1 : 1 + (x >= 0.5 ? 1 : 0) + (y >= 0.5 ? 2 : 0);
    // The fore colour is the outer one of gradients from the centre, and that of the corner of
    // others.
    const double focus = part(attributes.ofPart("focus").value_or("0"));
    const bool colorIsInside = focus >= 50;
    if (colorIsInside == isCentre) std::swap(fill.foreColor, fill.backColor);
}

/// "fill darken(128)": a second colour that is made of the first. Whether it is one.
bool readShade(std::string_view color, HostFill& fill) {
    const std::size_t open = color.find('(');
    if (!color.starts_with("fill ") || open == std::string_view::npos) return false;
    const double share = std::clamp(numberOf(color.substr(open + 1)).value_or(0), 0.0, 255.0) / 510;
    const bool isLighter = color.find("lighten") != std::string_view::npos;
    fill.gradientColorType = MsoGradientColorType::msoGradientOneColor;
    fill.gradientDegree = static_cast<float>(isLighter ? 1 - share : share);
    fill.backColor = mapping::Unused::kColor;
    return true;
}

void readGradient(const Attributes& attributes, std::string_view type, HostFill& fill) {
    fill.type = MsoFillType::msoFillGradient;
    fill.gradientColorType = MsoGradientColorType::msoGradientTwoColors;
    const std::string second = attributes.ofPart("color2").value_or("white");
    fill.backColor = mapping::toHostColor(vmlColor(second).value_or(kWhite));
    if (type == "gradient" || type == "gradientUnscaled") {
        const auto number = [&](std::string_view name) {
            return numberOf(attributes.ofPart(name).value_or("0")).value_or(0);
        };
        const GradientRow& row = gradientRow(number("angle"), number("focus"));
        fill.gradientStyle = row.style;
        fill.gradientVariant = row.variant;
    } else {
        readRadial(attributes, fill);
    }
    readShade(second, fill);
}

void readPicture(const Attributes& attributes, std::string_view type, Pictures& pictures,
                 HostFill& fill) {
    const std::int32_t fore = fill.foreColor;
    fill.foreColor = mapping::Unused::kColor;
    std::optional<mapping::OwnPicture> own;
    const auto relation = attributes.relation();
    if (relation && type != "frame") own = pictures.recognise(*relation);
    if (own) {
        mapping::OfficeFill office;
        office.style = mapping::OfficeFillStyle::bitmap;
        const HostFill known = hostFillOf(office, own);
        static_cast<mapping::FillBuild&>(fill) = static_cast<const mapping::FillBuild&>(known);
        if (const auto* pattern = std::get_if<mapping::PatternFill>(&*own)) {
            fill.foreColor = mapping::toHostColor(pattern->foreColor);
            fill.backColor = mapping::toHostColor(pattern->backColor);
        }
    } else if (type == "frame") {
        fill.type = MsoFillType::msoFillPicture;
    } else if (type == "pattern") {
        // The number of the pattern is known to no attribute: only its picture tells it.
        fill.type = MsoFillType::msoFillPatterned;
        fill.foreColor = fore;
        fill.backColor = mapping::toHostColor(
            vmlColor(attributes.ofPart("color2").value_or("white")).value_or(kWhite));
    } else {
        fill.type = MsoFillType::msoFillTextured;
        fill.textureType = MsoTextureType::msoTextureUserDefined;
        fill.textureName.reset();
    }
}

mapping::OfficeFill officeFillOf(const HostFill& fill) {
    mapping::OfficeFill office;
    if (!fill.shown()) return office;
    const bool isPicture = fill.type == MsoFillType::msoFillPicture ||
                           fill.type == MsoFillType::msoFillTextured ||
                           fill.type == MsoFillType::msoFillPatterned;
    if (isPicture) {
        office.style = mapping::OfficeFillStyle::bitmap;
        return office;
    }
    return targetFor(fill, {}, {}).office;
}

// Writing.

std::string hexOf(std::int32_t hostColor) {
    return base::lowerCase(base::toHex(hostColor));
}

std::string opacityOf(float transparency) {
    return text(std::lround((1.0 - transparency) * 65536), "f");
}

/// Writes a fill as attributes of the shape and as its v:fill.
class VmlText {
 public:
    VmlText(const PartChanges& part, const VmlShape& shape, const FillChange& change)
        : part_(part), shape_(shape), change_(change), fill_(change.target.host) {}

    /// Gradients and pictures, of which attributes of the shape say no more than a colour.
    std::string element(std::string_view prefix) const {
        std::string attributes;
        if (fill_.transparency > 0) add(attributes, "opacity", opacityOf(fill_.transparency));
        if (fill_.type == MsoFillType::msoFillGradient) {
            addGradient(attributes);
        } else if (fill_.type != MsoFillType::msoFillSolid) {
            addPicture(attributes);
        }
        if (attributes.empty()) return {};
        return text("<", prefix, prefix.empty() ? "" : ":", "fill", attributes, "/>");
    }

    std::int32_t color() const {
        if (fill_.type == MsoFillType::msoFillGradient) return ends().foreColor;
        return fill_.usesForeColor() ? fill_.foreColor : mapping::toHostColor(kWhite);
    }

 private:
    static void add(std::string& attributes, std::string_view name, std::string_view value) {
        attributes += text(" ", name, "=\"", value, "\"");
    }

    /// The gradient with two colours of its own, as it is painted.
    HostFill ends() const {
        if (fill_.gradientColorType == MsoGradientColorType::msoGradientOneColor) return fill_;
        return hostFillOf(change_.target.office, {});
    }

    void addGradient(std::string& attributes) const {
        const HostFill ends = this->ends();
        const bool isOneColor = ends.gradientColorType == MsoGradientColorType::msoGradientOneColor;
        const bool isLight = ends.gradientDegree > 0.5F;
        const auto share =
            std::lround((isLight ? 1 - ends.gradientDegree : ends.gradientDegree) * 510);
        add(attributes, "color2",
            isOneColor ? text("fill ", isLight ? "lighten(" : "darken(", share, ")")
                       : hexOf(ends.backColor));
        add(attributes, "rotate", "t");
        if (ends.gradientStyle >= kFromCorner) {
            addRadial(attributes, ends);
            return;
        }
        const GradientRow& row = gradientRow(ends.gradientStyle, ends.gradientVariant);
        if (row.angle != 0) add(attributes, "angle", text(row.angle));
        if (row.focus != 0) add(attributes, "focus", text(row.focus, "%"));
        add(attributes, "type", "gradient");
    }

    static void addRadial(std::string& attributes, const HostFill& ends) {
        const bool isCorner = ends.gradientStyle == kFromCorner;
        const auto variant = static_cast<std::size_t>(std::clamp(ends.gradientVariant, 1, 4) - 1);
        const std::string_view place = isCorner ? kCorners.at(variant) : ".5,.5";
        if (!place.empty()) add(attributes, "focusposition", place);
        if (!isCorner) add(attributes, "focussize", "");
        // The fore colour is inside of gradients from a corner, and of those that are turned.
        if (isCorner || variant % 2 == 1) add(attributes, "focus", "100%");
        add(attributes, "type", "gradientRadial");
    }

    void addPicture(std::string& attributes) const {
        if (change_.picture.empty()) {
            throw DocumentError("has a picture fill that cannot be given to a shape anew");
        }
        const Prefix relations = relationPrefix(part_, shape_.element);
        attributes += relations.declaration;
        add(attributes, relations.name("id"), part_.pictures.add(change_.picture));
        add(attributes, "recolor", "t");
        add(attributes, "rotate", "t");
        add(attributes, "type", "tile");
    }

    const PartChanges& part_;
    const VmlShape& shape_;
    const FillChange& change_;
    HostFill fill_;
};

void setAttribute(const PartChanges& part, ElementId element, std::string_view name,
                  const std::optional<std::string>& value) {
    documents::setAttribute(part.outline, part.splices, element, kOtherNamespace, name, value);
}

bool isPlainSolid(const Outline& outline, ElementId fill) {
    return outline.attribute(fill, "type").value_or("solid") == "solid";
}

/// A solid fill stays the element that it is.
void recolorElement(const PartChanges& part, ElementId fill, const FillChange& change,
                    const std::string& color) {
    const auto has = [&](std::string_view name) {
        return part.outline.findAttribute(fill, kOtherNamespace, name).has_value();
    };
    if (has("color")) setAttribute(part, fill, "color", color);
    if (has("on")) setAttribute(part, fill, "on", {});
    const float transparency = change.target.host.transparency;
    if (transparency == change.before.transparency && change.before.shown()) return;
    setAttribute(part, fill, "opacity",
                 transparency > 0 ? std::optional(opacityOf(transparency)) : std::nullopt);
}

/// Whether the type says something that the shape has to contradict.
bool typeHasFill(const Outline& outline, const VmlShape& shape) {
    return shape.type != kNoElement && (outline.child(shape.type, kVmlFill) != kNoElement ||
                                        outline.attribute(shape.type, "filled").has_value());
}

void writeShown(const PartChanges& part, const VmlShape& shape, const FillChange& change) {
    const Outline& outline = part.outline;
    const VmlText fill(part, shape, change);
    const std::string color = hexOf(fill.color());
    const bool contradicts = typeHasFill(outline, shape);
    setAttribute(part, shape.element, "fillcolor", color);
    setAttribute(part, shape.element, "filled",
                 contradicts ? std::optional<std::string>("t") : std::nullopt);
    const ElementId former = outline.child(shape.element, kVmlFill);
    const bool isSolid = change.target.host.type == MsoFillType::msoFillSolid;
    if (former != kNoElement && isSolid && isPlainSolid(outline, former)) {
        recolorElement(part, former, change, color);
        return;
    }
    const std::string_view prefix = prefixOf(outline.writtenName(shape.element));
    std::string element = fill.element(prefix);
    if (element.empty() && contradicts) {
        element = text("<", prefix, prefix.empty() ? "" : ":", R"(fill on="t" color=")", color,
                       R"(" opacity="1" type="solid"/>)");
    }
    if (former != kNoElement) {
        part.splices.replace(outline.rangeOf(former), element);
    } else if (!element.empty()) {
        insertFirst(outline, part.splices, shape.element, element);
    }
}

void writeHidden(const PartChanges& part, const VmlShape& shape) {
    setAttribute(part, shape.element, "filled", "f");
    const ElementId former = part.outline.child(shape.element, kVmlFill);
    if (former != kNoElement) setAttribute(part, former, "on", "f");
}

void writeFill(const PartChanges& part, const VmlShape& shape, const FillChange& change) {
    const HostFill& wanted = change.target.host;
    const bool keepsPicture =
        wanted.shown() && change.before.shown() && wanted.type == change.before.type &&
        (wanted.type == MsoFillType::msoFillPicture ||
         (wanted.type == MsoFillType::msoFillTextured && change.picture.empty()));
    const ElementId fill = part.outline.child(shape.element, kVmlFill);
    if (!wanted.shown()) {
        writeHidden(part, shape);
    } else if (keepsPicture && fill != kNoElement) {
        setAttribute(part, fill, "opacity", opacityOf(wanted.transparency));
    } else {
        writeShown(part, shape, change);
    }
}

void writeLine(const PartChanges& part, const VmlShape& shape, const std::string& color) {
    const Outline& outline = part.outline;
    const ElementId stroke = outline.child(shape.element, kVmlStroke);
    const bool hasInside = stroke != kNoElement && outline.attribute(stroke, "color");
    if (hasInside) setAttribute(part, stroke, "color", color);
    if (!hasInside || outline.attribute(shape.element, "strokecolor")) {
        setAttribute(part, shape.element, "strokecolor", color);
    }
}

}  // namespace

std::optional<std::int32_t> vmlColor(std::string_view value) {
    std::string_view color = trimmed(value.substr(0, value.find('[')));
    if (color.starts_with('#')) return hexColor(color.substr(1));
    if (color.starts_with("rgb(")) return listedColor(color);
    return namedColor(color);
}

mapping::KnownFill vmlFill(const Outline& outline, const VmlShape& shape, Pictures& pictures) {
    const Attributes attributes(outline, shape, kVmlFill);
    mapping::KnownFill known;
    HostFill& fill = known.host;
    if (!isTrue(attributes.ofPartOrShape("on", "filled").value_or("t"))) return known;
    fill.visible = MsoTriState::msoTrue;
    const auto color = attributes.ofPartOrShape("color", "fillcolor");
    fill.foreColor = mapping::toHostColor(vmlColor(color.value_or("white")).value_or(kWhite));
    const std::string type = attributes.ofPart("type").value_or("solid");
    if (type.starts_with("gradient")) {
        readGradient(attributes, type, fill);
    } else if (type == "tile" || type == "pattern" || type == "frame") {
        readPicture(attributes, type, pictures, fill);
    }
    if (const auto opacity = attributes.ofPart("opacity")) {
        const double share = fractionOf(*opacity).value_or(1);
        // 65536ths are no round numbers: what was written comes back.
        constexpr double kSteps = 10'000;
        fill.transparency = static_cast<float>(std::round((1 - share) * kSteps) / kSteps);
    }
    known.office = officeFillOf(fill);
    return known;
}

std::optional<std::int32_t> vmlLine(const Outline& outline, const VmlShape& shape) {
    const Attributes attributes(outline, shape, kVmlStroke);
    if (!isTrue(attributes.ofPartOrShape("on", "stroked").value_or("t"))) return {};
    return vmlColor(attributes.ofPartOrShape("color", "strokecolor").value_or("black")).value_or(0);
}

void writeVml(const PartChanges& part, const VmlShape& shape, const std::optional<FillChange>& fill,
              const std::optional<std::int32_t>& line) {
    if (fill) writeFill(part, shape, *fill);
    if (line) writeLine(part, shape, hexOf(mapping::toHostColor(*line)));
    if (const auto copy = part.outline.findAttribute(shape.element, kOffice, "gfxdata")) {
        removeAttribute(part.outline, part.splices, *copy);
    }
}

}  // namespace huebrush::documents::ooxml
