// SPDX-License-Identifier: MPL-2.0

#include "documents/odf/StyleChanges.h"

#include <algorithm>
#include <array>
#include <map>

#include "base/Text.h"
#include "documents/odf/Values.h"
#include "documents/package/DocumentError.h"
#include "documents/xml/Edits.h"

namespace huebrush::documents::odf {

using base::text;
using mapping::OfficeBitmapMode;
using mapping::OfficeFill;
using mapping::OfficeFillStyle;
using mapping::OfficeGradient;
using mapping::OfficeGradientStyle;

namespace {

using Changes = std::vector<PropertyChange>;

struct UsualPrefix {
    NamespaceId space;
    const char* prefix;
    const char* address;
};

constexpr UsualPrefix kUsual[] = {
    {kOffice, "office", kOfficeAddress},   {kStyleSpace, "style", kStyleAddress},
    {kDraw, "draw", kDrawAddress},         {kSvg, "svg", kSvgAddress},
    {kXlink, "xlink", kXlinkAddress},      {kExtension, "loext", kExtensionAddress},
    {kMemory, "huebrush", kMemoryAddress},
};

}  // namespace

/// Names as they are written in some place, and the declarations that they need there.
class Prefixes {
 public:
    explicit Prefixes(const Place& at) : at_(at) {}

    std::string name(NamespaceId space, std::string_view local) {
        const auto known = at_.outline->prefixFor(at_.element, space);
        // Attributes of a namespace need a prefix.
        if (known && !known->empty()) return withPrefix(*known, local);
        for (const UsualPrefix& each : kUsual) {
            if (each.space == space) return withPrefix(declared(each), local);
        }
        return std::string(local);
    }
    /// With a blank before each.
    const std::string& declarations() const { return declarations_; }

 private:
    const std::string& declared(const UsualPrefix& usual) {
        std::string& prefix = declared_[usual.space];
        if (!prefix.empty()) return prefix;
        prefix = usual.prefix;
        // The document may have the usual one for something else, even in the same element.
        for (int number = 1; at_.outline->isDeclared(at_.element, prefix); ++number) {
            prefix = text(usual.prefix, number);
        }
        declarations_ += text(" xmlns:", prefix, "=\"", usual.address, "\"");
        return prefix;
    }

