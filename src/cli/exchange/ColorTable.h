// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "cli/exchange/Exchange.h"

namespace huebrush::cli {

/// Colour tables of LibreOffice and OpenOffice (.soc): XML with a `draw:color` for each colour. The
/// palette has no name in the file; the office calls it as the file.
ReadColors readColorTable(std::string_view bytes);
std::string writeColorTable(const ColorPalette& palette);

}  // namespace huebrush::cli
