// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>

#include "forms/Font.h"

namespace huebrush::view {

/// The colours of the user's desktop, as its own dialogs have them: 0xRRGGBB.
struct Theme {
    std::int32_t dialog = 0xF0F0F0;
    std::int32_t dialogText = 0;
    std::int32_t field = 0xFFFFFF;
    std::int32_t fieldText = 0;
    std::int32_t face = 0xE0E0E0;
    std::int32_t buttonText = 0;
    std::int32_t shadow = 0x808080;
    std::int32_t highlight = 0x3584E4;
    std::int32_t highlightText = 0xFFFFFF;
    std::int32_t menu = 0xF0F0F0;
    std::int32_t menuText = 0;
    std::int32_t workspace = 0x808080;
    std::int32_t info = 0xFFFFE1;

    /// The colour with a number of the forms runtime.
    std::int32_t colour(unsigned number) const;
    /// The colour of text on a background with such a number.
    std::int32_t textOn(unsigned background) const;
};

/// The colour between two, the first one at 0 and the second one at 1.
std::int32_t mixed(std::int32_t first, std::int32_t second, double share);

/// How far disabled texts fade into their background: a share for `mixed`.
inline constexpr double kFaded = 0.55;

}  // namespace huebrush::view
