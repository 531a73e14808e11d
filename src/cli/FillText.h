// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "fill/FillProperties.h"

namespace huebrush::cli {

/// A fill in a few words: "#C00000", "#C00000, 50% transparent", "two-colour gradient #… to #…".
std::string describe(const fill::FillProperties& fill);

/// A part of 1 as a percentage, without its sign: two decimals at most, and none where they would
/// be 0.
std::string percentText(float fraction);

/// A text of several lines as one, for a place with room for only one.
std::string oneLine(const std::string& text);

/// A block in the fill's main colour for a terminal; blanks for no fill.
std::string swatch(const fill::FillProperties& fill);

}  // namespace huebrush::cli
