// SPDX-License-Identifier: MPL-2.0

#include "view/Theme.h"

#include <algorithm>
#include <cmath>

#include "base/Color.h"

namespace huebrush::view {

namespace {

constexpr unsigned kSystemColourBit = 0x80000000U;

std::int32_t channel(std::int32_t colour, int shift) {
    return static_cast<std::int32_t>((static_cast<std::uint32_t>(colour) >> shift) & 0xFFU);
}

/// The light that a channel of sRGB stands for: 0 to 1.
double lightOf(std::int32_t value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double luminance(std::int32_t colour) {
    return 0.2126 * lightOf(channel(colour, 16)) + 0.7152 * lightOf(channel(colour, 8)) +
           0.0722 * lightOf(channel(colour, 0));
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

double contrast(std::int32_t first, std::int32_t second) {
    constexpr double kStray = 0.05;
    const auto [darker, lighter] = std::minmax({luminance(first), luminance(second)});
    return (lighter + kStray) / (darker + kStray);
}

std::int32_t readable(std::int32_t wanted, std::int32_t background) {
    constexpr std::int32_t kBlack = 0;
    constexpr std::int32_t kWhite = 0xFFFFFF;
    if (contrast(wanted, background) >= kReadable) return wanted;
    return contrast(kBlack, background) > contrast(kWhite, background) ? kBlack : kWhite;
}

std::int32_t disabledText(std::int32_t text, std::int32_t background) {
    constexpr double kStep = 0.01;
    const std::int32_t enabled = readable(text, background);
    for (double share = kFaded; share > 0; share -= kStep) {
        const std::int32_t faded = mixed(enabled, background, share);
        if (contrast(faded, background) >= kReadable) return faded;
    }
    return enabled;
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
    const std::int32_t under = colour(background);
    switch (background) {
        case forms::SystemColor::kWindowBackground:
            return readable(fieldText, under);
        case forms::SystemColor::kButtonFace:
            return readable(dialogText, under);
        case forms::SystemColor::kHighlight:
            return readable(highlightText, under);
        default:
            // The desktop has no text for it.
            return readable(under, under);
    }
}

}  // namespace huebrush::view