    Place at_;
    std::map<NamespaceId, std::string> declared_;
    std::string declarations_;
};

namespace {

std::string attribute(const std::string& name, std::string_view value) {
    return text(" ", name, "=\"", escaped(value), "\"");
}

std::string attributesOf(Prefixes& prefixes, const Changes& changes) {
    std::string attributes;
    for (const PropertyChange& each : changes) {
        if (each.value) {
            attributes += attribute(prefixes.name(each.space, each.local), *each.value);
        }
    }
    return attributes;
}

/// A new element for properties.
std::string propertiesElement(const Place& at, NamespaceId space, const Changes& changes) {
    Prefixes prefixes(at);
    const std::string name = prefixes.name(space, "graphic-properties");
    const std::string attributes = attributesOf(prefixes, changes);
    return text("<", name, prefixes.declarations(), attributes, "/>");
}

/// Changes properties where they stand.
void changeProperties(const Place& properties, const Changes& changes, Splices& splices) {
    const Outline& outline = *properties.outline;
    Prefixes prefixes(properties);
    for (const PropertyChange& each : changes) {
        setAttribute(outline, splices, properties.element, each.space,
                     each.value ? prefixes.name(each.space, each.local) : each.local, each.value);
    }
    if (!prefixes.declarations().empty()) {
        const std::size_t at = outline.startTagOf(properties.element).begin + 1 +
                               outline.writtenName(properties.element).size();
        splices.insert(at, prefixes.declarations());
    }
    const Place theme = properties.child(kThemeColor);
    const bool hasOtherColor = std::any_of(changes.begin(), changes.end(), [](const auto& each) {
        return each.space == kDraw && each.local == "fill-color";
    });
    if (theme && hasOtherColor) splices.remove(outline.rangeOf(theme.element));
}

/// A copy of a style with another name and other properties.
std::string copyOf(const Place& style, const std::string& name, NameId properties,
                   const Changes& changes) {
    const Outline& outline = *style.outline;
    Splices splices;
    setAttribute(outline, splices, style.element, kStyleSpace, "name", name);
    if (const Place former = style.child(properties)) {
        changeProperties(former, changes, splices);
    } else {
        insertFirst(outline, splices, style.element,
                    propertiesElement(style, kStyleSpace, changes));
    }
    return splices.applied(outline.text(), outline.rangeOf(style.element));
}

std::string_view nameOf(OfficeFillStyle style) {
    static constexpr std::array<std::string_view, 5> kNames = {"none", "solid", "gradient", "hatch",
                                                               "bitmap"};
    return kNames.at(static_cast<std::size_t>(style));
}

std::string_view nameOf(OfficeGradientStyle style) {
    static constexpr std::array<std::string_view, 6> kNames = {
        "linear", "axial", "radial", "ellipsoid", "square", "rectangular"};
    return kNames.at(static_cast<std::size_t>(style));
}

std::string_view nameOf(mapping::OfficeHatchStyle style) {
    static constexpr std::array<std::string_view, 3> kNames = {"single", "double", "triple"};
    return kNames.at(static_cast<std::size_t>(style));
}

std::string_view nameOf(OfficeBitmapMode mode) {
    static constexpr std::array<std::string_view, 3> kNames = {"repeat", "stretch", "no-repeat"};
    return kNames.at(static_cast<std::size_t>(mode));
}

/// What only fills of some kind use, or other programs beside them.
constexpr std::pair<NamespaceId, const char*> kOfBodies[] = {
    {kDraw, "fill-color"},
    {kDraw, "secondary-fill-color"},
    {kDraw, "fill-gradient-name"},
    {kDraw, "gradient-step-count"},
    {kDraw, "fill-hatch-name"},
    {kDraw, "fill-hatch-solid"},
    {kDraw, "fill-image-name"},
    {kDraw, "fill-image-width"},
    {kDraw, "fill-image-height"},
    {kDraw, "fill-image-ref-point"},
    {kDraw, "fill-image-ref-point-x"},
    {kDraw, "fill-image-ref-point-y"},
    {kDraw, "tile-repeat-offset"},
    {kStyleSpace, "repeat"},
    {kExtension, "fill-theme-color"},
    {kExtension, "fill-color-lum-mod"},
    {kExtension, "fill-color-lum-off"},
};

/// The attributes of a gradient but for its name and its colours.
std::string shapeOf(Prefixes& prefixes, const OfficeGradient& gradient) {
    const auto draw = [&](std::string_view local, std::string_view value) {
        return attribute(prefixes.name(kDraw, local), value);
    };
    std::string attributes = draw("style", nameOf(gradient.style));
    const bool hasCentre = gradient.style != OfficeGradientStyle::linear &&
                           gradient.style != OfficeGradientStyle::axial;
    if (hasCentre) {
        attributes += draw("cx", percentText(gradient.xOffset));
        attributes += draw("cy", percentText(gradient.yOffset));
    }
    if (gradient.style != OfficeGradientStyle::radial) {
        attributes += draw("angle", angleText(gradient.angle));
    }
    return attributes + draw("border", percentText(gradient.border));
}

std::string stopsOf(Prefixes& prefixes, const OfficeGradient& gradient) {
    constexpr int kDigits = 4;
    std::string stops;
    for (const mapping::OfficeColorStop& each : gradient.stops) {
        stops +=
            text("<", prefixes.name(kExtension, "gradient-stop"),
                 attribute(prefixes.name(kSvg, "offset"), decimalText(each.place, kDigits)),
                 attribute(prefixes.name(kExtension, "color-type"), "rgb"),
                 attribute(prefixes.name(kExtension, "color-value"), colorText(each.color)), "/>");
    }
    return stops;
}

/// The transparency of a grey: what is read back is the same one.
std::string opacityOf(std::int32_t grey) {
    constexpr std::int32_t kLargest = 255;
    constexpr std::int32_t kPercent = 100;
    const std::int32_t part = grey & 0xFF;
    return percentText(kPercent - (part * kPercent + kLargest - 1) / kLargest);
}

}  // namespace

// Definitions

template <class IsSame>
std::optional<std::string> Definitions::known(NameId kind, const IsSame& isSame) const {
    for (const auto& [identifier, place] : styles_.definitions(kind)) {
        if (isSame(place)) return identifier;
    }
    return {};
}

std::string Definitions::freeName(std::string_view kind) const {
    std::string name;
    for (int number = 1;; ++number) {
        name = text("Huebrush ", kind, " ", number);
        const std::string identifier = identifierOf(name);
        if (!styles_.isTaken(identifier) && !taken_.contains(identifier)) return name;
    }
}

std::string Definitions::add(Prefixes& prefixes, std::string_view element, std::string_view name,
                             const std::string& attributes, const std::string& content) {
    std::string identifier = identifierOf(name);
    taken_.insert(identifier);
    std::string names = attribute(prefixes.name(kDraw, "name"), identifier);
    if (identifier != name) names += attribute(prefixes.name(kDraw, "display-name"), name);
    const std::string written = prefixes.name(kDraw, element);
    elements_ += text("<", written, prefixes.declarations(), names, attributes);
    elements_ += content.empty() ? "/>" : text(">", content, "</", written, ">");
    return identifier;
}

std::string Definitions::gradient(const OfficeGradient& gradient) {
    if (const auto same = known(
            kGradient, [&](const Place& place) { return reader_.gradientOf(place) == gradient; })) {
        return *same;
    }
    Prefixes prefixes(styles_.commonStyles());
    const auto draw = [&](std::string_view local, std::string_view value) {
        return attribute(prefixes.name(kDraw, local), value);
    };
    const std::string shape = shapeOf(prefixes, gradient);
    const std::string colors = text(draw("start-color", colorText(gradient.startColor)),
                                    draw("end-color", colorText(gradient.endColor)),
                                    draw("start-intensity", percentText(gradient.startIntensity)),
                                    draw("end-intensity", percentText(gradient.endIntensity)));
    const std::string stops = stopsOf(prefixes, gradient);
    const std::string attributes = shape + colors;
    std::string& identifier = added_[attributes + stops];
    if (identifier.empty())
        identifier = add(prefixes, "gradient", freeName("gradient"), attributes, stops);
    return identifier;
}

std::string Definitions::transparence(const OfficeGradient& gradient) {
    if (const auto same = known(kOpacity, [&](const Place& place) {
            return reader_.transparenceOf(place) == gradient;
        })) {
        return *same;
    }
    Prefixes prefixes(styles_.commonStyles());
    const std::string shape = shapeOf(prefixes, gradient);
    const std::string attributes =
        text(shape, attribute(prefixes.name(kDraw, "start"), opacityOf(gradient.startColor)),
             attribute(prefixes.name(kDraw, "end"), opacityOf(gradient.endColor)));
    std::string& identifier = added_[text("opacity", attributes)];
    if (identifier.empty())
        identifier = add(prefixes, "opacity", freeName("transparency"), attributes, {});
    return identifier;
}

std::string Definitions::hatch(const mapping::OfficeHatch& hatch) {
    if (const auto same = known(
            kHatch, [&](const Place& place) { return FillReader::hatchOf(place) == hatch; })) {
        return *same;
    }
    Prefixes prefixes(styles_.commonStyles());
    const std::string attributes =
        text(attribute(prefixes.name(kDraw, "style"), nameOf(hatch.style)),
             attribute(prefixes.name(kDraw, "color"), colorText(hatch.color)),
             attribute(prefixes.name(kDraw, "distance"), lengthText(hatch.distance)),
             attribute(prefixes.name(kDraw, "rotation"), text(hatch.angle)));
    std::string& identifier = added_[text("hatch", attributes)];
    if (identifier.empty()) identifier = add(prefixes, "hatch", freeName("hatch"), attributes, {});
    return identifier;
}

std::string Definitions::image(const std::string& name, const std::string& bytes) {
    const auto hasName = [&](const Place& place) {
        const auto shown = place.attribute(kDraw, "display-name");
        const auto identifier = place.attribute(kDraw, "name").value_or("");
        return (shown ? *shown : odf::nameOf(identifier)) == name;
    };
    if (const auto same = known(kFillImage, hasName)) return *same;
    std::string& identifier = added_[text("image", name)];
    if (identifier.empty() && !bytes.empty()) {
        const NewPictures::Element element = pictures_.add(name, bytes);
        Prefixes prefixes(styles_.commonStyles());
        identifier = add(prefixes, "fill-image", name, element.attributes, element.content);
    }
    return identifier;
}

void Definitions::finish(Splices& common) const {
    if (elements_.empty()) return;
    const Place place = styles_.commonStyles();
    insertFirst(*place.outline, common, place.element, elements_);
}

// Styles

namespace {

std::optional<std::string> memoryOf(const mapping::FillTarget& target) {
    if (!target.remembered) return {};
    return toText(*target.remembered);
}

/// The same only for the same looks.
std::string keyOf(const StyleChanges::Look& look) {
    const auto colorOf = [](const auto& color) { return color ? colorText(*color) : ""; };
    if (!look.fill) return colorOf(look.lineColor);
    return text(colorOf(look.lineColor), ";", toText(look.fill->office), ";",
                memoryOf(*look.fill).value_or(""));
}

}  // namespace

Changes StyleChanges::bodyOf(const OfficeFill& wanted, const std::string& picture) {
    std::map<std::pair<NamespaceId, std::string>, std::optional<std::string>> values;
    for (const auto& [space, local] : kOfBodies) values[{space, local}] = std::nullopt;
    const auto set = [&](std::string_view local, std::string value) {
        values[{kDraw, std::string(local)}] = std::move(value);
    };
    if (wanted.style != OfficeFillStyle::solid && wanted.style != OfficeFillStyle::none &&
        !styles_.commonStyles()) {
        throw DocumentError("has no common styles, and so no place for this fill");
    }
    set("fill", std::string(nameOf(wanted.style)));
    switch (wanted.style) {
        case OfficeFillStyle::none:
        case OfficeFillStyle::solid:
            set("fill-color", colorText(wanted.color));
            break;
        case OfficeFillStyle::gradient:
            set("fill-gradient-name", definitions_.gradient(wanted.gradient));
            set("gradient-step-count", text(wanted.gradient.stepCount));
            break;
        case OfficeFillStyle::hatch:
            set("fill-hatch-name", definitions_.hatch(wanted.hatch));
            set("fill-hatch-solid", wanted.background ? "true" : "false");
            if (wanted.background) set("fill-color", colorText(wanted.color));
            break;
        case OfficeFillStyle::bitmap:
            set("fill-image-name", definitions_.image(wanted.bitmapName, picture));
            values[{kStyleSpace, "repeat"}] = nameOf(wanted.bitmapMode);
            break;
    }
    Changes changes;
    for (auto& [name, value] : values) changes.push_back({name.first, name.second, value});
    return changes;
}

Changes StyleChanges::changesTo(const OfficeFill& now, const OfficeFill& wanted,
                                const std::string& picture) {
    Changes changes;
    if (!isSameBody(now, wanted)) changes = bodyOf(wanted, picture);
    constexpr std::int32_t kPercent = 100;
    if (wanted.transparenceGradient) {
        if (wanted.transparenceGradient == now.transparenceGradient) return changes;
        changes.push_back(
            {kDraw, "opacity-name", definitions_.transparence(*wanted.transparenceGradient)});
        return changes;
    }
    // An empty name counts before that of a style behind this one.
    if (now.transparenceGradient) changes.push_back({kDraw, "opacity-name", std::string()});
    if (now.transparenceGradient || now.transparence != wanted.transparence) {
        changes.push_back({kDraw, "opacity", percentText(kPercent - wanted.transparence)});
    }
    return changes;
}

std::string StyleChanges::freeName(const std::string& name) {
    std::string free;
    for (int number = 1;; ++number) {
        free = text(name.empty() ? "gr" : name, "hb", number);
        if (!styles_.isTaken(free) && taken_.insert(free).second) return free;
    }
}

std::string StyleChanges::graphicStyle(const std::string& name, const Changes& changes) {
    std::string made = freeName(name);
    if (const Place former = styles_.graphicStyle(name)) {
        elements_ += copyOf(former, made, kGraphicProperties, changes);
        return made;
    }
    const Place at = styles_.automaticStyles() ? styles_.automaticStyles() : styles_.root();
    Prefixes prefixes(at);
    const std::string written = prefixes.name(kStyleSpace, "style");
    std::string attributes = attribute(prefixes.name(kStyleSpace, "name"), made) +
                             attribute(prefixes.name(kStyleSpace, "family"), "graphic");
    if (!name.empty()) {
        attributes += attribute(prefixes.name(kStyleSpace, "parent-style-name"), name);
    }
    elements_ += text("<", written, prefixes.declarations(), attributes, ">",
                      propertiesElement(at, kStyleSpace, changes), "</", written, ">");
    return made;
}

std::string StyleChanges::textStyle(const std::string& name, const Changes& changes) {
    const Place text = styles_.textStyle(name);
    if (!text || !text.child(kTextGraphicProperties) || changes.empty()) return name;
    std::string made = freeName(name);
    elements_ += copyOf(text, made, kTextGraphicProperties, changes);
    return made;
}

StyleNames StyleChanges::newStyles(const StyleNames& names, const OfficeFill& now,
                                   const Look& wanted) {
    Changes changes;
    StyleNames made = names;
    if (wanted.fill) {
        changes = changesTo(now, wanted.fill->office, wanted.picture);
        made.text = textStyle(names.text, changes);
        changes.push_back({kMemory, "fill", memoryOf(*wanted.fill)});
    }
    if (wanted.lineColor) {
        changes.push_back({kSvg, "stroke-color", colorText(*wanted.lineColor)});
    }
    made.graphic = graphicStyle(names.graphic, changes);
    return made;
}

StyleNames StyleChanges::with(const StyleNames& names, const OfficeFill& now, const Look& wanted) {
    StyleNames& made = made_[{names, keyOf(wanted)}];
    if (made.graphic.empty()) made = newStyles(names, now, wanted);
    return made;
}

void StyleChanges::finish(const Outline& content, Splices& splices) const {
    if (elements_.empty()) return;
    if (const Place place = styles_.automaticStyles()) {
        insertLast(content, splices, place.element, elements_);
        return;
    }
    const ElementId body = content.child(Outline::root(), kBody);
    const std::string name =
        withPrefix(prefixOf(content.writtenName(Outline::root())), "automatic-styles");
    splices.insert(content.rangeOf(body).begin, text("<", name, ">", elements_, "</", name, ">"));
}

}  // namespace huebrush::documents::odf
