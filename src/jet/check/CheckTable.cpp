// SPDX-License-Identifier: MPL-2.0

// The pages, rows and long values of one table.

#include <algorithm>

#include "base/Text.h"
#include "jet/check/Check.h"
#include "jet/table/LongValue.h"

namespace huebrush::jet {

namespace {

using base::text;

class TableCheck {
 public:
    TableCheck(CheckContext& context, const TableDefinition& table)
        : context_(context), pages_(context.database.pages()), table_(table) {}

    void run() {
        for (const PageNumber page : table_.pages) context_.claim(page);
        for (const Column& column : table_.columns) claimLongValues(column);
        context_.attempt([&] { claimMaps(); });
        for (const PageNumber page : UsageMap(pages_, table_.ownedMap).all()) {
            if (page >= pages_.count()) continue;
            context_.claim(page);
            context_.attempt([&] { checkPage(page); });
        }
        checkTargets();
        checkLongRows();
        checkCounters();
        for (std::size_t i = 0; i < table_.trees.size(); ++i) {
            context_.attempt([&] { checkIndex(context_, table_, table_.trees[i], keys_[i]); });
        }
    }

 private:
    void claimMaps() {
        context_.claimMap(table_.ownedMap);
        context_.claimMap(table_.freeMap);
        checkRoom(table_.ownedMap, table_.freeMap);
    }

    /// Pages with room are pages of the object.
    void checkRoom(RowId ownedMap, RowId freeMap) {
        const UsageMap owned(pages_, ownedMap);
        for (const PageNumber page : UsageMap(pages_, freeMap).all()) {
            if (owned.has(page)) continue;
            context_.violate(page, 0, rule::kMapPage, "listed as having room, but not as owned");
        }
    }

    void claimLongValues(const Column& column) {
        if (!column.isLongValue() || column.ownedMap.page == 0) return;
        context_.attempt([&] {
            context_.claimMap(column.ownedMap);
            if (column.freeMap.page != 0) {
                context_.claimMap(column.freeMap);
                checkRoom(column.ownedMap, column.freeMap);
            }
            for (const PageNumber page : UsageMap(pages_, column.ownedMap).all()) {
                if (page >= pages_.count()) continue;
                context_.claim(page);
                longPages_[page] = column.number;
                const DataPage data = DataPage::open(pages_, page);
                checkOwner(page, data.owner(), kLongValueOwner);
                checkFreeBytes(data);
            }
        });
    }

    void checkOwner(PageNumber page, std::uint32_t named, std::uint32_t owner) {
        if (named == owner) return;
        context_.violate(page, 4, rule::kOwner, text(named, " instead of ", owner));
    }

    void checkFreeBytes(const DataPage& page) {
        if (page.freeBytes() != page.statedFreeBytes()) {
            context_.violate(page.number(), 2, rule::kFreeBytes,
                             text(page.statedFreeBytes(), " instead of ", page.freeBytes()));
        }
    }

    void checkPage(PageNumber number) {
        const DataPage page = DataPage::open(pages_, number);
        checkOwner(number, page.owner(), table_.page);
        checkFreeBytes(page);
        for (std::size_t i = 0; i < page.slotCount(); ++i) {
            const DataPage::Slot slot = page.slot(i);
            const RowId id{number, static_cast<std::uint8_t>(i)};
            if (slot.deleted()) continue;
            if (slot.flags == SlotFlag::kTarget) {
                targets_.insert(id);
                continue;
            }
            if (slot.flags == SlotFlag::kMoved) {
                const RowId target = RowId::of(page.row(slot).u32(0));
                if (!reached_.insert(target).second) {
                    context_.violate(
                        number, slot.offset, rule::kMovedOnce,
                        text("a second pointer to page ", target.page, ", row ", int{target.slot}));
                }
            }
            context_.attempt([&] {
                if (const auto row = rowAt(pages_, table_, id)) checkRow(id, *row);
            });
        }
    }

