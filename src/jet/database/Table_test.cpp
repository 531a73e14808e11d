// SPDX-License-Identifier: MPL-2.0

#include "jet/database/Table.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "jet/Palette_test_support.h"

namespace huebrush::jet {
namespace {

class Tables : public ::testing::Test {
 protected:
    ~Tables() override { EXPECT_EQ(faults(*file.database), ""); }

    std::int32_t errorOf(const std::function<void()>& body) {
        const Bytes before = *file.files.files.at(PaletteFile::kName);
        try {
            database.change(body);
        } catch (const base::Error& error) {
            message = error.description();
            EXPECT_NE(message, error.what()) << "it is in English for the command line";
            EXPECT_EQ(*file.files.files.at(PaletteFile::kName), before);
            return error.number();
        }
        return 0;
    }
    std::int32_t insertGroup(const Value& name, const Value& description = {}) {
        return errorOf([&] {
            Table table(database, "TFillGroup");
            table.insert(
                {{&table.column("Name"), name}, {&table.column("Description"), description}});
        });
    }
    std::int32_t insertElement(const Value& group, const Value& order, const Value& preview = {}) {
        return errorOf([&] {
            Table table(database, "TFillElementParameter");
            table.insert({{&table.column("GroupID"), group},
                          {&table.column("OrderNumber"), order},
                          {&table.column("FillPreview"), preview}});
        });
    }
    Bytes previewOf(std::int32_t id) {
        const Table table(database, "TFillElementParameter");
        const auto rows = table.find(table.column("ID"), id);
        return std::get<Bytes>(table.value(*table.row(rows.at(0)), table.column("FillPreview")));
    }
    void setPreview(std::int32_t id, const Value& value) {
        database.change([&] {
            Table table(database, "TFillElementParameter");
            table.update(table.find(table.column("ID"), id).at(0),
                         {{&table.column("FillPreview"), value}});
        });
    }
    std::size_t pageCount() { return database.pages().count(); }

    PaletteFile file;
    Database& database = *file.database;
    std::string message;
};

TEST_F(Tables, ANewFileIsEmptyAndItsFirstPaletteGetsTheNumber1) {
    EXPECT_TRUE(allRows(database, "TFillGroup").empty());
    EXPECT_TRUE(allRows(database, "TFillElementParameter").empty());
    EXPECT_EQ(insertGroup(std::string("Podzim")), 0);
    const auto rows = allRows(database, "TFillGroup");
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0], (std::vector<Value>{1, std::string("Podzim"), {}, {}}));
}

TEST_F(Tables, WhatWasWrittenIsThereAfterTheFileIsOpenedAgain) {
    addPalette(database, "Podzim", {0, 1, 2000});
    const auto again = Database::open(file.files, PaletteFile::kName);
    EXPECT_EQ(allRows(*again, "TFillElementParameter").size(), 3U);
    EXPECT_EQ(faults(*again), "");
}

TEST_F(Tables, ANameOf30CharactersFitsAndALongerOneIsRefused) {
    std::string name;
    for (int i = 0; i < 30; ++i) name += "č";
    EXPECT_EQ(insertGroup(name), 0);
    EXPECT_EQ(insertGroup(name + "x"), ErrorNumber::kTooLong);
    EXPECT_EQ(message, "Hodnota sloupce „Name“ je příliš dlouhá (nejvýše 30 znaků).");
    EXPECT_EQ(std::get<std::string>(allRows(database, "TFillGroup")[0][1]), name);
}

TEST_F(Tables, AnEmptyNameAndNoNameAreRefused) {
    EXPECT_EQ(insertGroup(std::string()), ErrorNumber::kEmptyNotAllowed);
    EXPECT_EQ(message, "Sloupec „Name“ tabulky „TFillGroup“ nesmí být prázdný text.");
    EXPECT_EQ(insertGroup(Value()), ErrorNumber::kNullNotAllowed);
    EXPECT_EQ(message, "Sloupec „Name“ tabulky „TFillGroup“ musí mít hodnotu.");
    EXPECT_EQ(allRows(database, "TFillGroup").size(), 0U);
}

