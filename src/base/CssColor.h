// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>
#include <string_view>

#include "base/Color.h"

namespace huebrush::base {

/// The colour with that name in CSS, in either case: one of the 148 of CSS Color Module Level 4,
/// without those that stand for another property's colour, for none, or for a system's. Nothing on
/// any other text.
std::optional<Rgb> fromCssName(std::string_view name);

}  // namespace huebrush::base
