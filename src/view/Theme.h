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

/// How well one colour can be told from another by how light they are: from 1 for equal ones to 21
/// for black on white.
double contrast(std::int32_t first, std::int32_t second);

/// The least contrast of a text with its background.
inline constexpr double kReadable = 4.5;

/// The colour of a text on a background: `wanted` if that can be read there, or else black or
/// white, of which one always can.
std::int32_t readable(std::int32_t wanted, std::int32_t background);
/// The colour of a disabled text: that of an enabled one, faded as far as it can still be read.
std::int32_t disabledText(std::int32_t text, std::int32_t background);

/// How far disabled texts fade into their background at most: a share for `mixed`.
inline constexpr double kFaded = 0.55;

}  // namespace huebrush::view
