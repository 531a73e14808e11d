// SPDX-License-Identifier: MPL-2.0

#include "jet/table/TableScan.h"

#include "jet/page/UsageMap.h"
#include "jet/table/LongValue.h"

namespace huebrush::jet {

namespace {

DataPage openPage(Pages& pages, const TableDefinition& table, PageNumber number) {
    DataPage page = DataPage::open(pages, number);
    if (page.owner() != table.page) throwDamage(number, 4, rule::kOwner);
    return page;
}

RowId targetOf(const DataPage& page, const DataPage::Slot& slot) {
    return RowId::of(page.row(slot).u32(0));
}

Row movedRow(Pages& pages, const TableDefinition& table, const DataPage& from,
             const DataPage::Slot& slot) {
    const RowId target = targetOf(from, slot);
    const DataPage page = openPage(pages, table, target.page);
    const DataPage::Slot there = page.slot(target.slot);
    if (there.flags != SlotFlag::kTarget) {
        throwDamage(from.number(), slot.offset, rule::kMovedOnce);
    }
    return {table, page.page(), page.row(there)};
}

}  // namespace

void scanTable(Pages& pages, const TableDefinition& table, const VisitRow& visit) {
    for (const PageNumber number : UsageMap(pages, table.ownedMap).all()) {
        if (number >= pages.count()) continue;
        const DataPage page = openPage(pages, table, number);
        for (std::size_t i = 0; i < page.slotCount(); ++i) {
            const DataPage::Slot slot = page.slot(i);
            if (slot.deleted() || slot.flags == SlotFlag::kTarget) continue;
            const Row row = slot.flags == SlotFlag::kMoved
                                ? movedRow(pages, table, page, slot)
                                : Row(table, page.page(), page.row(slot));
            if (!visit({number, static_cast<std::uint8_t>(i)}, row)) return;
        }
    }
}

std::optional<RowId> placeOfRow(Pages& pages, const TableDefinition& table, RowId row) {
    if (row.page >= pages.count()) return std::nullopt;
    const PagePointer content = pages.read(row.page);
    if ((*content)[0] != PageType::kData) return std::nullopt;
    const DataPage page(content, row.page);
    if (page.owner() != table.page) return std::nullopt;
    if (row.slot >= page.slotCount()) return std::nullopt;
    const DataPage::Slot slot = page.slot(row.slot);
    if (slot.deleted() || slot.flags == SlotFlag::kTarget) return std::nullopt;
    return slot.flags == SlotFlag::kMoved ? targetOf(page, slot) : row;
}

std::optional<Row> rowAt(Pages& pages, const TableDefinition& table, RowId row) {
    if (!placeOfRow(pages, table, row)) return std::nullopt;
    const DataPage page = openPage(pages, table, row.page);
    const DataPage::Slot slot = page.slot(row.slot);
    if (slot.flags == SlotFlag::kMoved) return movedRow(pages, table, page, slot);
    return Row(table, page.page(), page.row(slot));
}

Value valueOf(Pages& pages, const Row& row, const Column& column) {
    if (column.type == ColumnType::boolean) return row.has(column);
    const auto field = row.field(column);
    if (!field) return {};
    if (!column.isLongValue()) return decodeField(column, *field);
    Bytes bytes = long_value::read(pages, *field);
    if (column.type == ColumnType::memo) return decodeText(bytes);
    return bytes;
}

}  // namespace huebrush::jet
