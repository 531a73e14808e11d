// SPDX-License-Identifier: MPL-2.0

#include "cli/palette/PaletteJson.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

#include "base/Base64.h"
#include "base/Text.h"
#include "cli/Failure.h"
#include "cli/Interrupt.h"
#include "protocol/JsonNumber.h"

namespace huebrush::cli {

namespace {

using base::text;
using jet::ColumnType;
using jet::Value;
using nlohmann::ordered_json;

constexpr const char* kPalettes = "palettes";
constexpr const char* kElements = "elements";
constexpr double kMoneyUnits = 10000;
/// For what is ignored; palettes themselves are not nested deeply.
constexpr std::size_t kDeepest = 100;

struct ValueToJson {
    ordered_json operator()(std::monostate) const { return nullptr; }
    ordered_json operator()(jet::Money value) const {
        return static_cast<double>(value.tenThousandths) / kMoneyUnits;
    }
    ordered_json operator()(const jet::Bytes& value) const { return base::toBase64(value); }
    ordered_json operator()(const auto& value) const { return value; }
};

/// Where in the input something is, for the message about it.
struct Place {
    std::size_t palette = 0;
    std::size_t element = 0;  ///< 0: the palette itself

    std::string text() const {
        if (palette == 0) return "the input";
        const std::string where = base::text("palette ", palette);
        return element == 0 ? where : base::text(where, ", element ", element);
    }
    [[noreturn]] void fail(const std::string& problem) const { throw Failure(text() + problem); }
};

/// A column at a place.
struct ColumnPlace {
    const Place& row;
    const std::string& column;

    [[noreturn]] void fail(const char* expected) const {
        row.fail(text(": ", column, " must be ", expected));
    }
};

jet::Money moneyFrom(double amount, const ColumnPlace& place) {
    const double units = std::round(amount * kMoneyUnits);
    // Every double below 2^63 fits.
    if (!(std::abs(units) < 9223372036854775808.0)) place.fail("an amount that fits in 64 bits");
    return {static_cast<std::int64_t>(units)};
}

Value numberFromJson(ColumnType type, const nlohmann::json& value, const ColumnPlace& place) {
    if (!value.is_number()) place.fail("a number");
    const auto number = value.get<double>();
    if (type == ColumnType::money) return moneyFrom(number, place);
    return number;
}

Value valueFromJson(ColumnType type, const nlohmann::json& value, const ColumnPlace& place) {
    if (value.is_null()) return {};
    switch (type) {
        case ColumnType::boolean:
            if (!value.is_boolean()) place.fail("true or false");
            return value.get<bool>();
        case ColumnType::byte:
        case ColumnType::integer:
        case ColumnType::longInteger: {
            const auto number = protocol::int32FromJson(value);
            if (!number) place.fail("a 32-bit whole number");
            return *number;
        }
        case ColumnType::money:
        case ColumnType::single:
        case ColumnType::real:
        case ColumnType::date:
            return numberFromJson(type, value, place);
        case ColumnType::text:
        case ColumnType::memo:
            if (!value.is_string()) place.fail("a string");
            return value.get<std::string>();
        default: {
            const auto* encoded = value.get_ptr<const std::string*>();
            auto bytes = encoded == nullptr ? std::nullopt : base::fromBase64(*encoded);
            if (!bytes) place.fail("a string in base64");
            return std::move(*bytes);
        }
    }
}

/// Takes what the parser finds, and passes on each row when it is complete. Only the row that is
/// being read is kept.
class PaletteReader final : public nlohmann::json_sax<nlohmann::json> {
 public:
    PaletteReader(const std::string& name, const jet::TableDefinition& groups,
                  const jet::TableDefinition& elements, palette::PaletteSink& sink)
        : name_(name), groups_(groups), elements_(elements), sink_(sink) {}

