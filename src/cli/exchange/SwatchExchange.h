// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "cli/exchange/Exchange.h"

namespace huebrush::cli {

/// Adobe Swatch Exchange files (.ase): blocks of big-endian numbers. Each group of swatches is a
/// palette of its own; those outside of groups are one without a name. Colours of the models CMYK
/// and Lab are approximated, as no colour profile says what they look like: CMYK by (1 - C)(1 - K)
/// and so on, Lab with the white D50 as the nearest colour of sRGB.
ReadColors readSwatchExchange(std::string_view bytes);
/// One group, of colours of the model RGB.
std::string writeSwatchExchange(const ColorPalette& palette);

}  // namespace huebrush::cli