TEST_F(Tables, ADescriptionMayBeNullOrEmpty) {
    EXPECT_EQ(insertGroup(std::string("a"), Value()), 0);
    EXPECT_EQ(insertGroup(std::string("b"), std::string()), 0);
    const auto rows = allRows(database, "TFillGroup");
    EXPECT_TRUE(isNull(rows[0][2]));
    EXPECT_EQ(rows[1][2], Value(std::string()));
}

TEST_F(Tables, AnElementWithoutItsPaletteIsRefused) {
    EXPECT_EQ(insertElement(1, 0), ErrorNumber::kNoParent);
    EXPECT_EQ(message,
              "Řádek nelze zapsat: vazba „Relace“ vyžaduje odpovídající řádek v tabulce "
              "„TFillGroup“.");
    const std::int32_t id = addPalette(database, "a", {});
    EXPECT_EQ(insertElement(id, 0), 0);
    EXPECT_EQ(insertElement(id + 1, 0), ErrorNumber::kNoParent);
    EXPECT_EQ(insertElement(Value(), 0), ErrorNumber::kNullNotAllowed);
    EXPECT_EQ(insertElement(id, Value()), ErrorNumber::kNullNotAllowed);
}

TEST_F(Tables, APaletteWithElementsIsNotDeleted) {
    const std::int32_t id = addPalette(database, "a", {10});
    const auto removeGroup = [&] {
        Table table(database, "TFillGroup");
        table.remove(table.find(table.column("ID"), id).at(0));
    };
    EXPECT_EQ(errorOf(removeGroup), ErrorNumber::kHasChildren);
    EXPECT_EQ(message,
              "Řádek nelze odstranit ani změnit: podle vazby „Relace“ na něj odkazují řádky "
              "tabulky „TFillElementParameter“.");
    database.change([&] {
        Table table(database, "TFillElementParameter");
        for (const RowId& row : table.find(table.column("GroupID"), id)) table.remove(row);
    });
    EXPECT_EQ(errorOf(removeGroup), 0);
}

TEST_F(Tables, AKeyThatOthersReferToDoesNotChange) {
    const std::int32_t id = addPalette(database, "a", {10});
    EXPECT_EQ(
        errorOf([&] {
            Table table(database, "TFillGroup");
            table.update(table.find(table.column("ID"), id).at(0), {{&table.column("ID"), 9}});
        }),
        ErrorNumber::kHasChildren);
}

TEST_F(Tables, AKeyDoesNotRepeat) {
    addPalette(database, "a", {});
    EXPECT_EQ(
        errorOf([&] {
            Table table(database, "TFillGroup");
            table.insert({{&table.column("ID"), 1}, {&table.column("Name"), std::string("b")}});
        }),
        ErrorNumber::kDuplicateKey);
    EXPECT_EQ(message,
              "Řádek nelze zapsat: v tabulce „TFillGroup“ by se opakovala hodnota jedinečného "
              "klíče „ID“.");
}

TEST_F(Tables, AGivenNumberRaisesTheAutonumber) {
    database.change([&] {
        Table table(database, "TFillGroup");
        table.insert({{&table.column("ID"), 40}, {&table.column("Name"), std::string("b")}});
    });
    EXPECT_EQ(addPalette(database, "c", {}), 41);
    erasePalette(database, 41);
    EXPECT_EQ(addPalette(database, "d", {}), 42);
}

TEST_F(Tables, AValueOfAnotherKindIsRefused) {
    EXPECT_EQ(insertGroup(Bytes{1}), ErrorNumber::kWrongType);
    const std::int32_t id = addPalette(database, "a", {});
    EXPECT_EQ(insertElement(id, 1, std::string("text")), ErrorNumber::kWrongType);
    EXPECT_EQ(insertElement(id, 3e9), base::ErrorNumber::kOverflow);
    EXPECT_EQ(insertElement(id, 2.5F), 0);
    EXPECT_EQ(allRows(database, "TFillElementParameter")[0][2], Value(2));
}

