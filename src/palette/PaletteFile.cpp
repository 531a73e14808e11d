// SPDX-License-Identifier: MPL-2.0

#include "palette/PaletteFile.h"

#include <algorithm>
#include <compare>
#include <optional>

#include "jet/database/Table.h"

namespace huebrush::palette {

namespace {

using jet::Table;
using jet::Value;

std::int32_t numberOf(const Table& table, const jet::Row& row, const char* name) {
    const jet::Column* const column = table.definition().find(name);
    if (column == nullptr) return 0;
    const Value value = table.value(row, *column);
    const auto* number = std::get_if<std::int32_t>(&value);
    return number == nullptr ? 0 : *number;
}

/// What a row is sorted by, and where it is; no two rows have the same.
struct SortedRow {
    std::int32_t first = 0;
    std::int32_t second = 0;
    jet::RowId id;

    // NOLINTNEXTLINE(modernize-use-nullptr): clang-tidy mistakes the 0 that the operator returns
    friend auto operator<=>(const SortedRow&, const SortedRow&) = default;
};
using VisitSorted = std::function<void(const SortedRow&)>;
using ForEachRow = std::function<void(const VisitSorted& visit)>;

/// The first rows after `last`, sorted: as many as are sorted at once, or all that are left.
std::vector<SortedRow> nextRows(const ForEachRow& forEach, const std::optional<SortedRow>& last,
                                std::size_t most) {
    std::vector<SortedRow> rows;
    const auto keepFirst = [&] {
        if (rows.size() <= most) return;
        const auto end = rows.begin() + static_cast<std::ptrdiff_t>(most);
        std::nth_element(rows.begin(), end, rows.end());
        rows.erase(end, rows.end());
    };
    forEach([&](const SortedRow& row) {
        if (last && row <= *last) return;
        if (rows.size() == 2 * most) keepFirst();
        rows.push_back(row);
    });
    keepFirst();
    std::sort(rows.begin(), rows.end());
    return rows;
}

/// Visits rows in order. If there are more than are sorted at once, the table is read several
/// times, so that the memory is bounded.
void visitInOrder(const Table& table, const ForEachRow& forEach, const jet::VisitRow& visit,
                  std::size_t sortedAtOnce) {
    std::optional<SortedRow> last;
    for (;;) {
        const std::vector<SortedRow> rows = nextRows(forEach, last, sortedAtOnce);
        for (const SortedRow& each : rows) {
            if (const auto row = table.row(each.id)) visit(each.id, *row);
        }
        if (rows.size() < sortedAtOnce) return;
        last = rows.back();
    }
}

void visitGroups(const Table& groups, const jet::VisitRow& visit,
                 std::size_t sortedAtOnce = kSortedAtOnce) {
    const auto forEach = [&](const VisitSorted& sorted) {
        groups.scan([&](jet::RowId id, const jet::Row& row) {
            sorted({numberOf(groups, row, "ID"), 0, id});
            return true;
        });
    };
    visitInOrder(groups, forEach, visit, sortedAtOnce);
}

void visitFills(const Table& elements, const Value& group, const jet::VisitRow& visit,
                std::size_t sortedAtOnce = kSortedAtOnce) {
    const jet::Column& column = elements.column("GroupID");
    const auto forEach = [&](const VisitSorted& sorted) {
        elements.visitRows(column, group, [&](jet::RowId id) {
            if (const auto row = elements.row(id)) {
                sorted(
                    {numberOf(elements, *row, "OrderNumber"), numberOf(elements, *row, "ID"), id});
            }
            return true;
        });
    };
    visitInOrder(elements, forEach, visit, sortedAtOnce);
}

std::vector<Record> recordsOf(const Table& table,
                              const std::function<void(const jet::VisitRow&)>& visitRows) {
    std::vector<Record> records;
    visitRows([&](jet::RowId, const jet::Row& row) {
        records.push_back(recordOf(table, row));
        return true;
    });
    return records;
}

Table::Values valuesFor(const Table& table, const Record& record) {
    Table::Values values;
    for (const auto& [name, value] : record) values.emplace_back(&table.column(name), value);
    return values;
}

bool has(const Table::Values& values, const jet::Column& column) {
    return std::any_of(values.begin(), values.end(),
                       [&](const auto& each) { return each.first == &column; });
}

/// Overrides the value that a row may have for a column.
void set(Table::Values& values, const jet::Column& column, std::int32_t value) {
    const auto found = std::find_if(values.begin(), values.end(),
                                    [&](const auto& each) { return each.first == &column; });
    if (found == values.end()) {
        values.emplace_back(&column, value);
    } else {
        found->second = value;
    }
}

void removeId(const Table& table, Table::Values& values) {
    const jet::Column& id = table.column("ID");
    std::erase_if(values, [&](const auto& each) { return each.first == &id; });
}

/// An index on the name would find names that merely compare equal, so all rows are read.
std::vector<jet::RowId> rowsNamed(const Table& groups, const std::string& name) {
    std::vector<jet::RowId> found;
    groups.scan([&](jet::RowId id, const jet::Row& row) {
        if (groups.value(row, groups.column("Name")) == Value(name)) found.push_back(id);
        return true;
    });
    return found;
}

}  // namespace

const Value& valueOf(const Record& record, std::string_view column) {
    static const Value kNull;
    const auto found = std::find_if(record.begin(), record.end(),
                                    [&](const auto& named) { return named.first == column; });
    return found == record.end() ? kNull : found->second;
}

Record recordOf(const Table& table, const jet::Row& row) {
    Record record;
    for (const jet::Column& column : table.definition().columns) {
        record.emplace_back(column.name, table.value(row, column));
    }
    return record;
}

std::vector<Record> listPalettes(jet::Database& database) {
    const Table groups(database, kGroupTable);
    return recordsOf(groups, [&](const jet::VisitRow& visit) { visitGroups(groups, visit); });
}

std::vector<Record> palettesNamed(jet::Database& database, const std::string& name) {
    std::vector<Record> palettes = listPalettes(database);
    std::erase_if(palettes,
                  [&](const Record& each) { return valueOf(each, "Name") != Value(name); });
    return palettes;
}

std::vector<Record> fillsOf(jet::Database& database, const Value& id) {
    const Table elements(database, kElementTable);
    return recordsOf(elements,
                     [&](const jet::VisitRow& visit) { visitFills(elements, id, visit); });
}

void visitPalettes(jet::Database& database, PaletteVisitor& visitor, std::size_t sortedAtOnce) {
    const Table groups(database, kGroupTable);
    const Table elements(database, kElementTable);
    visitGroups(
        groups,
        [&](jet::RowId, const jet::Row& group) {
            visitor.begin(groups, group);
            const Value id = groups.value(group, groups.column("ID"));
            visitFills(
                elements, id,
                [&](jet::RowId, const jet::Row& fill) {
                    visitor.fill(elements, fill);
                    return true;
                },
                sortedAtOnce);
            visitor.end();
            return true;
        },
        sortedAtOnce);
}

void PaletteAdder::begin(const Values& group) {
    Values values = group;
    removeId(groups_, values);
    set(values, groups_.column("Count"), 0);
    for (const jet::Column& column : groups_.definition().columns) {
        // What is not known yet has a placeholder until the end.
        if (!column.required || has(values, column) || column.autonumber) continue;
        values.emplace_back(&column, 0);
        if (column.isText()) values.back().second = std::string("?");
    }
    row_ = groups_.insert(values);
    id_ = groups_.lastAutonumber();
    count_ = 0;
}

void PaletteAdder::fill(const Values& fill) {
    Values values = fill;
    removeId(elements_, values);
    set(values, elements_.column("GroupID"), id_);
    const jet::Column& order = elements_.column("OrderNumber");
    if (!has(values, order)) values.emplace_back(&order, count_);
    elements_.insert(values);
    ++count_;
}

void PaletteAdder::end(const Values& group) {
    Values values = group;
    removeId(groups_, values);
    set(values, groups_.column("Count"), count_);
    for (const jet::Column& column : groups_.definition().columns) {
        if (column.required && !has(values, column) && !column.autonumber) {
            values.emplace_back(&column, std::monostate());
        }
    }
    groups_.update(row_, values);
}

std::vector<Record> addPalettes(jet::Database& database, const std::vector<Palette>& palettes) {
    std::vector<Record> added;
    database.change([&] {
        PaletteAdder adder(database);
        for (const Palette& palette : palettes) {
            const Table::Values group = valuesFor(adder.groups(), palette.group);
            adder.begin(group);
            for (const Record& element : palette.elements) {
                adder.fill(valuesFor(adder.elements(), element));
            }
            adder.end(group);
            added.push_back(recordOf(adder.groups(), *adder.groups().row(adder.row())));
        }
    });
    return added;
}

std::size_t removePalettes(jet::Database& database, const std::string& name) {
    Table groups(database, kGroupTable);
    Table elements(database, kElementTable);
    const std::vector<jet::RowId> named = rowsNamed(groups, name);
    for (const jet::RowId group : named) {
        const Value id = groups.value(*groups.row(group), groups.column("ID"));
        for (const jet::RowId each : elements.find(elements.column("GroupID"), id)) {
            elements.remove(each);
        }
        groups.remove(group);
    }
    return named.size();
}

std::size_t erasePalettes(jet::Database& database, const std::string& name) {
    std::size_t erased = 0;
    database.change([&] { erased = removePalettes(database, name); });
    return erased;
}

}  // namespace huebrush::palette
