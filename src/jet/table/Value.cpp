// SPDX-License-Identifier: MPL-2.0

#include "jet/table/Value.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/Text.h"
#include "jet/table/Overflow.h"

namespace huebrush::jet {

namespace {

constexpr std::size_t kLeastCompressed = 3;

[[noreturn]] void throwNull() {
    throw Error(base::ErrorNumber::kInvalidUseOfNull, "Neplatné použití prázdné hodnoty (Null).",
                "a value is null that must not be");
}

double numberIn(const std::string& text) {
    try {
        return base::toNumber(text);
    } catch (const base::Error& error) {
        throw Error(error.number(), error.description(),
                    base::text("\"", text, "\" is not a number"));
    }
}

/// What a value is as a number.
double numberOf(const Value& value) {
    if (isNull(value)) throwNull();
    if (const auto* whole = std::get_if<std::int32_t>(&value)) return *whole;
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? -1 : 0;
    if (const auto* number = std::get_if<float>(&value)) return *number;
    if (const auto* number = std::get_if<double>(&value)) return *number;
    if (const auto* money = std::get_if<Money>(&value)) {
        return static_cast<double>(money->tenThousandths) / 10000;
    }
    if (const auto* text = std::get_if<std::string>(&value)) return numberIn(*text);
    throw Error(base::ErrorNumber::kTypeMismatch, "Typová neshoda: hodnota není číslo.",
                "a value is not a number");
}

bool isCompressed(ByteView bytes) {
    return bytes.size() >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE;
}

void appendPlain(std::u16string& out, ByteView bytes) {
    const std::size_t units = bytes.size() / 2;
    const std::size_t before = out.size();
    out.resize(before + units);
    for (std::size_t i = 0; i < units; ++i) {
        out[before + i] = static_cast<char16_t>(bytes[2 * i] | bytes[2 * i + 1] << 8U);
    }
}

/// One byte per character; a 0 byte switches between that and plain text.
std::u16string expand(ByteView bytes) {
    std::u16string out;
    bool single = true;
    while (!bytes.empty()) {
        if (single) {
            const auto end = std::find(bytes.begin(), bytes.end(), 0);
            const auto count = static_cast<std::size_t>(end - bytes.begin());
            out.append(bytes.begin(), end);
            bytes = bytes.subspan(count);
        } else {
            std::size_t count = 0;
            while (count + 1 < bytes.size() && !(bytes[count] == 0 && bytes[count + 1] != 0) &&
                   bytes[count] != 0) {
                count += 2;
            }
            appendPlain(out, bytes.first(count));
            bytes = bytes.subspan(count);
            if (!bytes.empty() && bytes[0] != 0) break;
        }
        if (!bytes.empty()) bytes = bytes.subspan(1);
        single = !single;
    }
    return out;
}

}  // namespace

std::int32_t toLong(const Value& value) {
    const double rounded = std::nearbyint(numberOf(value));
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max())) {
        throwOverflow();
    }
    return static_cast<std::int32_t>(rounded);
}

float toSingle(const Value& value) {
    const double number = numberOf(value);
    if (std::abs(number) > std::numeric_limits<float>::max()) throwOverflow();
    return static_cast<float>(number);
}

std::string toText(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* whole = std::get_if<std::int32_t>(&value)) return base::text(*whole);
    if (isNull(value)) throwNull();
    throw Error(base::ErrorNumber::kTypeMismatch, "Typová neshoda: hodnota není text.",
                "a value is not a text");
}

std::string decodeText(ByteView bytes) {
    if (isCompressed(bytes)) return base::toUtf8(expand(bytes.subspan(2)));
    std::u16string plain;
    appendPlain(plain, bytes);
    return base::toUtf8(plain);
}

Bytes encodeText(const std::string& utf8, bool compressed, std::size_t mostCompressed) {
    const std::u16string text = base::toUtf16(utf8);
    Bytes out;
    const bool small = std::all_of(text.begin(), text.end(),
                                   [](char16_t unit) { return unit >= 1 && unit <= 0xFF; });
    if (compressed && small && text.size() >= kLeastCompressed && text.size() <= mostCompressed) {
        out = {0xFF, 0xFE};
        for (const char16_t unit : text) append8(out, unit);
    } else {
        for (const char16_t unit : text) append16(out, unit);
    }
    return out;
}

}  // namespace huebrush::jet
