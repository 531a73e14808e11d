// SPDX-License-Identifier: MPL-2.0

#include "jet/table/TableDefinition.h"

#include <algorithm>
#include <set>

namespace huebrush::jet {

namespace {

using namespace DefinitionLayout;

/// The longest that 255 columns and 32 indexes with the longest names can be, generously.
constexpr std::size_t kLongestDefinition = std::size_t{512} * 1024;
constexpr std::size_t kMostColumns = 255;
constexpr std::size_t kMostIndexes = 64;

namespace At {
constexpr std::size_t kLength = 8;
constexpr std::size_t kRows = 16;
constexpr std::size_t kAutonumber = 20;
constexpr std::size_t kKind = 40;
constexpr std::size_t kMaxColumns = 41;
constexpr std::size_t kVariableColumns = 43;
constexpr std::size_t kColumns = 45;
constexpr std::size_t kIndexes = 47;
constexpr std::size_t kTrees = 51;
constexpr std::size_t kOwnedMap = 55;
constexpr std::size_t kFreeMap = 59;
}  // namespace At

bool knownType(std::uint8_t type) {
    return (type >= 1 && type <= 12) || (type >= 15 && type <= 17);
}

Column readColumn(const Reader& in) {
    in.require(knownType(in.u8(0)), 0, rule::kColumns);
    Column column;
    column.type = static_cast<ColumnType>(in.u8(0));
    column.number = in.u16(5);
    column.variableIndex = in.u16(7);
    column.position = in.u16(9);
    column.sortOrder = in.u16(11);
    column.sortVersion = static_cast<std::uint16_t>(in.u16(13) >> 8U);
    column.flags = in.u8(15);
    column.fixed = (column.flags & kFixed) != 0;
    column.autonumber = (column.flags & kAutonumber) != 0;
    column.compressed = (in.u8(16) & kCompressed) != 0;
    column.offset = in.u16(21);
    column.length = in.u16(23);
    in.require(!(column.fixed && column.isLongValue()), 15, rule::kColumns);
    return column;
}

/// Reads a name and moves on past it.
std::string readName(const Reader& in, std::size_t& at) {
    const std::size_t length = in.u16(at);
    std::string name = decodeText(in.bytes(at + 2, length));
    at += 2 + length;
    return name;
}

IndexTree readTree(const Reader& in) {
    constexpr std::uint16_t kNoColumn = 0xFFFF;
    IndexTree tree;
    for (std::size_t i = 0; i < kKeyColumns; ++i) {
        const std::uint16_t column = in.u16(4 + 3 * i);
        if (column != kNoColumn) tree.columns.push_back({column, in.u8(6 + 3 * i) != 0});
    }
    tree.map = RowId::of(in.u32(34));
    tree.root = in.u32(38);
    const std::uint8_t flags = in.u8(46);
    tree.unique = (flags & kUnique) != 0;
    tree.ignoreNulls = (flags & kIgnoreNulls) != 0;
    tree.required = (flags & kRequired) != 0;
    in.require(!tree.columns.empty(), 4, rule::kTrees);
    return tree;
}

LogicalIndex readIndex(const Reader& in, std::size_t trees) {
    LogicalIndex index;
    index.number = in.u32(4);
    index.tree = in.u32(8);
    in.require(index.tree < trees, 8, rule::kTrees);
    in.require(in.u8(12) <= 2 && in.u8(23) <= 2, 12, rule::kTrees);
    index.side = static_cast<LogicalIndex::Side>(in.u8(12));
    index.partner = in.i32(13);
    index.otherTable = in.u32(17);
    index.cascadeUpdate = in.u8(21);
    index.cascadeDelete = in.u8(22);
    index.kind = static_cast<LogicalIndex::Kind>(in.u8(23));
    return index;
}

void readLongValueMaps(const Reader& in, std::size_t at, TableDefinition& table) {
    constexpr std::uint16_t kEnd = 0xFFFF;
    for (; in.u16(at) != kEnd; at += 10) {
        for (Column& column : table.columns) {
            if (column.number != in.u16(at) || !column.isLongValue()) continue;
            column.ownedMap = RowId::of(in.u32(at + 2));
            column.freeMap = RowId::of(in.u32(at + 6));
        }
    }
}

void checkColumns(const TableDefinition& table, const Reader& in) {
    std::set<std::uint16_t> numbers;
    for (const Column& column : table.columns) {
        in.require(column.number < table.maxColumns && numbers.insert(column.number).second,
                   At::kColumns, rule::kColumns);
        in.require(column.fixed || column.type == ColumnType::boolean ||
                       column.variableIndex < table.variableColumns,
                   At::kVariableColumns, rule::kColumns);
    }
    for (const IndexTree& tree : table.trees) {
        for (const KeyColumn& key : tree.columns) {
            in.require(numbers.contains(key.column), At::kTrees, rule::kTrees);
        }
    }
}

}  // namespace

const Column* TableDefinition::find(const std::string& column) const {
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const Column& each) { return each.name == column; });
    return found == columns.end() ? nullptr : &*found;
}