    void checkRow(RowId id, const Row& row) {
        ++rows_;
        for (const Column& column : table_.columns) {
            if (column.required && !row.has(column) && column.type != ColumnType::boolean) {
                context_.violate(id.page, row.bytes().origin(), rule::kRequired,
                                 text("column ", column.name, ", row ", int{id.slot}));
            }
            const auto field = row.field(column);
            if (!field) continue;
            if (column.isLongValue()) {
                checkLongValue(column, *field);
            } else {
                const Value value = decodeField(column, *field);
                if (column.autonumber && column.type == ColumnType::longInteger) {
                    highest_ = std::max(highest_, std::get<std::int32_t>(value));
                }
            }
        }
        keys_.resize(table_.trees.size());
        for (std::size_t i = 0; i < table_.trees.size(); ++i) {
            std::optional<Key> key;
            if (keysKnown(table_, table_.trees[i])) {
                key = encodeKey(table_, table_.trees[i],
                                [&](const Column& column) { return valueOf(pages_, row, column); });
            }
            keys_[i][id] = std::move(key);
        }
    }

    void checkLongValue(const Column& column, const Reader& field) {
        context_.attempt([&] {
            long_value::visitParts(pages_, field, [&](RowId part) {
                if (!longRows_.insert(part).second) {
                    context_.violate(part.page, context_.offsetOf(part), rule::kLongOnce,
                                     text("column ", column.name));
                }
                const auto owner = longPages_.find(part.page);
                if (owner == longPages_.end() || owner->second != column.number) {
                    context_.violate(part.page, context_.offsetOf(part), rule::kLongOwned,
                                     text("column ", column.name));
                }
            });
        });
    }

    void checkTargets() {
        for (const RowId& target : targets_) {
            if (!reached_.contains(target)) {
                context_.violate(target.page, context_.offsetOf(target), rule::kMovedOnce,
                                 text("no pointer leads to row ", int{target.slot}));
            }
        }
    }

    /// Each part of a long value belongs to a row. Not every program removes the parts with the
    /// row, and the platform leaves some behind in its own system tables.
    void checkLongRows() {
        if (isSystem()) return;
        for (const auto& [number, column] : longPages_) {
            context_.attempt([&, page = number] {
                const DataPage data = DataPage::open(pages_, page);
                for (std::size_t i = 0; i < data.slotCount(); ++i) {
                    const RowId part{page, static_cast<std::uint8_t>(i)};
                    if (!data.slot(i).deleted() && !longRows_.contains(part)) {
                        context_.waste(page, data.slot(i).offset, rule::kLongUsed,
                                       text(data.slot(i).size(), " bytes"));
                    }
                }
            });
        }
    }

    void checkCounters() {
        keys_.resize(table_.trees.size());
        const std::uint32_t stored = readRowCount(pages_, table_.page);
        if (!isSystem() && rows_ != stored) {
            context_.violate(table_.page, 16, rule::kRowCount, text(stored, " instead of ", rows_));
        }
        const std::uint32_t last = readLastAutonumber(pages_, table_.page);
        if (highest_ > 0 && static_cast<std::uint32_t>(highest_) > last) {
            context_.violate(table_.page, 20, rule::kAutonumber,
                             text(last, ", but a row has ", highest_));
        }
    }

    bool isSystem() const { return table_.system || table_.name.rfind("MSys", 0) == 0; }

    CheckContext& context_;
    Pages& pages_;
    const TableDefinition& table_;
    std::uint32_t rows_ = 0;
    std::int32_t highest_ = 0;
    std::set<RowId> targets_;
    std::set<RowId> reached_;
    std::map<PageNumber, std::uint16_t> longPages_;
    std::set<RowId> longRows_;
    std::vector<RowKeys> keys_;
};

}  // namespace

void checkTable(CheckContext& context, const TableDefinition& table) {
    TableCheck(context, table).run();
}

}  // namespace huebrush::jet
