// SPDX-License-Identifier: MPL-2.0

#include "jet/Palette_test_support.h"

#include <algorithm>
#include <cstdlib>

namespace huebrush::jet {

std::size_t casesOf(std::size_t all, std::size_t everyDay) {
    return std::getenv("HUEBRUSH_LONG") != nullptr ? all : everyDay / kShare;
}

void createPaletteFile(FileSystem& files, const std::string& name) {
    createDatabase(files, name);
    createPaletteTables(*Database::open(files, name));
}

void createPaletteTables(Database& database) {
    using T = ColumnType;
    database.inOneCommit([&] {
        createTable(database, {"TFillGroup",
                               {{"ID", T::longInteger, 0, false, true},
                                {"Name", T::text, 30},
                                {"Description", T::text, 255, true},
                                {"Count", T::longInteger, 0, true}},
                               {{"PIXTFillGroup", {"ID"}, true, true}}});
        setColumnProperty(database, "TFillGroup", "Description", "AllowZeroLength", true);
        createTable(database, {"TFillElementParameter",
                               {{"ID", T::longInteger, 0, false, true},
                                {"GroupID", T::longInteger},
                                {"OrderNumber", T::longInteger},
                                {"TextureName", T::text, 255, true},
                                {"FillPreview", T::ole, 0, true}},
                               {{"PIXTFillElementParameter", {"ID"}, true, true}}});
        setColumnProperty(database, "TFillElementParameter", "TextureName", "AllowZeroLength",
                          true);
        createRelation(database,
                       {"Relace", "TFillElementParameter", "GroupID", "TFillGroup", "ID"});
    });
}

std::int32_t addPalette(Database& database, const std::string& name,
                        const std::vector<std::size_t>& previews) {
    std::int32_t id = 0;
    database.change([&] {
        Table table(database, "TFillGroup");
        table.insert({{&table.column("Name"), name},
                      {&table.column("Count"), static_cast<std::int32_t>(previews.size())}});
        id = table.lastAutonumber();
    });
    std::int32_t order = 0;
    for (const std::size_t size : previews) {
        database.change([&] {
            Table table(database, "TFillElementParameter");
            table.insert({{&table.column("GroupID"), id},
                          {&table.column("OrderNumber"), order},
                          {&table.column("TextureName"),
                           std::string(static_cast<std::size_t>(order) % 7 * 9, 't') + "ěšč"},
                          {&table.column("FillPreview"),
                           patternBytes(size, static_cast<std::uint32_t>(order))}});
        });
        ++order;
    }
    return id;
}

void erasePalette(Database& database, std::int32_t id) {
    database.change([&] {
        Table elements(database, "TFillElementParameter");
        for (const RowId& row : elements.find(elements.column("GroupID"), id)) elements.remove(row);
        Table groups(database, "TFillGroup");
        for (const RowId& row : groups.find(groups.column("ID"), id)) groups.remove(row);
    });
}

namespace {

std::string linesOf(const CheckResult& result, bool withWaste) {
    std::string lines;
    for (const Violation& each : result.violations) {
        if (withWaste || each.severity == Severity::damage) lines += each.text() + "\n";
    }
    return lines;
}

}  // namespace

std::string faults(Database& database) {
    return linesOf(check(database), true);
}

std::string damage(Database& database) {
    return linesOf(check(database), false);
}

PageNumber lostPages(Database& database) {
    PageNumber lost = 0;
    for (const Violation& each : check(database).violations) {
        if (each.rule == rule::kOwned) lost += each.pages;
    }
    return lost;
}

Bytes patternBytes(std::size_t size, std::uint32_t seed) {
    Bytes bytes(size);
    std::uint32_t state = seed * 2654435761U + 12345U;
    for (std::uint8_t& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<std::uint8_t>(state >> 24U);
    }
    return bytes;
}

void makeMapPage(Pages& pages) {
    while (pages.count() < 6) pages.append();
    Page& page = pages.change(0);
    clearDataPage(page, 0);
    Bytes free = emptyMap();
    std::fill(free.begin() + 5, free.end(), std::uint8_t{0xFF});
    addRow(page, 0, free, SlotFlag::kNone);
    addRow(page, 0, emptyMap(), SlotFlag::kNone);
    for (PageNumber used = 0; used < pages.count(); ++used) UsageMap(pages, {0, 0}).drop(used);
}

std::vector<std::vector<Value>> allRows(Database& database, const std::string& name) {
    const Table table(database, name);
    std::vector<std::vector<Value>> rows;
    table.scan([&](RowId, const Row& row) {
        std::vector<Value> values;
        for (const Column& column : table.definition().columns) {
            values.push_back(table.value(row, column));
        }
        rows.push_back(std::move(values));
        return true;
    });
    return rows;
}

}  // namespace huebrush::jet
