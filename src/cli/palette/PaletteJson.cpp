#include "cli/palette/PaletteJson.h"

#include <cmath>

#include "base/Text.h"
#include "cli/Base64.h"
#include "cli/Failure.h"
#include "protocol/JsonNumber.h"

namespace huebrush::cli {

namespace {

using base::text;
using jet::ColumnType;
using jet::Value;
using nlohmann::json;
using nlohmann::ordered_json;

constexpr const char* kPalettes = "palettes";
constexpr const char* kElements = "elements";
constexpr double kMoneyUnits = 10000;

struct ValueToJson {
    ordered_json operator()(std::monostate) const { return nullptr; }
    ordered_json operator()(jet::Money value) const {
        return static_cast<double>(value.tenThousandths) / kMoneyUnits;
    }
    ordered_json operator()(const jet::Bytes& value) const { return toBase64(value); }
    ordered_json operator()(const auto& value) const { return value; }
};

/// Where in the input a value stands, for the message about it.
struct Place {
    std::string row;
    std::string column;

    [[noreturn]] void fail(const char* expected) const {
        throw Failure(text(row, ": ", column, " must be ", expected));
    }
};

jet::Money moneyFrom(double amount, const Place& place) {
    const double units = std::round(amount * kMoneyUnits);
    // Every double below 2^63 fits.
    if (!(std::abs(units) < 9223372036854775808.0)) place.fail("an amount of 64 bits");
    return {static_cast<std::int64_t>(units)};
}

Value numberFromJson(ColumnType type, const json& value, const Place& place) {
    if (!value.is_number()) place.fail("a number");
    const auto number = value.get<double>();
    if (type == ColumnType::money) return moneyFrom(number, place);
    return number;
}

Value valueFromJson(ColumnType type, const json& value, const Place& place) {
    if (value.is_null()) return {};
    switch (type) {
        case ColumnType::boolean:
            if (!value.is_boolean()) place.fail("true or false");
            return value.get<bool>();
        case ColumnType::byte:
        case ColumnType::integer:
        case ColumnType::longInteger: {
            const auto number = protocol::int32FromJson(value);
            if (!number) place.fail("a whole number of 32 bits");
            return *number;
        }
        case ColumnType::money:
        case ColumnType::single:
        case ColumnType::real:
        case ColumnType::date:
            return numberFromJson(type, value, place);
        case ColumnType::text:
        case ColumnType::memo:
            if (!value.is_string()) place.fail("a text");
            return value.get<std::string>();
        default: {
            const auto* encoded = value.get_ptr<const std::string*>();
            auto bytes = encoded == nullptr ? std::nullopt : fromBase64(*encoded);
            if (!bytes) place.fail("bytes in base64");
            return std::move(*bytes);
        }
    }
}

palette::Record recordFromJson(const json& object, const jet::TableDefinition& table,
                               const std::string& row) {
    if (!object.is_object()) throw Failure(text(row, " is no object"));
    palette::Record record;
    for (const auto& [name, value] : object.items()) {
        const jet::Column* const column = table.find(name);
        if (column == nullptr) {
            throw Failure(text(row, ": the table ", table.name, " has no column ", name));
        }
        record.emplace_back(column->name, valueFromJson(column->type, value, {row, name}));
    }
    return record;
}

/// The array under a key, which may be missing.
const json& arrayUnder(const json& object, const char* key, const std::string& owner) {
    static const json kNone = json::array();
    const auto found = object.find(key);
    if (found == object.end()) return kNone;
    if (!found->is_array()) throw Failure(text(owner, ": ", key, " must be an array"));
    return *found;
}

palette::Palette paletteFromJson(json object, const jet::TableDefinition& groups,
                                 const jet::TableDefinition& elements, const std::string& row) {
    if (!object.is_object()) throw Failure(text(row, " is no object"));
    palette::Palette palette;
    std::size_t number = 0;
    for (const json& element : arrayUnder(object, kElements, row)) {
        const std::string place = text(row, ", element ", ++number);
        palette.elements.push_back(recordFromJson(element, elements, place));
    }
    object.erase(kElements);
    palette.group = recordFromJson(object, groups, row);
    return palette;
}

}  // namespace

ordered_json toJson(const palette::Record& record) {
    ordered_json object = ordered_json::object();
    for (const auto& [name, value] : record) object[name] = std::visit(ValueToJson(), value);
    return object;
}

ordered_json toJson(const palette::Palette& palette) {
    ordered_json object = toJson(palette.group);
    ordered_json elements = ordered_json::array();
    for (const palette::Record& each : palette.elements) elements.push_back(toJson(each));
    object[kElements] = std::move(elements);
    return object;
}

std::vector<palette::Palette> palettesFromJson(const json& value,
                                               const jet::TableDefinition& groups,
                                               const jet::TableDefinition& elements) {
    if (!value.is_object() || !value.contains(kPalettes)) {
        throw Failure("the palettes are not in the form of \"huebrush palette dump\"");
    }
    std::vector<palette::Palette> palettes;
    for (const json& each : arrayUnder(value, kPalettes, "the input")) {
        palettes.push_back(
            paletteFromJson(each, groups, elements, text("palette ", palettes.size() + 1)));
    }
    return palettes;
}

}  // namespace huebrush::cli
