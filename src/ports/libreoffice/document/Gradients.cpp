// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/Gradients.h"

#include <algorithm>
#include <cmath>
#include <com/sun/star/awt/Gradient.hpp>
#include <com/sun/star/uno/Sequence.hxx>
#include <typelib/typedescription.hxx>

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Any;

/// A gradient with stops as newer offices have it, under the names that it has there. The SDK that
/// this is built with may not know it; it is used only where the running office does.
namespace newer {

constexpr char kGradientName[] = "com.sun.star.awt.Gradient2";

struct ColorStop {
    /// From the start (0) to the end (1); and so the parts of the colour from dark to light.
    double place = 0;
    double red = 0;
    double green = 0;
    double blue = 0;
};

struct Gradient : css::awt::Gradient {
    css::uno::Sequence<ColorStop> stops;
};

// The office's templates find a structure's type by functions of this name.
inline const css::uno::Type& cppu_detail_getUnoType(const ColorStop* /*unused*/) {
    static const css::uno::Type kType(css::uno::TypeClass_STRUCT, "com.sun.star.awt.ColorStop");
    return kType;
}

inline const css::uno::Type& cppu_detail_getUnoType(const Gradient* /*unused*/) {
    static const css::uno::Type kType(css::uno::TypeClass_STRUCT, kGradientName);
    return kType;
}

}  // namespace newer

namespace {

constexpr double kLastPlace = 10000;

std::int32_t partOf(double part, int shift) {
    constexpr double kLastPart = 255;
    return static_cast<std::int32_t>(std::lround(std::clamp(part, 0.0, 1.0) * kLastPart)) << shift;
}

double partOf(std::int32_t color, int shift) {
    constexpr double kLastPart = 255;
    return static_cast<double>((color >> shift) & 0xFF) / kLastPart;
}

mapping::OfficeColorStop stopOf(const newer::ColorStop& stop) {
    return {static_cast<std::int32_t>(std::lround(std::clamp(stop.place, 0.0, 1.0) * kLastPlace)),
            partOf(stop.red, 16) | partOf(stop.green, 8) | partOf(stop.blue, 0)};
}

newer::ColorStop stopOf(const mapping::OfficeColorStop& stop) {
    return {static_cast<double>(stop.place) / kLastPlace, partOf(stop.color, 16),
            partOf(stop.color, 8), partOf(stop.color, 0)};
}

mapping::OfficeGradient endsOf(const css::awt::Gradient& gradient) {
    mapping::OfficeGradient result;
    result.style = static_cast<mapping::OfficeGradientStyle>(gradient.Style);
    result.startColor = gradient.StartColor;
    result.endColor = gradient.EndColor;
    result.angle = gradient.Angle;
    result.border = gradient.Border;
    result.xOffset = gradient.XOffset;
    result.yOffset = gradient.YOffset;
    result.startIntensity = gradient.StartIntensity;
    result.endIntensity = gradient.EndIntensity;
    result.stepCount = gradient.StepCount;
    return result;
}

void setEnds(css::awt::Gradient& result, const mapping::OfficeGradient& gradient) {
    const auto small = [](std::int32_t value) { return static_cast<sal_Int16>(value); };
    result.Style = static_cast<css::awt::GradientStyle>(gradient.style);
    result.StartColor = gradient.startColor;
    result.EndColor = gradient.endColor;
    result.Angle = small(gradient.angle);
    result.Border = small(gradient.border);
    result.XOffset = small(gradient.xOffset);
    result.YOffset = small(gradient.yOffset);
    result.StartIntensity = small(gradient.startIntensity);
    result.EndIntensity = small(gradient.endIntensity);
    result.StepCount = small(gradient.stepCount);
}

/// Whether the start and end colour alone make the same gradient.
bool isMadeByEnds(const mapping::OfficeGradient& gradient,
                  const std::vector<mapping::OfficeColorStop>& stops) {
    const mapping::OfficeColorStop start{0, gradient.startColor};
    const mapping::OfficeColorStop end{static_cast<std::int32_t>(kLastPlace), gradient.endColor};
    if (stops.size() == 2) return stops.front() == start && stops.back() == end;
    return stops.empty() || (stops.size() == 1 && start.color == end.color);
}

}  // namespace

mapping::OfficeGradient gradientOf(const Any& value) {
    css::awt::Gradient ends;
    value >>= ends;
    mapping::OfficeGradient gradient = endsOf(ends);
    if (value.getValueTypeName() != newer::kGradientName) return gradient;
    newer::Gradient whole;
    value >>= whole;
    std::vector<mapping::OfficeColorStop> stops;
    for (const newer::ColorStop& stop : std::as_const(whole.stops)) stops.push_back(stopOf(stop));
    if (!isMadeByEnds(gradient, stops)) gradient.stops = std::move(stops);
    return gradient;
}

Any officeValueOf(const mapping::OfficeGradient& gradient) {
    const auto isKnown = [] {
        return css::uno::TypeDescription(rtl::OUString(newer::kGradientName)).is();
    };
    if (gradient.stops.empty() || !isKnown()) {
        css::awt::Gradient ends;
        setEnds(ends, gradient);
        return Any(ends);
    }
    newer::Gradient whole;
    setEnds(whole, gradient);
    whole.stops.realloc(static_cast<sal_Int32>(gradient.stops.size()));
    std::transform(gradient.stops.begin(), gradient.stops.end(), whole.stops.getArray(),
                   [](const mapping::OfficeColorStop& stop) { return stopOf(stop); });
    return Any(whole);
}

bool isSameGradient(const Any& a, const Any& b) {
    if (a == b) return true;
    // The office gives even a gradient of two colours the newer type.
    const mapping::OfficeGradient first = gradientOf(a);
    return first.stops.empty() && first == gradientOf(b);
}

}  // namespace huebrush::libreoffice
