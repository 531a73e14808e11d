// SPDX-License-Identifier: MPL-2.0

#include "jet/table/DefinitionWriter.h"

#include <algorithm>

#include "jet/table/Key.h"

namespace huebrush::jet {

namespace {

using namespace DefinitionLayout;

constexpr std::uint8_t kNotARelation = 4;

void appendName(Bytes& out, const std::string& name) {
    const Bytes text = encodeText(name, false, 0);
    append16(out, text.size());
    append(out, text);
}

void appendColumn(Bytes& out, const Column& column) {
    append8(out, static_cast<std::uint8_t>(column.type));
    append32(out, kMark);
    append16(out, column.number);
    append16(out, column.variableIndex);
    append16(out, column.position);
    append16(out, column.sortOrder);
    append16(out, static_cast<std::size_t>(column.sortVersion) << 8U);
    append8(out, column.flags);
    append8(out, column.compressed ? kCompressed : 0);
    append32(out, 0);
    append16(out, column.fixed ? column.offset : 0);
    append16(out, column.length);
}

void appendTree(Bytes& out, const IndexTree& tree) {
    append32(out, kTreeMark);
    for (std::size_t i = 0; i < kKeyColumns; ++i) {
        const bool used = i < tree.columns.size();
        append16(out, used ? tree.columns[i].column : 0xFFFF);
        append8(out, used && tree.columns[i].ascending ? 1 : 0);
    }
    append32(out, tree.map.pointer());
    append32(out, tree.root);
    append32(out, 0);
    append8(out, kTreeAlways + (tree.unique ? kUnique : 0U) +
                     (tree.ignoreNulls ? kIgnoreNulls : 0U) + (tree.required ? kRequired : 0U));
    append32(out, 0);
    append8(out, 0);
}

void appendIndex(Bytes& out, const LogicalIndex& index) {
    const bool relation = index.side != LogicalIndex::Side::none;
    append32(out, kMark);
    append32(out, index.number);
    append32(out, index.tree);
    append8(out, static_cast<std::uint8_t>(index.side));
    append32(out, static_cast<std::uint32_t>(index.partner));
    append32(out, index.otherTable);
    append8(out, relation ? index.cascadeUpdate : kNotARelation);
    append8(out, relation ? index.cascadeDelete : kNotARelation);
    append8(out, static_cast<std::uint8_t>(index.kind));
    append32(out, 0);
}

std::vector<LogicalIndex> inNameOrder(std::vector<LogicalIndex> indexes) {
    std::stable_sort(
        indexes.begin(), indexes.end(), [](const LogicalIndex& a, const LogicalIndex& b) {
            return generalKey(a.name).value_or(Bytes()) < generalKey(b.name).value_or(Bytes());
        });
    return indexes;
}

}  // namespace

DefinitionCounters readCounters(Pages& pages, const TableDefinition& table) {
    DefinitionCounters counters;
    counters.rows = readRowCount(pages, table.page);
    counters.lastAutonumber = readLastAutonumber(pages, table.page);
    const Bytes bytes = joinDefinition(pages, table.page);
    for (std::size_t i = 0; i < table.trees.size(); ++i) {
        counters.distinctKeys.push_back(
            Reader(bytes, table.page).u32(kHeader + kTreeCounters * i + 4));
    }
    return counters;
}

Bytes encodeDefinition(const TableDefinition& table, const DefinitionCounters& counters) {
    Bytes out{PageType::kDefinition, 1, 0, 0};
    append32(out, 0);
    append32(out, 0);
    append32(out, kMark);
    append32(out, counters.rows);
    append32(out, counters.lastAutonumber);
    append8(out, 1);
    out.resize(40, 0);
    append8(out, static_cast<std::uint8_t>(table.system ? 'S' : 'N'));
    append16(out, table.maxColumns);
    append16(out, table.variableColumns);
    append16(out, table.columns.size());
    append32(out, static_cast<std::uint32_t>(table.indexes.size()));
    append32(out, static_cast<std::uint32_t>(table.trees.size()));
    append32(out, table.ownedMap.pointer());
    append32(out, table.freeMap.pointer());
    for (std::size_t i = 0; i < table.trees.size(); ++i) {
        append32(out, 0);
        append32(out, i < counters.distinctKeys.size() ? counters.distinctKeys[i] : 0);
        append32(out, 0);
    }
    for (const Column& column : table.columns) appendColumn(out, column);
    for (const Column& column : table.columns) appendName(out, column.name);
    for (const IndexTree& tree : table.trees) appendTree(out, tree);
    const auto indexes = inNameOrder(table.indexes);
    for (const LogicalIndex& index : indexes) appendIndex(out, index);
    for (const LogicalIndex& index : indexes) appendName(out, index.name);
    for (const Column& column : table.columns) {
        if (!column.isLongValue()) continue;
        append16(out, column.number);
        append32(out, column.ownedMap.pointer());
        append32(out, column.freeMap.pointer());
    }
    append16(out, 0xFFFF);
    Writer(out).u32(8, static_cast<std::uint32_t>(out.size()));
    return out;
}

void storeDefinitionPage(Page& page, const Bytes& bytes) {
    page.fill(0);
    const Writer out(page);
    out.bytes(0, bytes);
    out.u16(2, kPageSize - bytes.size() - kPageHeader);
}

void storeDefinition(Pages& pages, Space& space, TableDefinition& table, const Bytes& bytes) {
    constexpr std::size_t kMore = kPageSize - kPageHeader;
    const std::size_t needed =
        bytes.size() <= kPageSize ? 1 : 1 + (bytes.size() - kPageSize + kMore - 1) / kMore;
    while (table.pages.size() < needed) table.pages.push_back(space.take());
    while (table.pages.size() > needed) {
        space.giveBack(table.pages.back());
        table.pages.pop_back();
    }
    if (bytes.size() + kPageHeader <= kPageSize) {
        storeDefinitionPage(pages.change(table.page), bytes);
        return;
    }
    std::size_t at = 0;
    for (std::size_t i = 0; i < needed; ++i) {
        Page& page = pages.change(table.pages[i]);
        page.fill(0);
        const Writer out(page);
        const std::size_t header = i == 0 ? 0 : kPageHeader;
        const std::size_t size = std::min(bytes.size() - at, kPageSize - header);
        out.bytes(header, ByteView(bytes).subspan(at, size));
        at += size;
        out.u8(0, PageType::kDefinition);
        out.u8(1, 1);
        const std::size_t left = kPageSize - header - size;
        out.u16(2, left > kPageHeader ? left - kPageHeader : 0);
        out.u32(4, i + 1 < needed ? table.pages[i + 1] : 0);
    }
}

}  // namespace huebrush::jet
