#include "palette/PaletteFile.h"

#include <algorithm>

#include "jet/database/Table.h"

namespace huebrush::palette {

namespace {

using jet::Table;
using jet::Value;

Record recordOf(const Table& table, const jet::Row& row) {
    Record record;
    for (const jet::Column& column : table.definition().columns) {
        record.emplace_back(column.name, table.value(row, column));
    }
    return record;
}

std::int32_t numberOf(const Record& record, const std::string& column) {
    const auto* number = std::get_if<std::int32_t>(&valueOf(record, column));
    return number == nullptr ? 0 : *number;
}

void sortBy(const std::string& column, std::vector<Record>& records) {
    std::stable_sort(records.begin(), records.end(), [&](const Record& a, const Record& b) {
        return numberOf(a, column) < numberOf(b, column);
    });
}

bool has(const Record& record, const std::string& column) {
    return std::any_of(record.begin(), record.end(),
                       [&](const auto& named) { return named.first == column; });
}

/// What a table is to get for a record, of which the values in `given` are known better.
Table::Values valuesFor(const Table& table, const Record& record, const Record& given) {
    Table::Values values;
    const auto add = [&](const auto& named) {
        values.emplace_back(&table.column(named.first), named.second);
    };
    for (const auto& named : record) {
        if (!has(given, named.first) && named.first != "ID") add(named);
    }
    std::for_each(given.begin(), given.end(), add);
    return values;
}

/// An index on the name would find names that only compare alike, so all rows are looked at.
std::vector<jet::RowId> rowsNamed(const Table& groups, const std::string& name) {
    std::vector<jet::RowId> found;
    groups.scan([&](jet::RowId id, const jet::Row& row) {
        if (groups.value(row, groups.column("Name")) == Value(name)) found.push_back(id);
        return true;
    });
    return found;
}

/// Adds one palette. Where its row is.
jet::RowId addPalette(Table& groups, Table& elements, const Palette& palette) {
    const auto count = static_cast<std::int32_t>(palette.elements.size());
    const jet::RowId row = groups.insert(valuesFor(groups, palette.group, {{"Count", count}}));
    const std::int32_t id = groups.lastAutonumber();
    std::int32_t place = 0;
    for (const Record& element : palette.elements) {
        Record given{{"GroupID", id}};
        if (!has(element, "OrderNumber")) given.emplace_back("OrderNumber", place);
        elements.insert(valuesFor(elements, element, given));
        ++place;
    }
    return row;
}

}  // namespace

const Value& valueOf(const Record& record, const std::string& column) {
    static const Value kNull;
    const auto found = std::find_if(record.begin(), record.end(),
                                    [&](const auto& named) { return named.first == column; });
    return found == record.end() ? kNull : found->second;
}

std::vector<Record> listPalettes(jet::Database& database) {
    const Table groups(database, kGroupTable);
    std::vector<Record> found;
    groups.scan([&](jet::RowId, const jet::Row& row) {
        found.push_back(recordOf(groups, row));
        return true;
    });
    sortBy("ID", found);
    return found;
}

std::vector<Record> fillsOf(jet::Database& database, const Value& id) {
    const Table elements(database, kElementTable);
    std::vector<Record> fills;
    for (const jet::RowId each : elements.find(elements.column("GroupID"), id)) {
        if (const auto row = elements.row(each)) fills.push_back(recordOf(elements, *row));
    }
    sortBy("ID", fills);
    sortBy("OrderNumber", fills);
    return fills;
}

void visitPalettes(jet::Database& database, const VisitPalette& visit) {
    database.definition(kElementTable);
    for (Record& group : listPalettes(database)) {
        std::vector<Record> fills = fillsOf(database, valueOf(group, "ID"));
        visit({std::move(group), std::move(fills)});
    }
}

std::vector<Record> addPalettes(jet::Database& database, const std::vector<Palette>& palettes) {
    std::vector<Record> added;
    database.change([&] {
        Table groups(database, kGroupTable);
        Table elements(database, kElementTable);
        for (const Palette& palette : palettes) {
            const jet::RowId row = addPalette(groups, elements, palette);
            added.push_back(recordOf(groups, *groups.row(row)));
        }
    });
    return added;
}

std::size_t erasePalettes(jet::Database& database, const std::string& name) {
    std::size_t erased = 0;
    database.change([&] {
        Table groups(database, kGroupTable);
        Table elements(database, kElementTable);
        for (const jet::RowId group : rowsNamed(groups, name)) {
            const Value id = groups.value(*groups.row(group), groups.column("ID"));
            for (const jet::RowId each : elements.find(elements.column("GroupID"), id)) {
                elements.remove(each);
            }
            groups.remove(group);
            ++erased;
        }
    });
    return erased;
}

}  // namespace huebrush::palette
