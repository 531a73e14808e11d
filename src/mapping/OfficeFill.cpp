// SPDX-License-Identifier: MPL-2.0

#include "mapping/OfficeFill.h"

#include "mapping/Fields.h"

namespace huebrush::mapping {

namespace {

/// Whether a gradient of this style has a centre that can be moved.
bool hasCentre(OfficeGradientStyle style) {
    return style != OfficeGradientStyle::linear && style != OfficeGradientStyle::axial;
}

bool isSameGradient(OfficeGradient a, OfficeGradient b) {
    if (!hasCentre(a.style)) a.xOffset = a.yOffset = 0;
    if (!hasCentre(b.style)) b.xOffset = b.yOffset = 0;
    // Saving an automatic step count gives back any of its two spellings.
    if (a.stepCount == 0) a.stepCount = b.stepCount;
    if (b.stepCount == 0) b.stepCount = a.stepCount;
    return a == b;
}

bool isSameTransparence(const OfficeFill& a, const OfficeFill& b) {
    if (a.transparenceGradient && b.transparenceGradient) {
        return isSameGradient(*a.transparenceGradient, *b.transparenceGradient);
    }
    return !a.transparenceGradient && !b.transparenceGradient && a.transparence == b.transparence;
}

constexpr std::int32_t kGradientStyleCount = 6;

/// A gradient with stops has another number for its style, and the stops at its end. So one without
/// has the text that it had before there were stops.
void addGradient(FieldWriter& fields, const OfficeGradient& gradient) {
    const bool hasStops = !gradient.stops.empty();
    fields.add(static_cast<std::int32_t>(gradient.style) + (hasStops ? kGradientStyleCount : 0));
    fields.add(gradient.startColor);
    fields.add(gradient.endColor);
    fields.add(gradient.angle);
    fields.add(gradient.border);
    fields.add(gradient.xOffset);
    fields.add(gradient.yOffset);
    fields.add(gradient.startIntensity);
    fields.add(gradient.endIntensity);
    fields.add(gradient.stepCount);
    if (!hasStops) return;
    fields.add(static_cast<std::int32_t>(gradient.stops.size()));
    for (const OfficeColorStop& stop : gradient.stops) {
        fields.add(stop.place);
        fields.add(stop.color);
    }
}

bool readStops(FieldReader& fields, std::vector<OfficeColorStop>& stops) {
    std::int32_t count = 0;
    if (!fields.read(count) || count < 1) return false;
    for (; count > 0; --count) {
        OfficeColorStop& stop = stops.emplace_back();
        if (!fields.read(stop.place) || !fields.read(stop.color)) return false;
    }
    return true;
}

bool readGradient(FieldReader& fields, OfficeGradient& gradient) {
    std::int32_t style = 0;
    const bool complete = fields.readEnumeration(style, 0, 2 * kGradientStyleCount - 1) &&
                          fields.read(gradient.startColor) && fields.read(gradient.endColor) &&
                          fields.read(gradient.angle) && fields.read(gradient.border) &&
                          fields.read(gradient.xOffset) && fields.read(gradient.yOffset) &&
                          fields.read(gradient.startIntensity) &&
                          fields.read(gradient.endIntensity) && fields.read(gradient.stepCount);
    if (!complete) return false;
    gradient.style = static_cast<OfficeGradientStyle>(style % kGradientStyleCount);
    return style < kGradientStyleCount || readStops(fields, gradient.stops);
}

bool readHatch(FieldReader& fields, OfficeHatch& hatch) {
    return fields.readEnumeration(hatch.style, 0, 2) && fields.read(hatch.color) &&
           fields.read(hatch.distance) && fields.read(hatch.angle);
}

bool readBody(FieldReader& fields, OfficeFill& fill) {
    switch (fill.style) {
        case OfficeFillStyle::gradient:
            return readGradient(fields, fill.gradient);
        case OfficeFillStyle::hatch:
            return readHatch(fields, fill.hatch) && fields.readEnumeration(fill.background, 0, 1);
        case OfficeFillStyle::bitmap:
            return fields.read(fill.bitmapName) && fields.readEnumeration(fill.bitmapMode, 0, 2);
        default:
            return true;
    }
}

}  // namespace

bool isSameOfficeFill(const OfficeFill& a, const OfficeFill& b) {
    return isSameTransparence(a, b) && isSameBody(a, b);
}

bool isSameBody(const OfficeFill& a, const OfficeFill& b) {
    if (a.style != b.style) return false;
    switch (a.style) {
        case OfficeFillStyle::none:
        case OfficeFillStyle::solid:
            return a.color == b.color;
        case OfficeFillStyle::gradient:
            return isSameGradient(a.gradient, b.gradient);
        case OfficeFillStyle::hatch:
            return a.hatch == b.hatch && a.background == b.background &&
                   (!a.background || a.color == b.color);
        case OfficeFillStyle::bitmap:
            return a.bitmapName == b.bitmapName && a.bitmapMode == b.bitmapMode;
    }
    return false;
}

std::string toText(const OfficeFill& fill) {
    FieldWriter fields;
    fields.add(static_cast<std::int32_t>(fill.style));
    fields.add(fill.color);
    fields.add(fill.transparence);
    fields.add(fill.transparenceGradient ? 1 : 0);
    if (fill.transparenceGradient) addGradient(fields, *fill.transparenceGradient);
    switch (fill.style) {
        case OfficeFillStyle::gradient:
            addGradient(fields, fill.gradient);
            break;
        case OfficeFillStyle::hatch:
            fields.add(static_cast<std::int32_t>(fill.hatch.style));
            fields.add(fill.hatch.color);
            fields.add(fill.hatch.distance);
            fields.add(fill.hatch.angle);
            fields.add(fill.background ? 1 : 0);
            break;
        case OfficeFillStyle::bitmap:
            fields.add(fill.bitmapName);
            fields.add(static_cast<std::int32_t>(fill.bitmapMode));
            break;
        default:
            break;
    }
    return fields.text();
}

std::optional<OfficeFill> officeFillOf(const std::string& text) {
    FieldReader fields(text);
    OfficeFill fill;
    bool clearing = false;
    if (!fields.readEnumeration(fill.style, 0, 4) || !fields.read(fill.color) ||
        !fields.read(fill.transparence) || !fields.readEnumeration(clearing, 0, 1)) {
        return {};
    }
    if (clearing && !readGradient(fields, fill.transparenceGradient.emplace())) return {};
    if (!readBody(fields, fill) || !fields.atEnd()) return {};
    return fill;
}

}  // namespace huebrush::mapping
