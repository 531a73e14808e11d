// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "cli/exchange/Exchange.h"

namespace huebrush::cli {

/// Palettes of GIMP, Inkscape and Krita (.gpl): text, one colour per line. Lines may end as on any
/// system. Files of before 2004 have no header but the first line. What is not UTF-8 is Latin-1.
ReadColors readGimpPalette(std::string_view bytes);
std::string writeGimpPalette(const ColorPalette& palette);

}  // namespace huebrush::cli