const Column* TableDefinition::byNumber(std::uint16_t number) const {
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const Column& each) { return each.number == number; });
    return found == columns.end() ? nullptr : &*found;
}

Bytes joinDefinition(Pages& pages, PageNumber first, std::vector<PageNumber>* used) {
    const PagePointer page = pages.read(first, PageType::kDefinition);
    const Reader start(*page, first);
    const std::size_t length = start.u32(At::kLength);
    start.require(length >= kHeader && length <= kLongestDefinition, At::kLength,
                  rule::kDefinition);
    Bytes bytes(page->begin(), page->end());
    if (used != nullptr) used->push_back(first);
    for (PageNumber next = start.u32(4); bytes.size() < length;) {
        start.require(next != 0, 4, rule::kDefinition);
        const PagePointer more = pages.read(next, PageType::kDefinition);
        bytes.insert(bytes.end(), more->begin() + kPageHeader, more->end());
        if (used != nullptr) used->push_back(next);
        next = Reader(*more, next).u32(4);
    }
    bytes.resize(length);
    return bytes;
}

TableDefinition readDefinition(Pages& pages, PageNumber first) {
    TableDefinition table;
    table.page = first;
    const Bytes bytes = joinDefinition(pages, first, &table.pages);
    const Reader in(bytes, first);
    table.system = in.u8(At::kKind) == 'S';
    table.maxColumns = in.u16(At::kMaxColumns);
    table.variableColumns = in.u16(At::kVariableColumns);
    const std::size_t columns = in.u16(At::kColumns);
    const std::size_t indexes = in.u32(At::kIndexes);
    const std::size_t trees = in.u32(At::kTrees);
    in.require(columns <= kMostColumns && table.maxColumns <= kMostColumns, At::kColumns,
               rule::kColumns);
    in.require(indexes <= kMostIndexes && trees <= kMostIndexes, At::kIndexes, rule::kTrees);
    table.ownedMap = RowId::of(in.u32(At::kOwnedMap));
    table.freeMap = RowId::of(in.u32(At::kFreeMap));

    std::size_t at = kHeader + kTreeCounters * trees;
    for (std::size_t i = 0; i < columns; ++i, at += kColumn) {
        table.columns.push_back(readColumn(in.part(at, kColumn)));
    }
    for (Column& column : table.columns) column.name = readName(in, at);
    for (std::size_t i = 0; i < trees; ++i, at += kTree) {
        table.trees.push_back(readTree(in.part(at, kTree)));
    }
    for (std::size_t i = 0; i < indexes; ++i, at += kIndex) {
        table.indexes.push_back(readIndex(in.part(at, kIndex), trees));
    }
    for (LogicalIndex& index : table.indexes) index.name = readName(in, at);
    readLongValueMaps(in, at, table);
    checkColumns(table, in);
    std::stable_sort(
        table.columns.begin(), table.columns.end(), [](const Column& a, const Column& b) {
            return a.position != b.position ? a.position < b.position : a.number < b.number;
        });
    return table;
}

std::uint32_t readRowCount(Pages& pages, PageNumber definition) {
    return Reader(*pages.read(definition), definition).u32(At::kRows);
}
void writeRowCount(Pages& pages, PageNumber definition, std::uint32_t count) {
    Writer(pages.change(definition)).u32(At::kRows, count);
}
std::uint32_t readLastAutonumber(Pages& pages, PageNumber definition) {
    return Reader(*pages.read(definition), definition).u32(At::kAutonumber);
}
void writeLastAutonumber(Pages& pages, PageNumber definition, std::uint32_t number) {
    Writer(pages.change(definition)).u32(At::kAutonumber, number);
}

}  // namespace huebrush::jet
