// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace huebrush::base {

/// All text of the logic is UTF-8; the ports convert at their border.

inline constexpr std::string_view kLineBreak = "\r\n";

namespace detail {
inline void append(std::string& out, std::string_view part) {
    out += part;
}
void appendNumber(std::string& out, std::int64_t number);
template <std::integral Number>
void append(std::string& out, Number number) {
    appendNumber(out, static_cast<std::int64_t>(number));
}
/// A counter type that stands for an integer (Count16).
template <class Counter>
requires(!std::integral<Counter> && std::convertible_to<Counter, std::int16_t> &&
         !std::convertible_to<Counter, std::string_view>) void append(std::string& out,
                                                                      const Counter& counter) {
    appendNumber(out, static_cast<std::int16_t>(counter));
}
}  // namespace detail

/// Joins texts and whole numbers; numbers in plain decimal, without blank or grouping.
template <class... Parts>
std::string text(const Parts&... parts) {
    std::string out;
    (detail::append(out, parts), ...);
    return out;
}

/// The number that the text `value` spells, whatever the locale: a point is the decimal separator,
/// and nothing else may stand in the text. Type mismatch error (13) otherwise.
double toNumber(std::string_view value);

/// As toNumber, rounded to a 32-bit integer (half to even); overflow error (6) beyond its range.
std::int32_t toInteger(std::string_view value);

std::u16string toUtf16(std::string_view utf8);
std::string toUtf8(std::u16string_view utf16);

/// The text with every byte but ASCII letters, digits and those of `plain` written as "%XX": as
/// long as `plain` has no '%', two texts differ exactly when their encoded forms do.
std::string percentEncoded(std::string_view text, std::string_view plain = "-_");

/// The number of UTF-16 units of a text, which is what the forms runtime calls its length.
std::size_t lengthInCharacters(std::string_view utf8);

/// The text with small letters for the capital ones of ASCII, whatever the locale is.
std::string lowerCase(std::string_view text);

}  // namespace huebrush::base
