// SPDX-License-Identifier: MPL-2.0

#include "view/Theme.h"

#include <cmath>

#include "base/Color.h"

namespace huebrush::view {

namespace {

constexpr unsigned kSystemColourBit = 0x80000000U;

std::int32_t channel(std::int32_t colour, int shift) {
    return static_cast<std::int32_t>((static_cast<std::uint32_t>(colour) >> shift) & 0xFFU);
}

bool isDark(std::int32_t colour) {
    constexpr std::int32_t kHalf = 3 * 128;
    return channel(colour, 0) + channel(colour, 8) + channel(colour, 16) < kHalf;
}

}  // namespace

std::int32_t mixed(std::int32_t first, std::int32_t second, double share) {
    std::int32_t result = 0;
    for (const int shift : {16, 8, 0}) {
        const double from = channel(first, shift);
        result = result * 0x100 + static_cast<std::int32_t>(
                                      std::lround(from + (channel(second, shift) - from) * share));
    }
    return result;
}

std::int32_t Theme::colour(unsigned number) const {
    if ((number & kSystemColourBit) == 0)
        return base::swapRedAndBlue(static_cast<base::Rgb>(number));
    switch (number) {
        case forms::SystemColor::kWindowBackground:
            return field;
        case forms::SystemColor::kHighlight:
            return highlight;
        case forms::SystemColor::kHighlightText:
            return highlightText;
        case forms::SystemColor::kApplicationWorkspace:
            return workspace;
        case forms::SystemColor::kButtonShadow:
            return shadow;
        case forms::SystemColor::kButtonText:
            return buttonText;
        case forms::SystemColor::kInfoBackground:
            return info;
        default:
            return dialog;
    }
}

std::int32_t Theme::textOn(unsigned background) const {
    if (background == forms::SystemColor::kWindowBackground) return fieldText;
    if (background == forms::SystemColor::kButtonFace) return dialogText;
    return isDark(colour(background)) ? 0xFFFFFF : 0;
}

}  // namespace huebrush::view
