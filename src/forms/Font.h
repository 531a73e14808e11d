// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

namespace huebrush::forms {

/// A font by name, size in points and weight.
struct Font {
    std::string Name = "Tahoma";
    double Size = 8.25;
    bool Bold = false;

    friend bool operator==(const Font&, const Font&) = default;
};

/// The forms runtime's own colour numbers: an RGB (red in the low byte), or a colour of the user's
/// system with the highest bit set.
namespace SystemColor {
inline constexpr unsigned kWindowBackground = 0x80000005U;
inline constexpr unsigned kApplicationWorkspace = 0x8000000CU;
inline constexpr unsigned kHighlight = 0x8000000DU;
inline constexpr unsigned kHighlightText = 0x8000000EU;
inline constexpr unsigned kButtonFace = 0x8000000FU;
inline constexpr unsigned kButtonShadow = 0x80000010U;
inline constexpr unsigned kButtonText = 0x80000012U;
inline constexpr unsigned kInfoBackground = 0x80000018U;
}  // namespace SystemColor

}  // namespace huebrush::forms