TEST_F(Tables, LongValuesOfAnySizeComeBack) {
    const std::vector<std::size_t> sizes{
        0,    1,    63,   64,   65,   2000,  4000,   4072,
        4073, 4076, 4077, 8144, 8145, 50000, 300000, (16U << 20U) / kShare};
    addPalette(database, "a", sizes);
    const auto rows = allRows(database, "TFillElementParameter");
    ASSERT_EQ(rows.size(), sizes.size());
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        EXPECT_EQ(rows[i][4], Value(patternBytes(sizes[i], static_cast<std::uint32_t>(i))));
    }
}

TEST_F(Tables, AReplacedLongValueGivesItsPagesBack) {
    addPalette(database, "a", {300000});
    const std::size_t before = pageCount();
    for (std::uint32_t i = 0; i < 5; ++i) {
        setPreview(1, patternBytes(290000 + i * 2000, i));
        EXPECT_EQ(previewOf(1), patternBytes(290000 + i * 2000, i));
    }
    EXPECT_LE(pageCount(), before + 80);
    setPreview(1, Value());
    const auto rows = allRows(database, "TFillElementParameter");
    EXPECT_TRUE(isNull(rows[0][4]));
}

TEST_F(Tables, ARowThatOutgrowsItsPageIsMovedAndFoundAgain) {
    const std::int32_t id = addPalette(database, "a", std::vector<std::size_t>(40, 0));
    const std::string longText(250, 'x');
    for (std::int32_t element = 1; element <= 40; ++element) {
        database.change([&] {
            Table table(database, "TFillElementParameter");
            table.update(table.find(table.column("ID"), element).at(0),
                         {{&table.column("TextureName"), longText}});
        });
    }
    ASSERT_EQ(faults(database), "");
    const Table table(database, "TFillElementParameter");
    EXPECT_EQ(table.find(table.column("GroupID"), id).size(), 40U);
    for (const auto& row : allRows(database, "TFillElementParameter")) {
        EXPECT_EQ(row[3], Value(longText));
    }
    // Smaller again, and gone: a moved row has two places to look after.
    database.change([&] {
        Table change(database, "TFillElementParameter");
        for (std::int32_t element = 1; element <= 20; ++element) {
            change.update(change.find(change.column("ID"), element).at(0),
                          {{&change.column("TextureName"), std::string("x")}});
        }
    });
    EXPECT_EQ(faults(database), "");
    erasePalette(database, id);
    EXPECT_TRUE(allRows(database, "TFillElementParameter").empty());
}

TEST_F(Tables, AnErrorOnElement7LeavesElements1To6) {
    const std::int32_t id = addPalette(database, "a", {});
    EXPECT_THROW(database.inOneCommit([&] {
        for (int i = 1; i <= 10; ++i) {
            database.change([&] {
                Table table(database, "TFillElementParameter");
                table.insert({{&table.column("GroupID"), i == 7 ? 99 : id},
                              {&table.column("OrderNumber"), i}});
            });
        }
    }),
                 base::Error);
    const auto again = Database::open(file.files, PaletteFile::kName);
    EXPECT_EQ(allRows(*again, "TFillElementParameter").size(), 6U);
}

TEST_F(Tables, AGroupIsWrittenInOneCommit) {
    file.files.record();
    database.inOneCommit([&] {
        addPalette(database, "a", {1, 2, 3});
        EXPECT_TRUE(file.files.actions.empty());
        EXPECT_EQ(allRows(database, "TFillElementParameter").size(), 3U);
    });
    std::size_t replaced = 0;
    for (const auto& action : file.files.actions) {
        if (action.kind == MemoryFiles::Action::Kind::replace) ++replaced;
    }
    EXPECT_EQ(replaced, 1U);
}

TEST_F(Tables, WhatAnotherWriterHasWrittenIsKept) {
    const auto other = Database::open(file.files, PaletteFile::kName);
    addPalette(*other, "theirs", {5});
    addPalette(database, "ours", {6});
    addPalette(*other, "theirs again", {7});
    database.refresh();
    EXPECT_EQ(allRows(database, "TFillGroup").size(), 3U);
}

