// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace huebrush::mapping {

/// A fill in the office's terms: the properties that its drawing shapes have. Colours are 0xRRGGBB,
/// angles 1/10 degree, transparence and offsets per cent, distances 1/100 mm; the enumerations have
/// the office's values.

enum class OfficeFillStyle : std::int32_t { none, solid, gradient, hatch, bitmap };

enum class OfficeGradientStyle : std::int32_t { linear, axial, radial, elliptical, square, rect };

/// A colour of a gradient, and its place from the start (0) to the end (10000).
struct OfficeColorStop {
    std::int32_t place = 0;
    std::int32_t color = 0;

    friend bool operator==(const OfficeColorStop&, const OfficeColorStop&) = default;
};

struct OfficeGradient {
    OfficeGradientStyle style = OfficeGradientStyle::linear;
    std::int32_t startColor = 0;
    std::int32_t endColor = 0xFFFFFF;
    std::int32_t angle = 0;
    std::int32_t border = 0;
    std::int32_t xOffset = 50;
    std::int32_t yOffset = 50;
    std::int32_t startIntensity = 100;
    std::int32_t endIntensity = 100;
    std::int32_t stepCount = 0;
    /// All of its colours in their order where the start and end colour alone do not make it; else
    /// empty. Only newer offices have such gradients.
    std::vector<OfficeColorStop> stops = {};

    friend bool operator==(const OfficeGradient&, const OfficeGradient&) = default;
};

enum class OfficeHatchStyle : std::int32_t { one, two, three };

struct OfficeHatch {
    OfficeHatchStyle style = OfficeHatchStyle::one;
    std::int32_t color = 0;
    std::int32_t distance = 0;
    std::int32_t angle = 0;

    friend bool operator==(const OfficeHatch&, const OfficeHatch&) = default;
};

enum class OfficeBitmapMode : std::int32_t { repeat, stretch, none };

struct OfficeFill {
    OfficeFillStyle style = OfficeFillStyle::none;
    std::int32_t color = 0xFFFFFF;
    std::int32_t transparence = 0;
    /// In force instead of `transparence`: grey from opaque (black) to clear (white).
    std::optional<OfficeGradient> transparenceGradient;
    OfficeGradient gradient;
    OfficeHatch hatch;
    /// Whether a hatch has `color` behind it.
    bool background = false;
    /// The name under which the document's table of bitmaps has the picture.
    std::string bitmapName;
    OfficeBitmapMode bitmapMode = OfficeBitmapMode::repeat;
};

/// Whether both paint the same way. What the style does not use is not looked at: the office keeps
/// leftovers there, and drops some of them on saving.
bool isSameOfficeFill(const OfficeFill& a, const OfficeFill& b);
/// The same, whatever their transparency.
bool isSameBody(const OfficeFill& a, const OfficeFill& b);

/// One line of text without ';', and back; nothing when the text is not one of these.
std::string toText(const OfficeFill& fill);
std::optional<OfficeFill> officeFillOf(const std::string& text);

}  // namespace huebrush::mapping
