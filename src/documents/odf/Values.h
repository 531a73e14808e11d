// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace huebrush::documents::odf {

// Values of attributes, and back. Nothing for a text that is no such value, and for one that an
// office would not take either.

/// "#rrggbb", as 0xRRGGBB.
std::optional<std::int32_t> colorOf(std::string_view text);
std::string colorText(std::int32_t color);

/// "22%": whole per cents, what is beyond is cut off.
std::optional<std::int32_t> percentOf(std::string_view text);
std::string percentText(std::int32_t percent);

/// A length with a unit, in 1/100 mm.
std::optional<std::int32_t> lengthOf(std::string_view text);
std::string lengthText(std::int32_t length);
/// An angle in 1/10 degree; one without a unit has so many of them for each.
std::optional<std::int32_t> angleOf(std::string_view text, int withoutUnit);
std::string angleText(std::int32_t angle);

/// A number with a point before its last digits.
std::string decimalText(std::int32_t value, int digits);

/// The name that an identifier stands for ("a_20_b" for "a b"), and back.
std::string nameOf(std::string_view identifier);
std::string identifierOf(std::string_view name);

}  // namespace huebrush::documents::odf