TEST_F(Tables, NobodyElseWritesBeforeACommitHasOpenedWhatItWrote) {
    const auto other = Database::open(file.files, PaletteFile::kName);
    std::int32_t error = 0;
    bool tried = false;
    file.files.onCall = [&](const std::string& call) {
        if (tried || call != "syncFolder") return;
        tried = true;
        try {
            addPalette(*other, "theirs", {});
        } catch (const base::Error& refused) {
            error = refused.number();
        }
    };
    addPalette(database, "ours", {});
    file.files.onCall = nullptr;
    EXPECT_EQ(error, ErrorNumber::kInUse);
    addPalette(*other, "theirs", {});
    addPalette(database, "ours again", {});
    EXPECT_EQ(allRows(database, "TFillGroup").size(), 3U);
}

TEST_F(Tables, ATableWithAnUnknownOrderIsNotWritten) {
    // Another language's order for the name column of the catalogue.
    Bytes& bytes = *file.files.files.at(PaletteFile::kName);
    const Bytes english{0x09, 0x04, 0x00, 0x00};
    for (std::size_t at = 2 * kPageSize; at < 3 * kPageSize - 4; ++at) {
        if (std::equal(english.begin(), english.end(), bytes.begin() + static_cast<long>(at))) {
            bytes[at] = 0x05;
        }
    }
    const auto czech = Database::open(file.files, PaletteFile::kName);
    const Bytes before = bytes;
    try {
        createTable(*czech, {"T", {{"a", ColumnType::longInteger}}, {}});
        FAIL() << "no error";
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), ErrorNumber::kReadOnly);
    }
    EXPECT_EQ(*file.files.files.at(PaletteFile::kName), before);
    // The palettes' own tables can still be written.
    EXPECT_EQ(addPalette(*czech, "a", {10}), 1);
    file.database->refresh();
}

TEST(Database, RefusesWhatItDoesNotOpen) {
    const auto errorOf = [](const std::function<void(Bytes&)>& spoil) {
        PaletteFile file;
        Bytes& bytes = *file.files.files.at(PaletteFile::kName);
        spoil(bytes);
        try {
            Database::open(file.files, PaletteFile::kName);
        } catch (const base::Error& error) {
            return error.number();
        }
        return 0;
    };
    EXPECT_EQ(errorOf([](Bytes&) {}), 0);
    EXPECT_EQ(errorOf([](Bytes& bytes) { bytes.clear(); }), ErrorNumber::kNotADatabase);
    EXPECT_EQ(errorOf([](Bytes& bytes) { bytes[5] = 'x'; }), ErrorNumber::kNotADatabase);
    EXPECT_EQ(errorOf([](Bytes& bytes) { bytes[0x14] = 0; }), ErrorNumber::kNotSupported);
    EXPECT_EQ(errorOf([](Bytes& bytes) { bytes[0x14] = 2; }), ErrorNumber::kNotSupported);
    EXPECT_EQ(errorOf([](Bytes& bytes) { bytes[0x3E] ^= 1; }), ErrorNumber::kNotSupported);
    EXPECT_EQ(errorOf([](Bytes& bytes) { bytes[0x46] ^= 'p'; }), ErrorNumber::kPassword);
    EXPECT_EQ(errorOf([](Bytes& bytes) { bytes.resize(bytes.size() - 1); }), ErrorNumber::kDamaged);
    EXPECT_EQ(errorOf([](Bytes& bytes) { bytes.resize(3 * kPageSize); }), 0);
    EXPECT_EQ(errorOf([](Bytes& bytes) {
                  const std::string newer = "Standard ACE DB";
                  std::copy(newer.begin(), newer.end(), bytes.begin() + 4);
              }),
              ErrorNumber::kNotSupported);
}

TEST(Database, ATruncatedFileIsDamageAndNothingWorse) {
    PaletteFile file;
    file.files.files.at(PaletteFile::kName)->resize(5 * kPageSize);
    const auto cut = Database::open(file.files, PaletteFile::kName);
    EXPECT_THROW(cut->objects(), Damage);
    const auto violations = check(*cut).violations;
    EXPECT_TRUE(std::any_of(violations.begin(), violations.end(),
                            [](const Violation& each) { return each.rule == rule::kFileWhole; }));
}

