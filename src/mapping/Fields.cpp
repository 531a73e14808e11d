// SPDX-License-Identifier: MPL-2.0

#include "mapping/Fields.h"

#include <array>
#include <charconv>

namespace huebrush::mapping {

namespace {

constexpr char kEscape = '%';
/// Stands for a text without a character, so that every value has at least one.
constexpr std::string_view kEmptyText = "%";

bool isPlain(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '.' || character == '/' ||
           character == '_' || character == '-';
}

template <class Number>
std::string numberText(Number number) {
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
    return {buffer.data(), end};
}

template <class Number>
bool parse(std::string_view text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}

}  // namespace

void FieldWriter::separate() {
    if (!text_.empty()) text_ += ' ';
}

void FieldWriter::add(std::int32_t value) {
    separate();
    text_ += numberText(value);
}

void FieldWriter::add(float value) {
    separate();
    text_ += numberText(value);
}

void FieldWriter::add(std::string_view value) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    separate();
    if (value.empty()) text_ += kEmptyText;
    for (const char character : value) {
        if (isPlain(character)) {
            text_ += character;
        } else {
            const auto byte = static_cast<std::uint8_t>(character);
            text_ += {kEscape, kDigits[byte >> 4U], kDigits[byte & 0xFU]};
        }
    }
}

std::optional<std::string_view> FieldReader::next() {
    if (rest_.empty()) return {};
    const std::size_t end = rest_.find(' ');
    const std::string_view field = rest_.substr(0, end);
    rest_ = end == std::string_view::npos ? std::string_view() : rest_.substr(end + 1);
    if (field.empty()) rest_ = {};
    return field;
}

bool FieldReader::read(std::int32_t& value) {
    const auto field = next();
    return field && parse(*field, value);
}

bool FieldReader::read(float& value) {
    const auto field = next();
    return field && parse(*field, value);
}

bool FieldReader::read(std::string& value) {
    constexpr int kHexadecimal = 16;
    const auto field = next();
    if (!field) return false;
    value.clear();
    if (*field == kEmptyText) return true;
    for (std::size_t at = 0; at < field->size(); ++at) {
        if ((*field)[at] != kEscape) {
            value += (*field)[at];
            continue;
        }
        if (field->size() - at < 3) return false;
        std::uint8_t byte = 0;
        const char* const digits = field->data() + at + 1;
        const auto result = std::from_chars(digits, digits + 2, byte, kHexadecimal);
        if (result.ec != std::errc() || result.ptr != digits + 2) return false;
        value += static_cast<char>(byte);
        at += 2;
    }
    return true;
}

}  // namespace huebrush::mapping
