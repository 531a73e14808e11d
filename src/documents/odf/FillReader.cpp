// SPDX-License-Identifier: MPL-2.0

#include "documents/odf/FillReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "documents/odf/Values.h"

namespace huebrush::documents::odf {

using mapping::OfficeBitmapMode;
using mapping::OfficeFill;
using mapping::OfficeFillStyle;
using mapping::OfficeGradient;
using mapping::OfficeGradientStyle;

namespace {

// What the office takes where nothing says otherwise.
constexpr std::int32_t kDefaultFillColor = 0x729FCF;
constexpr std::int32_t kDefaultLineColor = 0x3465A4;
constexpr std::int32_t kWhite = 0xFFFFFF;
constexpr std::int32_t kLargestPercent = 100;

template <class Value, std::size_t count>
std::optional<Value> valueNamed(const std::pair<std::string_view, Value> (&names)[count],
                                std::string_view name) {
    for (const auto& [known, value] : names) {
        if (known == name) return value;
    }
    return {};
}

std::optional<OfficeFillStyle> styleNamed(std::string_view name) {
    static constexpr std::pair<std::string_view, OfficeFillStyle> kNames[] = {
        {"none", OfficeFillStyle::none},
        {"solid", OfficeFillStyle::solid},
        {"gradient", OfficeFillStyle::gradient},
        {"hatch", OfficeFillStyle::hatch},
        {"bitmap", OfficeFillStyle::bitmap}};
    return valueNamed(kNames, name);
}

std::optional<OfficeGradientStyle> gradientStyleNamed(std::string_view name) {
    static constexpr std::pair<std::string_view, OfficeGradientStyle> kNames[] = {
        {"linear", OfficeGradientStyle::linear}, {"axial", OfficeGradientStyle::axial},
        {"radial", OfficeGradientStyle::radial}, {"ellipsoid", OfficeGradientStyle::elliptical},
        {"square", OfficeGradientStyle::square}, {"rectangular", OfficeGradientStyle::rect}};
    return valueNamed(kNames, name);
}

std::optional<mapping::OfficeHatchStyle> hatchStyleNamed(std::string_view name) {
    static constexpr std::pair<std::string_view, mapping::OfficeHatchStyle> kNames[] = {
        {"single", mapping::OfficeHatchStyle::one},
        {"double", mapping::OfficeHatchStyle::two},
        {"triple", mapping::OfficeHatchStyle::three}};
    return valueNamed(kNames, name);
}

std::optional<OfficeBitmapMode> modeNamed(std::string_view name) {
    static constexpr std::pair<std::string_view, OfficeBitmapMode> kNames[] = {
        {"repeat", OfficeBitmapMode::repeat},
        {"stretch", OfficeBitmapMode::stretch},
        {"no-repeat", OfficeBitmapMode::none}};
    return valueNamed(kNames, name);
}

std::optional<bool> truthOf(std::string_view text) {
    static constexpr std::pair<std::string_view, bool> kNames[] = {{"true", true},
                                                                   {"false", false}};
    return valueNamed(kNames, text);
}

std::optional<std::int32_t> numberOf(std::string_view text) {
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return {};
    return number;
}

std::string textOf(const Place& place, std::string_view local) {
    return place.attribute(kDraw, local).value_or("");
}

/// The colours in their places where the start and end colour alone do not make the gradient.
std::vector<mapping::OfficeColorStop> stopsOf(const Place& definition,
                                              const OfficeGradient& gradient) {
    constexpr double kLastPlace = 10000;
    std::vector<mapping::OfficeColorStop> stops;
    const Outline& outline = *definition.outline;
    for (ElementId each = outline.firstChild(definition.element); each != kNoElement;
         each = outline.nextSibling(each)) {
        if (outline.nameOf(each) != kGradientStop) continue;
        const auto offset = outline.attribute(each, kSvg, "offset").value_or("0");
        double place = 0;
        std::from_chars(offset.data(), offset.data() + offset.size(), place);
        const auto color = outline.attribute(each, kExtension, "color-value").value_or("");
        stops.push_back(
            {static_cast<std::int32_t>(std::lround(std::clamp(place, 0.0, 1.0) * kLastPlace)),
             colorOf(color).value_or(0)});
    }
    const bool isMadeByEnds =
        stops.size() == 2 && stops.front() == mapping::OfficeColorStop{0, gradient.startColor} &&
        stops.back() ==
            mapping::OfficeColorStop{static_cast<std::int32_t>(kLastPlace), gradient.endColor};
    if (stops.size() < 2 || isMadeByEnds) stops.clear();
    return stops;
}

}  // namespace

Line lineOf(const Properties& properties) {
    return {properties.text(kDraw, "stroke").value_or("solid") != "none",
            properties.value(kSvg, "stroke-color", colorOf).value_or(kDefaultLineColor)};
}

OfficeGradient FillReader::shapeOf(const Place& definition) const {
    constexpr int kTenths = 10;
    OfficeGradient gradient;
    gradient.style = gradientStyleNamed(textOf(definition, "style")).value_or(gradient.style);
    gradient.xOffset = percentOf(textOf(definition, "cx")).value_or(0);
    gradient.yOffset = percentOf(textOf(definition, "cy")).value_or(0);
    gradient.border = percentOf(textOf(definition, "border")).value_or(0);
    gradient.angle = angleOf(textOf(definition, "angle"), hasOldAngles_ ? 1 : kTenths).value_or(0);
    return gradient;
}

OfficeGradient FillReader::gradientOf(const Place& definition) const {
    OfficeGradient gradient = shapeOf(definition);
    gradient.startColor = colorOf(textOf(definition, "start-color")).value_or(0);
    gradient.endColor = colorOf(textOf(definition, "end-color")).value_or(kWhite);
    gradient.startIntensity =
        percentOf(textOf(definition, "start-intensity")).value_or(kLargestPercent);
    gradient.endIntensity =
        percentOf(textOf(definition, "end-intensity")).value_or(kLargestPercent);
    gradient.stops = stopsOf(definition, gradient);
    return gradient;
}

OfficeGradient FillReader::transparenceOf(const Place& definition) const {
    const auto greyOf = [&](std::string_view local) {
        constexpr std::int32_t kLargest = 255;
        constexpr std::int32_t kGrey = 0x010101;
        const std::int32_t opacity = std::clamp(
            percentOf(textOf(definition, local)).value_or(kLargestPercent), 0, kLargestPercent);
        return (kLargestPercent - opacity) * kLargest / kLargestPercent * kGrey;
    };
    OfficeGradient gradient = shapeOf(definition);
    gradient.startColor = greyOf("start");
    gradient.endColor = greyOf("end");
    return gradient;
}

mapping::OfficeHatch FillReader::hatchOf(const Place& definition) {
    mapping::OfficeHatch hatch;
    hatch.style = hatchStyleNamed(textOf(definition, "style")).value_or(hatch.style);
    hatch.color = colorOf(textOf(definition, "color")).value_or(0);
    hatch.distance = lengthOf(textOf(definition, "distance")).value_or(0);
    hatch.angle = angleOf(textOf(definition, "rotation"), 1).value_or(0);
    return hatch;
}

OfficeFill FillReader::officeFillOf(const Properties& properties) const {
    OfficeFill fill;
    fill.style = properties.value(kDraw, "fill", styleNamed).value_or(OfficeFillStyle::solid);
    const auto named = [&](NameId kind, std::string_view local) {
        return styles_.definition(kind, properties.text(kDraw, local).value_or(""));
    };
    const auto readColor = [&] {
        fill.color = properties.value(kDraw, "fill-color", colorOf).value_or(kDefaultFillColor);
    };
    switch (fill.style) {
        case OfficeFillStyle::none:
        case OfficeFillStyle::solid:
            readColor();
            break;
        case OfficeFillStyle::gradient:
            if (const Place definition = named(kGradient, "fill-gradient-name")) {
                fill.gradient = gradientOf(definition);
            }
            fill.gradient.stepCount =
                properties.value(kDraw, "gradient-step-count", numberOf).value_or(0);
            break;
        case OfficeFillStyle::hatch:
            if (const Place definition = named(kHatch, "fill-hatch-name")) {
                fill.hatch = hatchOf(definition);
            }
            fill.background = properties.value(kDraw, "fill-hatch-solid", truthOf).value_or(false);
            if (fill.background) readColor();
            break;
        case OfficeFillStyle::bitmap: {
            const std::string identifier = properties.text(kDraw, "fill-image-name").value_or("");
            const Place definition = styles_.definition(kFillImage, identifier);
            fill.bitmapName = nameOf(identifier);
            if (definition) {
                fill.bitmapName = definition.attribute(kDraw, "display-name")
                                      .value_or(std::move(fill.bitmapName));
            }
            fill.bitmapMode = properties.value(kStyleSpace, "repeat", modeNamed)
                                  .value_or(OfficeBitmapMode::repeat);
            break;
        }
    }
    if (const Place definition = named(kOpacity, "opacity-name")) {
        fill.transparenceGradient = transparenceOf(definition);
    }
    const std::int32_t opacity =
        properties.value(kDraw, "opacity", percentOf).value_or(kLargestPercent);
    fill.transparence = kLargestPercent - std::clamp(opacity, 0, kLargestPercent);
    return fill;
}

std::optional<mapping::OwnPicture> FillReader::pictureOf(const Properties& properties,
                                                         const OfficeFill& fill) {
    if (fill.style != OfficeFillStyle::bitmap) return {};
    if (auto own = mapping::ownPictureNamed(fill.bitmapName)) return own;
    if (fill.bitmapMode != OfficeBitmapMode::repeat) return {};
    const std::string identifier = properties.text(kDraw, "fill-image-name").value_or("");
    const auto known = recognised_.find(identifier);
    if (known != recognised_.end()) return known->second;
    const Place definition = styles_.definition(kFillImage, identifier);
    return recognised_[identifier] = definition ? pictures_.recognise(definition) : std::nullopt;
}

mapping::KnownFill FillReader::fillOf(const Properties& properties) {
    const OfficeFill office = officeFillOf(properties);
    std::optional<mapping::RememberedFill> remembered;
    if (const auto memory = properties.text(kMemory, "fill")) {
        remembered = mapping::rememberedFillOf(*memory);
    }
    return mapping::knownFillOf(office, pictureOf(properties, office), remembered);
}

}  // namespace huebrush::documents::odf