TEST(Database, IsNotCreatedWhereAFileIs) {
    PaletteFile file;
    const Bytes before = *file.files.files.at(PaletteFile::kName);
    EXPECT_THROW(createDatabase(file.files, PaletteFile::kName), base::Error);
    EXPECT_EQ(*file.files.files.at(PaletteFile::kName), before);
    EXPECT_EQ(file.files.files.size(), 1U);
}

TEST(Database, ANewOneHas16Pages) {
    MemoryFiles files;
    createDatabase(files, "/new.mdb");
    EXPECT_EQ(files.files.at("/new.mdb")->size(), 16 * kPageSize);
    const auto database = Database::open(files, "/new.mdb");
    EXPECT_EQ(faults(*database), "");
    EXPECT_EQ(allRows(*database, "MSysObjects").size(), 8U);
    EXPECT_EQ(allRows(*database, "MSysACEs").size(), 16U);
}

TEST(Definition, OfManyColumnsTakesSeveralPages) {
    MemoryFiles files;
    createDatabase(files, "/wide.mdb");
    const auto database = Database::open(files, "/wide.mdb");
    NewTable wide{
        "Wide", {{"ID", ColumnType::longInteger, 0, false, true}}, {{"P", {"ID"}, true, true}}};
    for (int i = 0; i < 200; ++i) {
        wide.columns.push_back(
            {"Sloupec s dlouhým jménem č. " + std::to_string(i), ColumnType::longInteger, 0, true});
    }
    createTable(*database, wide);
    const auto table = database->definition("Wide");
    EXPECT_GE(table->pages.size(), 3U);
    EXPECT_EQ(table->columns.size(), 201U);
    database->change([&] {
        Table change(*database, "Wide");
        change.insert({{&change.column("Sloupec s dlouhým jménem č. 199"), 7}});
    });
    EXPECT_EQ(allRows(*database, "Wide")[0][200], Value(7));
    EXPECT_EQ(faults(*database), "");
}

TEST(Relation, IsNotMadeOverRowsThatBreakIt) {
    MemoryFiles files;
    createDatabase(files, "/r.mdb");
    const auto database = Database::open(files, "/r.mdb");
    createTable(*database, {"P", {{"ID", ColumnType::longInteger}}, {{"K", {"ID"}, true, true}}});
    createTable(*database, {"C", {{"P", ColumnType::longInteger}}, {}});
    const auto add = [&](const char* name, const char* column, std::int32_t value) {
        database->change([&] {
            Table table(*database, name);
            table.insert({{&table.column(column), value}});
        });
    };
    add("C", "P", 3);
    EXPECT_THROW(createRelation(*database, {"R", "C", "P", "P", "ID"}), base::Error);
    EXPECT_EQ(faults(*database), "");
    add("P", "ID", 3);
    createRelation(*database, {"R", "C", "P", "P", "ID"});
    EXPECT_EQ(faults(*database), "");
    EXPECT_THROW(add("C", "P", 4), base::Error);
    add("C", "P", 3);
    EXPECT_EQ(faults(*database), "");
    EXPECT_THROW(createRelation(*database, {"R", "C", "P", "P", "ID"}), base::Error);
}

TEST(Relation, NeedsAnOrderForEachValueThatIsThere) {
    MemoryFiles files;
    createDatabase(files, "/r.mdb");
    const auto database = Database::open(files, "/r.mdb");
    createTable(*database, {"P", {{"Name", ColumnType::text, 9}}, {{"K", {"Name"}, true, true}}});
    createTable(*database, {"C", {{"P", ColumnType::text, 9}}, {}});
    database->change([&] {
        Table table(*database, "C");
        table.insert({{&table.column("P"), std::string("文")}});
    });
    EXPECT_THROW(createRelation(*database, {"R", "C", "P", "P", "Name"}), base::Error);
    EXPECT_EQ(faults(*database), "");
}

}  // namespace
}  // namespace huebrush::jet
