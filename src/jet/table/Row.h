// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>
#include <vector>

#include "jet/page/DataPage.h"
#include "jet/table/TableDefinition.h"

namespace huebrush::jet {

/// A row as it is stored: which columns have a value, and the bytes of each. Holds its page.
class Row {
 public:
    /// Damage when the row breaks a rule.
    Row(const TableDefinition& table, PagePointer page, const Reader& bytes);

    /// Whether the bit of a column is set: it has a value, or is a boolean that is true.
    bool has(const Column& column) const;
    /// The bytes of a column; none when it has no value.
    std::optional<Reader> field(const Column& column) const;
    const Reader& bytes() const { return bytes_; }

 private:
    std::size_t start(std::size_t variable) const;

    PagePointer page_;
    Reader bytes_;
    std::size_t columns_;
    std::size_t mask_;  ///< where the null mask begins
    std::size_t variables_ = 0;
    std::size_t offsets_ = 0;  ///< where the start of variable column 0 is stored
    std::size_t fixedEnd_;
};

/// A value of a column from its stored bytes; not for long values, whose bytes are elsewhere.
Value decodeField(const Column& column, const Reader& bytes);

/// What a row is built from: the stored bytes of its columns by column number.
struct Fields {
    std::vector<std::optional<Bytes>> byNumber;

    explicit Fields(const TableDefinition& table) : byNumber(table.maxColumns) {}
    Fields(const TableDefinition& table, const Row& row);
    std::optional<Bytes>& at(const Column& column) { return byNumber[column.number]; }
    const std::optional<Bytes>& at(const Column& column) const { return byNumber[column.number]; }
};

/// The bytes of a row. An error when it is longer than a page can hold.
Bytes encodeRow(const TableDefinition& table, const Fields& fields);

/// The stored bytes of a value; none for null. Errors for another type and for too much text.
std::optional<Bytes> encodeField(const Column& column, const Value& value);

/// The inverse of encodeField for one stored field, for columns that hold no long values.
Value fieldValue(const Column& column, const std::optional<Bytes>& field);

}  // namespace huebrush::jet
