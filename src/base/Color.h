// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace huebrush::base {

/// A colour as the object model carries it: 24 bits in a 32-bit integer, red in the low byte.
using Rgb = std::int32_t;

constexpr Rgb rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return static_cast<Rgb>((red & 0xFFU) | ((green & 0xFFU) << 8U) | ((blue & 0xFFU) << 16U));
}

constexpr std::uint8_t red(Rgb color) {
    return static_cast<std::uint8_t>(color & 0xFF);
}
constexpr std::uint8_t green(Rgb color) {
    return static_cast<std::uint8_t>((color >> 8) & 0xFF);
}
constexpr std::uint8_t blue(Rgb color) {
    return static_cast<std::uint8_t>((color >> 16) & 0xFF);
}

/// Exchanges red and blue: between this order and the 0xRRGGBB order of screens and documents.
constexpr std::int32_t swapRedAndBlue(std::int32_t color) {
    return static_cast<std::int32_t>(rgb(blue(color), green(color), red(color)));
}

/// "#RRGGBB", upper case.
std::string toHex(Rgb color);

/// Reads "#RRGGBB" or "RRGGBB" in either case; nothing on any other text.
std::optional<Rgb> fromHex(std::string_view text);

}  // namespace huebrush::base
