// SPDX-License-Identifier: MPL-2.0

#include "documents/odf/Values.h"

#include <charconv>
#include <cmath>
#include <numbers>
#include <utility>

#include "base/Text.h"

namespace huebrush::documents::odf {

using base::text;

namespace {

constexpr int kHex = 16;

/// A number at the beginning of a text, which is left with the rest.
std::optional<double> takeNumber(std::string_view& text) {
    while (text.starts_with(' ')) text.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || !std::isfinite(number)) return {};
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

std::optional<std::int32_t> rounded(double value) {
    constexpr double kLargest = 1e9;
    if (std::abs(value) > kLargest) return {};
    return static_cast<std::int32_t>(std::lround(value));
}

bool isPlain(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') || letter == '-' || letter == '.' ||
           static_cast<unsigned char>(letter) >= 0x80;
}

}  // namespace

std::optional<std::int32_t> colorOf(std::string_view text) {
    constexpr std::size_t kDigits = 6;
    if (text.size() != kDigits + 1 || text.front() != '#') return {};
    std::int32_t color = 0;
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data() + 1, end, color, kHex);
    if (error != std::errc() || last != end || color < 0) return {};
    return color;
}

std::string colorText(std::int32_t color) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4) {
        text += kDigits[static_cast<std::size_t>(color >> shift & 0xF)];
    }
    return text;
}

std::optional<std::int32_t> percentOf(std::string_view text) {
    const auto number = takeNumber(text);
    constexpr double kLargest = 1e6;
    if (!number || std::abs(*number) > kLargest || (!text.empty() && text != "%")) return {};
    return static_cast<std::int32_t>(*number);
}

std::string percentText(std::int32_t percent) {
    return text(percent, "%");
}

std::optional<std::int32_t> lengthOf(std::string_view text) {
    constexpr double kInch = 2540;
    static constexpr std::pair<std::string_view, double> kUnits[] = {
        {"in", kInch},      {"cm", 1000},      {"mm", 100},
        {"pt", kInch / 72}, {"pc", kInch / 6}, {"px", kInch / 96}};
    const auto number = takeNumber(text);
    if (!number) return {};
    for (const auto& [unit, size] : kUnits) {
        if (text == unit) return rounded(*number * size);
    }
    return {};
}

std::string lengthText(std::int32_t length) {
    return text(decimalText(length, 2), "mm");
}

std::optional<std::int32_t> angleOf(std::string_view text, int withoutUnit) {
    static constexpr std::pair<std::string_view, double> kUnits[] = {
        {"deg", 10}, {"grad", 9}, {"rad", 1800 / std::numbers::pi}};
    const auto number = takeNumber(text);
    if (!number) return {};
    if (text.empty()) return rounded(*number * withoutUnit);
    for (const auto& [unit, size] : kUnits) {
        if (text == unit) return rounded(*number * size);
    }
    return {};
}

std::string angleText(std::int32_t angle) {
    constexpr int kTenths = 10;
    return text(angle % kTenths == 0 ? std::to_string(angle / kTenths) : decimalText(angle, 1),
                "deg");
}

std::string decimalText(std::int32_t value, int digits) {
    const std::string all = std::to_string(std::abs(value));
    const auto behind = static_cast<std::size_t>(digits);
    std::string padded(all.size() > behind ? 0 : behind + 1 - all.size(), '0');
    padded += all;
    const std::size_t point = padded.size() - behind;
    return text(value < 0 ? "-" : "", padded.substr(0, point), ".", padded.substr(point));
}

std::string nameOf(std::string_view identifier) {
    std::string name;
    for (std::size_t at = 0; at < identifier.size(); ++at) {
        const std::size_t end = identifier.find('_', at + 1);
        unsigned code = 0;
        const char* const first = identifier.data() + at + 1;
        if (identifier[at] == '_' && end != std::string_view::npos && end > at + 1 &&
            std::from_chars(first, identifier.data() + end, code, kHex).ptr ==
                identifier.data() + end &&
            code >= ' ' && code < 0x80) {
            name += static_cast<char>(code);
            at = end;
        } else {
            name += identifier[at];
        }
    }
    return name;
}

std::string identifierOf(std::string_view name) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string identifier;
    for (const char letter : name) {
        const bool isFirst = identifier.empty();
        const bool isDigit = letter >= '0' && letter <= '9';
        const bool mayBegin = !isDigit && letter != '-' && letter != '.';
        if (isPlain(letter) && (!isFirst || mayBegin)) {
            identifier += letter;
            continue;
        }
        const auto code = static_cast<std::size_t>(static_cast<unsigned char>(letter));
        identifier +=
            text("_", std::string(1, kDigits[code >> 4]), std::string(1, kDigits[code & 0xF]), "_");
    }
    return identifier;
}

}  // namespace huebrush::documents::odf
