// SPDX-License-Identifier: MPL-2.0

#include "protocol/FillJson.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string_view>
#include <type_traits>

#include "base/Color.h"
#include "base/CssColor.h"
#include "base/Text.h"
#include "protocol/JsonNumber.h"

namespace huebrush::protocol {

namespace {

using base::text;
using nlohmann::json;

/// The shortest decimal number that stands for a float, so that 0.2 is not written as
/// 0.20000000298.
double shortest(float value) {
    char digits[64];
    const char* const end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
    double number = 0;
    std::from_chars(digits, end, number);
    return number;
}

template <class Value>
nlohmann::ordered_json valueToJson(const Value& value) {
    if constexpr (std::is_enum_v<Value>) {
        return static_cast<std::int32_t>(value);
    } else if constexpr (std::is_same_v<Value, float>) {
        return shortest(value);
    } else {
        return value;
    }
}

[[noreturn]] void throwWrongType(const char* name, const char* expected) {
    throw ParseError(text("the fill's ", name, " must be ", expected));
}

std::int32_t integerFromJson(const char* name, const json& value) {
    const auto number = int32FromJson(value);
    if (!number) throwWrongType(name, "a 32-bit whole number");
    return *number;
}

template <class Value>
Value valueFromJson(const char* name, const json& value) {
    if constexpr (std::is_same_v<Value, bool>) {
        if (!value.is_boolean()) throwWrongType(name, "true or false");
        return value.get<bool>();
    } else if constexpr (std::is_same_v<Value, std::string>) {
        if (!value.is_string()) throwWrongType(name, "a string");
        return value.get<std::string>();
    } else if constexpr (std::is_same_v<Value, float>) {
        if (!value.is_number()) throwWrongType(name, "a number");
        return static_cast<float>(value.get<double>());
    } else {
        return static_cast<Value>(integerFromJson(name, value));
    }
}

/// Reads the properties that the object has; returns how many there were.
std::size_t readProperties(const json& object, fill::FillProperties& fill) {
    std::size_t known = 0;
    fill::forEveryProperty([&](const auto& property) {
        const auto found = object.find(property.name);
        if (found == object.end()) return;
        auto& member = fill.*property.member;
        member = valueFromJson<std::decay_t<decltype(member)>>(property.name, *found);
        ++known;
    });
    return known;
}

std::string firstUnknownKey(const json& object) {
    for (const auto& item : object.items()) {
        bool known = false;
        fill::forEveryProperty([&](const auto& property) { known |= item.key() == property.name; });
        if (!known) return item.key();
    }
    return {};
}

void requireFillObject(const json& value) {
    if (!value.is_object()) throw ParseError("a fill must be a string or an object of properties");
    const std::string unknown = firstUnknownKey(value);
    if (!unknown.empty()) throw ParseError(text("a fill has no property ", unknown));
}

void requireFraction(float transparency) {
    if (!(transparency >= 0.0F && transparency <= 1.0F)) {
        throw ParseError("a transparency must be between 0 and 1, or 0% and 100%");
    }
}

float transparencyFromText(std::string_view value) {
    const bool percent = value.ends_with('%');
    if (percent) value.remove_suffix(1);
    double number = std::numeric_limits<double>::quiet_NaN();
    const char* const end = value.data() + value.size();
    const auto result = std::from_chars(value.data(), end, number);
    if (result.ec != std::errc{} || result.ptr != end) number = -1;
    const auto transparency = static_cast<float>(percent ? number / 100 : number);
    requireFraction(transparency);
    return transparency;
}

base::Rgb colorFromText(std::string_view value) {
    if (const auto color = base::fromHex(value)) return *color;
    if (const auto color = base::fromCssName(value)) return *color;
    throw ParseError(
        text("\"", value, "\" is not a colour; write #RRGGBB or a colour's name in CSS"));
}

batch::FillEdit editFromWord(std::string_view value) {
    if (value == "none") return batch::noFill();
    const std::size_t at = value.find('@');
    if (at == std::string_view::npos) return batch::solid(colorFromText(value), 0.0F);
    return batch::solid(colorFromText(value.substr(0, at)),
                        transparencyFromText(value.substr(at + 1)));
}

/// Splits at the first "=".
std::pair<std::string, std::string> splitPair(const std::string& value, const char* form) {
    const std::size_t at = value.find('=');
    if (at == std::string::npos)
        throw ParseError(text("\"", value, "\" must have the form ", form));
    return {value.substr(0, at), value.substr(at + 1)};
}

}  // namespace

nlohmann::ordered_json toJson(const fill::FillProperties& fill) {
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    fill::forEveryProperty(
        [&](const auto& property) { object[property.name] = valueToJson(fill.*property.member); });
    return object;
}

fill::FillProperties fillFromJson(const json& value) {
    requireFillObject(value);
    fill::FillProperties fill;
    std::size_t all = 0;
    fill::forEveryProperty([&](const auto&) { ++all; });
    if (readProperties(value, fill) != all) {
        throw ParseError("a fill lacks some of its properties");
    }
    return fill;
}

batch::FillEdit editFromJson(const json& value) {
    if (value.is_string()) return editFromWord(value.get<std::string>());
    requireFillObject(value);
    fill::FillProperties checked;
    readProperties(value, checked);
    requireFraction(checked.Transparency);
    requireFraction(checked.GradientDegree);
    return [value](fill::FillProperties fill) {
        readProperties(value, fill);
        return fill;
    };
}

batch::FillEdit editFromText(const std::string& value) {
    if (!value.starts_with('{')) return editFromWord(value);
    const json object = json::parse(value, nullptr, false);
    if (object.is_discarded()) throw ParseError(text("not valid JSON for a fill: ", value));
    return editFromJson(object);
}

batch::ColorMapping mappingFromText(const std::string& value) {
    const auto [from, to] = splitPair(value, "FROM=TO with two colours as #RRGGBB or by name");
    return {colorFromText(from), colorFromText(to)};
}

batch::RowEdit rowEditFromText(const std::string& value) {
    const auto [row, edit] = splitPair(value, "ROW=FILL");
    std::int32_t number = 0;
    const auto result = std::from_chars(row.data(), row.data() + row.size(), number);
    if (result.ec != std::errc{} || result.ptr != row.data() + row.size() || number < 1) {
        throw ParseError(text("\"", row, "\" is not a row number; rows are counted from 1"));
    }
    return {number, editFromText(edit), std::nullopt};
}

}  // namespace huebrush::protocol
