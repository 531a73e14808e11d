// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <string>

#include "fill/FillProperties.h"

namespace huebrush::cli {

/// A fill in a few words: "#C00000", "#C00000, 50% transparent", "two-colour gradient #… to #…".
std::string describe(const fill::FillProperties& fill);

/// A part of 1 as a percentage, without its sign: two decimals at most, and none where they would
/// be 0.
std::string percentText(float fraction);

/// A text of several lines as one, for a place with room for only one. Every other control
/// character becomes U+FFFD: a terminal might take it for a command.
std::string oneLine(const std::string& text);

/// "1 fill", "2 fills".
std::string countOf(std::size_t count, const char* one, const char* many);

/// A block in the fill's main colour for a terminal; blanks for no fill.
std::string swatch(const fill::FillProperties& fill);

}  // namespace huebrush::cli