    bool null() override { return scalar(nullptr); }
    bool boolean(bool value) override { return scalar(value); }
    bool number_integer(number_integer_t value) override { return scalar(value); }
    bool number_unsigned(number_unsigned_t value) override { return scalar(value); }
    bool number_float(number_float_t value, const string_t&) override { return scalar(value); }
    bool string(string_t& value) override { return scalar(std::move(value)); }
    bool binary(binary_t&) override { return true; }
    bool key(string_t& name) override;
    bool start_object(std::size_t) override;
    bool start_array(std::size_t) override;
    bool end_object() override;
    bool end_array() override;
    bool parse_error(std::size_t position, const std::string&,
                     const nlohmann::detail::exception&) override {
        throw Failure(text(name_, " is not valid JSON: error at byte ", position));
    }

 private:
    /// Where the parser is.
    enum class Within { nothing, input, palettes, palette, elements, element, ignored };
    using Values = palette::PaletteSink::Values;

    bool scalar(const nlohmann::json& value);
    void inColumn(const nlohmann::json& value);
    void set(Values& values, const jet::TableDefinition& table, const nlohmann::json& value);
    void beginElements();
    void endPalette();
    /// Passes on a row, and adds to a refusal where the row is.
    void handOn(const std::function<void()>& row) const;
    [[noreturn]] static void failForm() {
        throw Failure("the palettes are not in the format of \"huebrush palette dump\"");
    }

    const std::string& name_;
    const jet::TableDefinition& groups_;
    const jet::TableDefinition& elements_;
    palette::PaletteSink& sink_;

