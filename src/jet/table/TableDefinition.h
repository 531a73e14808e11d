// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "jet/page/Pages.h"
#include "jet/page/RowId.h"
#include "jet/table/Value.h"

namespace huebrush::jet {

/// What a column that sorts by the general rules has for its language; every file's default here.
inline constexpr std::uint16_t kGeneralSortOrder = 0x0409;

struct Column {
    std::string name;
    ColumnType type = ColumnType::longInteger;
    std::uint16_t number = 0;         ///< its bit in the null mask of a row
    std::uint16_t variableIndex = 0;  ///< its place among the variable columns
    std::uint16_t position = 0;       ///< for display
    std::uint16_t sortOrder = 0;      ///< a language's number, see kGeneralSortOrder
    std::uint16_t sortVersion = 0;
    bool fixed = false;
    bool autonumber = false;
    bool compressed = false;   ///< text may be stored with one byte a character
    std::uint8_t flags = 0;    ///< as stored in the file
    std::uint16_t offset = 0;  ///< of a fixed column, from byte 2 of the row
    std::uint16_t length = 0;  ///< in bytes
    RowId ownedMap;            ///< of a long-value column; page 0: none
    RowId freeMap;

    // These two are in the table's properties and not in its definition.
    bool required = false;
    bool allowZeroLength = true;

    bool isLongValue() const { return type == ColumnType::ole || type == ColumnType::memo; }
    bool isText() const { return type == ColumnType::text || type == ColumnType::memo; }
};

struct KeyColumn {
    std::uint16_t column = 0;  ///< the number of the column
    bool ascending = true;
};

/// A B-tree.
struct IndexTree {
    std::vector<KeyColumn> columns;
    RowId map;
    PageNumber root = 0;
    bool unique = false;
    bool ignoreNulls = false;
    bool required = false;
};

/// A named use of a tree: an index, a primary key, or one side of a relation.
struct LogicalIndex {
    enum class Side : std::uint8_t { none = 0, parent = 1, child = 2 };
    enum class Kind : std::uint8_t { ordinary = 0, primaryKey = 1, foreignKey = 2 };

    std::string name;
    std::uint32_t number = 0;
    std::uint32_t tree = 0;
    Side side = Side::none;
    std::int32_t partner = -1;  ///< the number of the other table's index
    PageNumber otherTable = 0;
    std::uint8_t cascadeUpdate = 0;
    std::uint8_t cascadeDelete = 0;
    Kind kind = Kind::ordinary;
};

/// What the definition pages of a table say, except for what changes with its rows.
struct TableDefinition {
    PageNumber page = 0;
    std::string name;
    bool system = false;
    std::uint16_t maxColumns = 0;
    std::uint16_t variableColumns = 0;
    RowId ownedMap;
    RowId freeMap;
    std::vector<Column> columns;  ///< in display order
    std::vector<IndexTree> trees;
    std::vector<LogicalIndex> indexes;
    std::vector<PageNumber> pages;  ///< the definition's own
    bool hasValidation = false;     ///< its properties hold rules that only the platform can check

    const Column* find(const std::string& column) const;
    const Column* byNumber(std::uint16_t number) const;
};

/// Reads the definition that begins on a page. Damage when it breaks a rule.
TableDefinition readDefinition(Pages& pages, PageNumber first);

/// The bytes of a whole definition, page headers included, as for one page.
Bytes joinDefinition(Pages& pages, PageNumber first, std::vector<PageNumber>* used = nullptr);

/// The counters in a definition, which change with the rows.
std::uint32_t readRowCount(Pages& pages, PageNumber definition);
void writeRowCount(Pages& pages, PageNumber definition, std::uint32_t count);
std::uint32_t readLastAutonumber(Pages& pages, PageNumber definition);
void writeLastAutonumber(Pages& pages, PageNumber definition, std::uint32_t number);

/// Places and sizes in a definition, for code that writes one.
namespace DefinitionLayout {
inline constexpr std::size_t kHeader = 63;
inline constexpr std::size_t kTreeCounters = 12;
inline constexpr std::size_t kColumn = 25;
inline constexpr std::size_t kTree = 52;
inline constexpr std::size_t kIndex = 28;
inline constexpr std::size_t kPageHeader = 8;
inline constexpr std::size_t kKeyColumns = 10;
inline constexpr std::uint32_t kMark = 1625;
inline constexpr std::uint32_t kTreeMark = 1923;
inline constexpr std::uint8_t kFixed = 0x01;
inline constexpr std::uint8_t kAlways = 0x02;
inline constexpr std::uint8_t kAutonumber = 0x04;
inline constexpr std::uint8_t kCompressed = 0x01;
inline constexpr std::uint8_t kUnique = 0x01;
inline constexpr std::uint8_t kIgnoreNulls = 0x02;
inline constexpr std::uint8_t kRequired = 0x08;
inline constexpr std::uint8_t kTreeAlways = 0x80;
}  // namespace DefinitionLayout

}  // namespace huebrush::jet
