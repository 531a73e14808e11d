// SPDX-License-Identifier: MPL-2.0

#include "Edits.h"

#include <stdexcept>

#include "jet/database/Schema.h"
#include "jet/database/Table.h"
#include "jet/table/Index.h"
#include "palette/PaletteFile.h"
#include "palette/mMakeDatabase.h"

namespace huebrush::fuzz {

namespace {

using jet::Column;
using jet::ColumnType;
using jet::Table;
using jet::Value;

constexpr const char* kNotes = "Notes";
constexpr std::size_t kMostRows = 64;
constexpr std::size_t kMostEdits = 24;

/// A value that a column takes.
Value goodValue(const Column& column, Script& script) {
    switch (column.type) {
        case ColumnType::text:
            return script.text(1 + script.below(column.length / 2U));
        case ColumnType::memo:
            return script.text(1U + script.u16() % 6000U);
        case ColumnType::ole:
            return script.bytes(script.u16());
        case ColumnType::binary:
            return script.bytes(script.below(column.length + 1U));
        default:
            // Small numbers, so that parents and keys meet.
            return static_cast<std::int32_t>(1 + script.below(8));
    }
}

/// A value that a column may refuse.
Value oddValue(const Column& column, Script& script) {
    switch (script.below(6)) {
        case 0:
            return {};
        case 1:
            return std::string();
        case 2:
            return 0.5 + script.u8();
        case 3:
            return script.bytes(script.below(600));
        case 4:
            return script.text(column.length / 2U + script.below(2));
        default:
            return script.i32();
    }
}

/// Values for every column, or for one in `share`.
Table::Values valuesFor(const Table& table, Script& script, std::uint8_t share) {
    const std::uint8_t care = script.u8();
    Table::Values values;
    std::uint8_t number = 0;
    for (const Column& column : table.definition().columns) {
        if (column.autonumber && care < 0xF0) continue;
        if (number++ % share != 0) continue;
        const bool isOdd = care >= 0xC0 && script.below(8) == 0;
        const bool isNull = !column.required && script.below(8) == 0;
        values.emplace_back(&column, isOdd    ? oddValue(column, script)
                                     : isNull ? Value()
                                              : goodValue(column, script));
    }
    return values;
}

std::optional<jet::RowId> anyRow(const Table& table, Script& script) {
    std::vector<jet::RowId> rows;
    table.scan([&](jet::RowId id, const jet::Row&) {
        rows.push_back(id);
        return rows.size() < kMostRows;
    });
    if (rows.empty()) return std::nullopt;
    return rows[script.below(rows.size())];
}

std::string anyTable(jet::Database& database, Script& script) {
    std::vector<std::string> names;
    for (const jet::StoredObject& object : database.objects()) {
        if (object.isUserTable()) names.push_back(object.name);
    }
    return names.empty() ? "" : names[script.below(names.size())];
}

void changeRow(jet::Database& database, Script& script) {
    Table table(database, anyTable(database, script));
    const std::size_t kind = script.below(4);
    if (kind < 2) {
        table.insert(valuesFor(table, script, 1));
        return;
    }
    const auto row = anyRow(table, script);
    if (!row) return;
    if (kind == 2) {
        table.update(*row,
                     valuesFor(table, script, static_cast<std::uint8_t>(1 + script.below(5))));
    } else {
        table.remove(*row);
    }
}

void makeTable(jet::Database& database, Script& script) {
    static constexpr ColumnType kTypes[] = {ColumnType::longInteger, ColumnType::text,
                                            ColumnType::memo, ColumnType::ole, ColumnType::binary};
    jet::NewTable table;
    table.name = script.text(1 + script.below(20));
    const std::size_t columns = 1 + script.below(12);
    for (std::size_t i = 0; i < columns; ++i) {
        const std::uint8_t traits = script.u8();
        table.columns.push_back({"c" + std::to_string(i), kTypes[script.below(std::size(kTypes))],
                                 1 + script.below(255), (traits & 1U) != 0, (traits & 2U) != 0});
    }
    const std::size_t indexes = script.below(3);
    for (std::size_t i = 0; i < indexes; ++i) {
        const std::uint8_t traits = script.u8();
        std::vector<std::string> keys;
        const std::size_t count = 1 + (traits >> 2U & 1U);
        while (keys.size() < count) keys.push_back("c" + std::to_string(script.below(columns)));
        table.indexes.push_back(
            {"i" + std::to_string(i), keys, (traits & 1U) != 0, (traits & 2U) != 0});
    }
    jet::createTable(database, table);
}

void relate(jet::Database& database, Script& script) {
    const std::string child = anyTable(database, script);
    const std::string parent = anyTable(database, script);
    const auto column = [&](const std::string& table) {
        const auto& columns = database.definition(table)->columns;
        return columns.at(script.below(columns.size())).name;
    };
    jet::createRelation(
        database, {script.text(1 + script.below(8)), child, column(child), parent, column(parent)});
}

void editOnce(jet::Database& database, Script& script) {
    switch (script.below(16)) {
        case 0:
            return makeTable(database, script);
        case 1:
            return relate(database, script);
        default:
            database.change([&] { changeRow(database, script); });
    }
}

palette::Record fill(std::int32_t order) {
    palette::Record record;
    for (const char* const name :
         {"OrderNumber", "Visible", "ForeColorRGB", "BackColorRGB", "Transparency", "GradientStyle",
          "GradientColorType", "GradientVariant", "GradientDegree", "PresetGradientType",
          "TextureType", "Type", "PresetTexture", "Pattern"}) {
        record.emplace_back(name, order);
    }
    if (order % 3 != 0) {
        record.emplace_back("TextureName", std::string(order % 2 == 0 ? "" : "Žula"));
        record.emplace_back("FillPreview",
                            jet::Bytes(static_cast<std::size_t>(order * order * order * 4), 7));
    }
    return record;
}

jet::Bytes makeGoodFile() {
    jet::MemoryFiles files;
    if (!palette::MakeDatabase(kFile, files)) throw std::runtime_error("no file was made");
    const auto database = jet::Database::open(files, kFile);
    jet::createTable(*database,
                     {kNotes,
                      {{"Key", ColumnType::longInteger, 0, false, true},
                       {"Number", ColumnType::longInteger, 0, true},
                       {"Title", ColumnType::text, 40, true},
                       {"Note", ColumnType::memo, 0, true},
                       {"Code", ColumnType::binary, 30, true}},
                      {{"Primary", {"Key"}, true, true}, {"Both", {"Title", "Number"}}}});
    palette::Palette palette{{{"Name", std::string("Podzim")}}, {}};
    for (std::int32_t order = 0; order < 12; ++order) palette.elements.push_back(fill(order));
    palette::addPalettes(*database, {palette, {{{"Name", std::string("Prázdná")}}, {}}});
    database->change([&] {
        Table notes(*database, kNotes);
        for (std::uint32_t i = 0; i < 24; ++i) {
            notes.insert(
                {{&notes.column("Number"), static_cast<std::int32_t>(i % 7)},
                 {&notes.column("Title"), std::string(i % 40U, 'a') + "ř"},
                 {&notes.column("Note"), std::string(i % 8U == 7U ? 2100U : i * 4U + 1U, 'n')},
                 {&notes.column("Code"), jet::Bytes(i % 31U, 3)}});
        }
    });
    return *files.files.at(kFile);
}

}  // namespace

const jet::Bytes& goodFile() {
    static const jet::Bytes kGood = makeGoodFile();
    return kGood;
}

void putFile(jet::MemoryFiles& files, const jet::Bytes& content) {
    files.files[kFile] = std::make_shared<jet::Bytes>(content);
}

bool attempt(Allowed allowed, const std::function<void()>& body) {
    try {
        body();
        return true;
    } catch (const base::Error& error) {
        const bool isOurMistake = error.number() == base::ErrorNumber::kInternal ||
                                  error.number() == jet::ErrorNumber::kDamaged;
        if (allowed == Allowed::refusals && isOurMistake) throw std::logic_error(error.what());
        return false;
    }
}

void readEverything(jet::Database& database, Allowed allowed) {
    for (const jet::StoredObject& object : database.objects()) {
        if (!object.isTable()) continue;
        attempt(allowed, [&] {
            const Table table(database,
                              database.definition(static_cast<jet::PageNumber>(object.id)));
            table.scan([&](jet::RowId id, const jet::Row& row) {
                for (const Column& column : table.definition().columns) table.value(row, column);
                return table.row(id).has_value();
            });
        });
        attempt(allowed, [&] {
            const auto table = database.definition(static_cast<jet::PageNumber>(object.id));
            for (const jet::IndexTree& tree : table->trees) {
                jet::Index(database.pages(), tree, table->page).walk([](jet::ByteView, jet::RowId) {
                    return true;
                });
            }
        });
    }
}

void edit(std::shared_ptr<jet::Database>& database, jet::MemoryFiles& files, Script& script,
          Allowed allowed) {
    for (std::size_t edits = 0; edits < kMostEdits && !script.atEnd();) {
        const std::size_t together = script.below(8);
        if (together == 0) {
            attempt(allowed, [&] { database = jet::Database::open(files, kFile); });
        }
        attempt(allowed, [&] {
            database->inOneCommit([&] {
                for (std::size_t i = 0; i <= together; ++i, ++edits) {
                    attempt(allowed, [&] { editOnce(*database, script); });
                }
            });
        });
    }
}

}  // namespace huebrush::fuzz