    Within within_ = Within::nothing;
    std::size_t ignoredDepth_ = 0;
    std::string key_;
    Place place_;
    bool hasPalettes_ = false;
    bool hasElements_ = false;
    Values group_;
    Values element_;
};

void PaletteReader::handOn(const std::function<void()>& row) const {
    try {
        row();
    } catch (const base::Error& error) {
        place_.fail(text(": ", error.what()));
    }
}

bool PaletteReader::key(string_t& name) {
    key_ = std::move(name);
    return true;
}

bool PaletteReader::scalar(const nlohmann::json& value) {
    switch (within_) {
        case Within::nothing:
            failForm();
        case Within::input:
            if (key_ == kPalettes) place_.fail(text(": ", kPalettes, " must be an array"));
            break;
        case Within::palettes:
            ++place_.palette;
            place_.fail(" is not an object");
        case Within::elements:
            ++place_.element;
            place_.fail(" is not an object");
        case Within::palette:
        case Within::element:
            inColumn(value);
            break;
        case Within::ignored:
            break;
    }
    return true;
}

void PaletteReader::inColumn(const nlohmann::json& value) {
    if (within_ == Within::element) return set(element_, elements_, value);
    if (key_ == kElements) place_.fail(text(": ", kElements, " must be an array"));
    set(group_, groups_, value);
}

void PaletteReader::set(Values& values, const jet::TableDefinition& table,
                        const nlohmann::json& value) {
    // Most rows have their columns in the table's order.
    const std::size_t next =
        values.empty() ? 0
                       : static_cast<std::size_t>(values.back().first - table.columns.data()) + 1;
    const bool isNext = next < table.columns.size() && table.columns[next].name == key_;
    const jet::Column* const column = isNext ? &table.columns[next] : table.find(key_);
    if (column == nullptr) {
        place_.fail(text(": the table ", table.name, " has no column ", key_));
    }
    Value given = valueFromJson(column->type, value, {place_, key_});
    const auto known =
        isNext ? values.end() : std::find_if(values.begin(), values.end(), [&](const auto& each) {
            return each.first == column;
        });
    if (known == values.end()) {
        values.emplace_back(column, std::move(given));
    } else {
        known->second = std::move(given);
    }
}

void PaletteReader::beginElements() {
    if (std::exchange(hasElements_, true)) {
        place_.fail(text(": ", kElements, " appears twice"));
    }
    handOn([&] { sink_.begin(group_); });
    within_ = Within::elements;
}

bool PaletteReader::start_object(std::size_t) {
    switch (within_) {
        case Within::nothing:
            within_ = Within::input;
            break;
        case Within::palettes:
            throwIfInterrupted();
            ++place_.palette;
            group_.clear();
            hasElements_ = false;
            within_ = Within::palette;
            break;
        case Within::elements:
            throwIfInterrupted();
            ++place_.element;
            element_.clear();
            within_ = Within::element;
            break;
        case Within::palette:
        case Within::element:
            inColumn(nlohmann::json::object());
            break;
        case Within::input:
            scalar(nlohmann::json::object());
            within_ = Within::ignored;
            [[fallthrough]];
        case Within::ignored:
            if (++ignoredDepth_ > kDeepest) {
                throw Failure(text(name_, " is nested deeper than ", kDeepest, " levels"));
            }
    }
    return true;
}

bool PaletteReader::start_array(std::size_t size) {
    if (within_ == Within::nothing) failForm();
    if (within_ == Within::input && key_ == kPalettes) {
        if (std::exchange(hasPalettes_, true)) {
            place_.fail(text(": ", kPalettes, " appears twice"));
        }
        within_ = Within::palettes;
    } else if (within_ == Within::palette && key_ == kElements) {
        beginElements();
    } else if (within_ == Within::palettes || within_ == Within::elements) {
        scalar(nlohmann::json::array());
    } else {
        start_object(size);
    }
    return true;
}

void PaletteReader::endPalette() {
    place_.element = 0;
    handOn([&] {
        if (!hasElements_) sink_.begin(group_);
        sink_.end(group_);
    });
}

bool PaletteReader::end_object() {
    if (within_ == Within::element) {
        handOn([&] { sink_.fill(element_); });
        within_ = Within::elements;
    } else if (within_ == Within::palette) {
        endPalette();
        within_ = Within::palettes;
    } else if (within_ == Within::ignored) {
        if (--ignoredDepth_ == 0) within_ = Within::input;
    } else if (!hasPalettes_) {
        failForm();
    }
    return true;
}

bool PaletteReader::end_array() {
    if (within_ == Within::elements) {
        place_.element = 0;
        within_ = Within::palette;
    } else if (within_ == Within::palettes) {
        place_ = {};
        within_ = Within::input;
    } else {
        end_object();
    }
    return true;
}

std::vector<std::string> keysOf(const jet::TableDefinition& table) {
    std::vector<std::string> keys;
    for (const jet::Column& column : table.columns) keys.push_back(JsonWriter::quoted(column.name));
    return keys;
}

}  // namespace

ordered_json toJson(const palette::Record& record) {
    ordered_json object = ordered_json::object();
    for (const auto& [name, value] : record) object[name] = std::visit(ValueToJson(), value);
    return object;
}

PaletteJsonWriter::PaletteJsonWriter(JsonWriter& out) : out_(out) {
    out_.beginObject();
    out_.key(JsonWriter::quoted(kPalettes));
    out_.beginArray();
}

void PaletteJsonWriter::writeColumns(const jet::Table& table, const jet::Row& row, Keys& keys) {
    const std::vector<jet::Column>& columns = table.definition().columns;
    if (keys.empty()) keys = keysOf(table.definition());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        out_.key(keys[i]);
        const Value value = table.value(row, columns[i]);
        if (const auto* const number = std::get_if<std::int32_t>(&value)) {
            out_.value(*number);
        } else {
            out_.value(std::visit(ValueToJson(), value));
        }
    }
}

void PaletteJsonWriter::begin(const jet::Table& groups, const jet::Row& group) {
    out_.beginObject();
    writeColumns(groups, group, groupKeys_);
    out_.key(JsonWriter::quoted(kElements));
    out_.beginArray();
}

void PaletteJsonWriter::fill(const jet::Table& elements, const jet::Row& fill) {
    throwIfInterrupted();
    out_.beginObject();
    writeColumns(elements, fill, elementKeys_);
    out_.endObject();
}

void PaletteJsonWriter::end() {
    throwIfInterrupted();
    out_.endArray();
    out_.endObject();
}

void PaletteJsonWriter::finish() {
    out_.endArray();
    out_.endObject();
    out_.finish();
}

void readPalettes(std::istream& input, const std::string& name, const jet::TableDefinition& groups,
                  const jet::TableDefinition& elements, palette::PaletteSink& sink) {
    PaletteReader reader(name, groups, elements, sink);
    nlohmann::json::sax_parse(input, &reader);
}

}  // namespace huebrush::cli
