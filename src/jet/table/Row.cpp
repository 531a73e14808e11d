// SPDX-License-Identifier: MPL-2.0

#include "jet/table/Row.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "base/Text.h"
#include "jet/table/Overflow.h"

namespace huebrush::jet {

namespace {

using base::text;

/// The size of a value of a fixed-size type, in bytes; 0 for types of variable size.
std::size_t sizeOf(ColumnType type) {
    switch (type) {
        case ColumnType::byte:
            return 1;
        case ColumnType::integer:
            return 2;
        case ColumnType::longInteger:
        case ColumnType::single:
            return 4;
        case ColumnType::money:
        case ColumnType::real:
        case ColumnType::date:
            return 8;
        case ColumnType::guid:
            return 16;
        case ColumnType::numeric:
            return 17;
        default:
            return 0;
    }
}

[[noreturn]] void throwWrongType(const Column& column) {
    throw Error(ErrorNumber::kWrongType,
                text("Sloupec „", column.name, "“ nemůže mít hodnotu tohoto druhu."),
                text("the column ", column.name, " cannot have a value of this type"));
}

[[noreturn]] void throwTooLong(const Column& column) {
    const auto most = column.isText() ? column.length / 2 : column.length;
    throw Error(ErrorNumber::kTooLong,
                text("Hodnota sloupce „", column.name, "“ je příliš dlouhá (nejvýše ", most,
                     column.isText() ? " znaků)." : " bajtů)."),
                text("the value of the column ", column.name, " is too long (at most ", most,
                     column.isText() ? " characters)" : " bytes)"));
}

Bytes numberBytes(std::uint64_t bits, std::size_t size) {
    Bytes out(size);
    for (std::size_t i = 0; i < size; ++i) out[i] = static_cast<std::uint8_t>(bits >> (8 * i));
    return out;
}

std::uint64_t wholeBits(const Column& column, std::int32_t value) {
    const bool fits = column.type == ColumnType::longInteger ||
                      (column.type == ColumnType::integer && value >= -32768 && value <= 32767) ||
                      (column.type == ColumnType::byte && value >= 0 && value <= 255);
    if (!fits) throwOverflow();
    return static_cast<std::uint64_t>(static_cast<std::int64_t>(value));
}

double toReal(const Column& column, const Value& value) {
    if (const auto* number = std::get_if<double>(&value)) return *number;
    if (const auto* number = std::get_if<float>(&value)) return *number;
    if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
    throwWrongType(column);
}

Bytes encodeBinary(const Column& column, const Value& value) {
    const auto* bytes = std::get_if<Bytes>(&value);
    if (bytes == nullptr) throwWrongType(column);
    if (bytes->size() > column.length) throwTooLong(column);
    return *bytes;
}

Bytes encodeTextField(const Column& column, const Value& value) {
    const auto* utf8 = std::get_if<std::string>(&value);
    if (utf8 == nullptr) throwWrongType(column);
    if (base::lengthInCharacters(*utf8) * 2 > column.length) throwTooLong(column);
    Bytes bytes = encodeText(*utf8, column.compressed && !column.fixed, column.length);
    if (column.fixed) {
        while (bytes.size() < column.length) append16(bytes, ' ');
    }
    return bytes;
}

/// The null mask comes last in a row.
std::size_t placeOfMask(const TableDefinition& table, const Reader& bytes, std::size_t columns) {
    const std::size_t size = (columns + 7) / 8;
    bytes.require(columns <= table.maxColumns, 0, rule::kRowColumns);
    bytes.require(bytes.size() >= 2 + size, 0, rule::kRowOffsets);
    return bytes.size() - size;
}

}  // namespace

Row::Row(const TableDefinition& table, PagePointer page, const Reader& bytes)
    : page_(std::move(page)),
      bytes_(bytes),
      columns_(bytes.u16(0)),
      mask_(placeOfMask(table, bytes, columns_)),
      fixedEnd_(mask_) {
    if (table.variableColumns == 0) return;
    bytes.require(mask_ >= 2 + 4, 0, rule::kRowOffsets);
    variables_ = bytes.u16(mask_ - 2);
    bytes.require(4 + 2 * variables_ + 2 <= mask_, mask_ - 2, rule::kRowOffsets);
    offsets_ = mask_ - 4;
    fixedEnd_ = variables_ == 0 ? mask_ - 4 : start(0);
    for (std::size_t i = 0; i < variables_; ++i) {
        bytes.require(start(i) <= start(i + 1), offsets_ - 2 * i, rule::kRowOffsets);
    }
    bytes.require(fixedEnd_ >= 2 && start(variables_) <= offsets_ - 2 * variables_,
                  offsets_ - 2 * variables_, rule::kRowOffsets);
}

/// Where a variable column begins; the end of the data is stored like one more column.
std::size_t Row::start(std::size_t variable) const {
    return bytes_.u16(offsets_ - 2 * variable);
}

bool Row::has(const Column& column) const {
    if (column.number >= columns_) return false;
    return (bytes_.u8(mask_ + column.number / 8) >> (column.number % 8) & 1U) != 0;
}

std::optional<Reader> Row::field(const Column& column) const {
    if (!has(column) || column.type == ColumnType::boolean) return std::nullopt;
    if (column.fixed) {
        const std::size_t at = std::size_t{2} + column.offset;
        bytes_.require(at + column.length <= fixedEnd_, 0, rule::kRowOffsets);
        return bytes_.part(at, column.length);
    }
    bytes_.require(column.variableIndex < variables_, 0, rule::kRowOffsets);
    const std::size_t at = start(column.variableIndex);
    return bytes_.part(at, start(column.variableIndex + std::size_t{1}) - at);
}

Value decodeField(const Column& column, const Reader& bytes) {
    const std::size_t size = sizeOf(column.type);
    bytes.require(size == 0 || bytes.size() == size, 0, rule::kValueSize);
    switch (column.type) {
        case ColumnType::byte:
            return std::int32_t{bytes.u8(0)};
        case ColumnType::integer:
            return std::int32_t{static_cast<std::int16_t>(bytes.u16(0))};
        case ColumnType::longInteger:
            return bytes.i32(0);
        case ColumnType::money:
            return Money{static_cast<std::int64_t>(bytes.u64(0))};
        case ColumnType::single:
            return bytes.f32(0);
        case ColumnType::real:
        case ColumnType::date:
            return bytes.f64(0);
        case ColumnType::text:
            return decodeText(bytes.all());
        default:
            return Bytes(bytes.all().begin(), bytes.all().end());
    }
}

Fields::Fields(const TableDefinition& table, const Row& row) : Fields(table) {
    for (const Column& column : table.columns) {
        if (!row.has(column)) continue;
        const auto bytes = row.field(column);
        at(column) = bytes ? Bytes(bytes->all().begin(), bytes->all().end()) : Bytes();
    }
}

Bytes encodeRow(const TableDefinition& table, const Fields& fields) {
    std::size_t fixedSize = 0;
    for (const Column& column : table.columns) {
        if (column.fixed && column.type != ColumnType::boolean) {
            fixedSize = std::max<std::size_t>(fixedSize, column.offset + column.length);
        }
    }
    Bytes out;
    append16(out, table.maxColumns);
    out.resize(2 + fixedSize, 0);
    Bytes mask((table.maxColumns + 7U) / 8U, 0);
    std::vector<const Bytes*> variables(table.variableColumns, nullptr);
    for (const Column& column : table.columns) {
        const auto& field = fields.at(column);
        if (!field) continue;
        mask[column.number / 8U] |= static_cast<std::uint8_t>(1U << (column.number % 8U));
        if (column.type == ColumnType::boolean) continue;
        if (column.fixed) {
            Writer(out).bytes(std::size_t{2} + column.offset, *field);
        } else {
            variables[column.variableIndex] = &*field;
        }
    }
    if (table.variableColumns > 0) {
        std::vector<std::size_t> starts;
        for (const Bytes* field : variables) {
            starts.push_back(out.size());
            if (field != nullptr) append(out, *field);
        }
        append16(out, out.size());
        while (!starts.empty()) {
            append16(out, starts.back());
            starts.pop_back();
        }
        append16(out, table.variableColumns);
    }
    append(out, mask);
    if (out.size() > kMaxRowSize) {
        throw Error(ErrorNumber::kTooLong,
                    text("Řádek tabulky „", table.name, "“ je příliš dlouhý."),
                    text("a row of the table ", table.name, " is too long"));
    }
    return out;
}

std::optional<Bytes> encodeField(const Column& column, const Value& value) {
    if (isNull(value)) return std::nullopt;
    switch (column.type) {
        case ColumnType::boolean:
            if (const auto* flag = std::get_if<bool>(&value)) {
                return *flag ? std::optional(Bytes()) : std::nullopt;
            }
            return toLong(value) != 0 ? std::optional(Bytes()) : std::nullopt;
        case ColumnType::byte:
        case ColumnType::integer:
        case ColumnType::longInteger:
            return numberBytes(wholeBits(column, toLong(value)), sizeOf(column.type));
        case ColumnType::money:
            if (const auto* money = std::get_if<Money>(&value)) {
                return numberBytes(static_cast<std::uint64_t>(money->tenThousandths), 8);
            }
            throwWrongType(column);
        case ColumnType::single:
            return numberBytes(
                std::bit_cast<std::uint32_t>(static_cast<float>(toReal(column, value))), 4);
        case ColumnType::real:
        case ColumnType::date:
            return numberBytes(std::bit_cast<std::uint64_t>(toReal(column, value)), 8);
        case ColumnType::text:
            return encodeTextField(column, value);
        case ColumnType::guid:
        case ColumnType::numeric:
        case ColumnType::binary:
        case ColumnType::fixedBinary: {
            Bytes bytes = encodeBinary(column, value);
            const std::size_t size = sizeOf(column.type);
            if (size != 0 && bytes.size() != size) throwWrongType(column);
            if (column.fixed) bytes.resize(column.length, 0);
            return bytes;
        }
        default:
            throwWrongType(column);
    }
}

Value fieldValue(const Column& column, const std::optional<Bytes>& field) {
    if (column.type == ColumnType::boolean) return field.has_value();
    if (!field) return {};
    return decodeField(column, Reader(*field, 0));
}

}  // namespace huebrush::jet
