// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <string>

#include "fill/FillProperties.h"

namespace huebrush::recolor {

/// A fill in the user's words: "#FFFFFF, průhlednost 18 %", "přechod #C00000 až #FFFFFF".
std::string wordsOf(const fill::FillProperties& fill);

/// "1 objekt", "3 objekty", "12 objektů".
std::string objectsText(std::size_t count);

}  // namespace huebrush::recolor
