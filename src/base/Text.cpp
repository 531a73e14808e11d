// SPDX-License-Identifier: MPL-2.0

#include "base/Text.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "base/Error.h"

namespace huebrush::base {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

std::uint8_t byteAt(std::string_view text, std::size_t at) {
    return static_cast<std::uint8_t>(text[at]);
}

std::size_t sequenceLength(std::uint8_t lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    if (lead >= 0xF0 && lead < 0xF5) return 4;
    return 0;
}

/// Decodes the code point at `at` and advances it; a malformed sequence gives U+FFFD and one byte.
char32_t decodeUtf8(std::string_view text, std::size_t& at) {
    const std::uint8_t lead = byteAt(text, at);
    const std::size_t length = sequenceLength(lead);
    if (length == 1) {
        ++at;
        return lead;
    }
    if (length == 0 || at + length > text.size()) {
        ++at;
        return kReplacement;
    }
    auto codePoint = static_cast<char32_t>(lead & (0xFFU >> (length + 1)));
    for (std::size_t i = 1; i < length; ++i) {
        const std::uint8_t next = byteAt(text, at + i);
        if ((next & 0xC0U) != 0x80) {
            ++at;
            return kReplacement;
        }
        codePoint = (codePoint << 6U) | (next & 0x3FU);
    }
    at += length;
    return codePoint;
}

void encodeUtf8(char32_t codePoint, std::string& out) {
    const auto put = [&out](char32_t bits) { out += static_cast<char>(bits); };
    if (codePoint < 0x80) {
        put(codePoint);
    } else if (codePoint < 0x800) {
        put(0xC0U | (codePoint >> 6U));
        put(0x80U | (codePoint & 0x3FU));
    } else if (codePoint < 0x10000) {
        put(0xE0U | (codePoint >> 12U));
        put(0x80U | ((codePoint >> 6U) & 0x3FU));
        put(0x80U | (codePoint & 0x3FU));
    } else {
        put(0xF0U | (codePoint >> 18U));
        put(0x80U | ((codePoint >> 12U) & 0x3FU));
        put(0x80U | ((codePoint >> 6U) & 0x3FU));
        put(0x80U | (codePoint & 0x3FU));
    }
}

bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

[[noreturn]] void throwTypeMismatch(std::string_view value) {
    throw Error(ErrorNumber::kTypeMismatch, text("Typová neshoda: „", value, "“ není číslo."));
}

}  // namespace

void detail::appendNumber(std::string& out, std::int64_t number) {
    char digits[24];
    const auto result = std::to_chars(std::begin(digits), std::end(digits), number);
    out.append(digits, result.ptr);
}

double toNumber(std::string_view value) {
    double number = 0;
    const char* const end = value.data() + value.size();
    const auto result = std::from_chars(value.data(), end, number);
    if (result.ec != std::errc{} || result.ptr != end || !std::isfinite(number)) {
        throwTypeMismatch(value);
    }
    return number;
}

std::int32_t toInteger(std::string_view value) {
    const double rounded = std::nearbyint(toNumber(value));
    if (rounded < std::numeric_limits<std::int32_t>::min() ||
        rounded > std::numeric_limits<std::int32_t>::max()) {
        throwOverflow();
    }
    return static_cast<std::int32_t>(rounded);
}

std::u16string toUtf16(std::string_view utf8) {
    std::u16string out;
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t codePoint = decodeUtf8(utf8, at);
        if (codePoint < 0x10000) {
            out += static_cast<char16_t>(codePoint);
        } else {
            out += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10U));
            out += static_cast<char16_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FFU));
        }
    }
    return out;
}

std::string toUtf8(std::u16string_view utf16) {
    std::string out;
    out.reserve(utf16.size());
    for (std::size_t at = 0; at < utf16.size(); ++at) {
        const char16_t unit = utf16[at];
        if (unit < 0x80) {
            out += static_cast<char>(unit);
        } else if (isHighSurrogate(unit) && at + 1 < utf16.size() &&
                   isLowSurrogate(utf16[at + 1])) {
            const char32_t high = static_cast<char32_t>(unit - 0xD800) << 10U;
            encodeUtf8(0x10000 + high + static_cast<char32_t>(utf16[++at] - 0xDC00), out);
        } else {
            const bool lone = isHighSurrogate(unit) || isLowSurrogate(unit);
            encodeUtf8(lone ? kReplacement : unit, out);
        }
    }
    return out;
}

std::string percentEncoded(std::string_view text, std::string_view plain) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto standsForItself = [plain](char character) {
        return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') ||
               (character >= '0' && character <= '9') ||
               plain.find(character) != std::string_view::npos;
    };
    std::string encoded;
    for (const char character : text) {
        if (standsForItself(character)) {
            encoded += character;
        } else {
            const auto byte = static_cast<unsigned char>(character);
            encoded += {'%', kDigits[byte >> 4U], kDigits[byte & 0xFU]};
        }
    }
    return encoded;
}

std::size_t lengthInCharacters(std::string_view utf8) {
    return toUtf16(utf8).size();
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char& each : lower) {
        if (each >= 'A' && each <= 'Z') each = static_cast<char>(each - 'A' + 'a');
    }
    return lower;
}

}  // namespace huebrush::base
