// SPDX-License-Identifier: MPL-2.0

#include "base/Color.h"

#include <array>
#include <charconv>

namespace huebrush::base {

std::string toHex(Rgb color) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text = "#";
    for (const std::uint8_t part : {red(color), green(color), blue(color)}) {
        text += kDigits[part >> 4U];
        text += kDigits[part & 0xFU];
    }
    return text;
}

std::optional<Rgb> fromHex(std::string_view text) {
    if (text.starts_with('#')) text.remove_prefix(1);
    if (text.size() != 6) return std::nullopt;
    std::uint32_t value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (failure != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return swapRedAndBlue(static_cast<std::int32_t>(value));
}

}  // namespace huebrush::base
