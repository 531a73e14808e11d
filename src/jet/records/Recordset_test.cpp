// SPDX-License-Identifier: MPL-2.0

#include "jet/records/Recordset.h"

#include <algorithm>

#include "jet/records/Records_test_support.h"

namespace huebrush::jet {
namespace {

const std::string kGroups = "SELECT TFillGroup.* From TFillGroup ORDER BY Name";
const std::string kElements = "SELECT TFillElementParameter.* From TFillElementParameter";

std::string elementsOf(std::int32_t id) {
    return kElements + " Where (GroupID =" + std::to_string(id) + ")ORDER BY OrderNumber";
}

class Recordsets : public OnPaletteFile {
 protected:
    Recordsets() { connection.Open(toFile); }
    ~Recordsets() override {
        file.files.onCall = nullptr;
        file.database->refresh();
        EXPECT_EQ(faults(*file.database), "");
    }

    static std::string nameOf(Recordset& groups) {
        return std::get<std::string>(groups.Field("Name"));
    }
    static std::vector<Value> column(Recordset& records, const std::string& name) {
        std::vector<Value> values;
        if (records.RecordCount() != 0) records.MoveFirst();
        for (; !records.Eof(); records.MoveNext()) values.push_back(records.Field(name));
        return values;
    }
    static std::vector<std::string> names(Recordset& groups) {
        std::vector<std::string> texts;
        for (const Value& each : column(groups, "Name")) {
            texts.push_back(std::get<std::string>(each));
        }
        return texts;
    }
    static void addGroup(Recordset& groups, const std::string& name) {
        groups.AddNew();
        groups.SetField("Name", name);
        groups.Update();
    }
    std::vector<std::vector<Value>> rows(const char* table) {
        file.database->refresh();
        return allRows(*file.database, table);
    }
    /// Another program's change of a palette's name.
    void renameElsewhere(std::int32_t id, const std::string& name) {
        const auto other = Database::open(file.files, PaletteFile::kName);
        other->change([&] {
            Table table(*other, "TFillGroup");
            table.update(table.find(table.column("ID"), id).at(0), {{&table.column("Name"), name}});
        });
    }

    Connection connection{file.files};
    Recordset groups;
};

TEST_F(Recordsets, OfAnEmptyTableAreAtTheirBeginningAndAtTheirEnd) {
    groups.Open(kGroups, connection);
    EXPECT_TRUE(groups.Bof());
    EXPECT_TRUE(groups.Eof());
    EXPECT_EQ(groups.RecordCount(), 0U);
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditNone);
    EXPECT_EQ(errorOf([&] { groups.MoveFirst(); }), ErrorNumber::kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { groups.MoveNext(); }), ErrorNumber::kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { groups.Find("ID=1"); }), ErrorNumber::kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { groups.Field("Name"); }), ErrorNumber::kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { groups.SetField("Name", std::string("a")); }),
              ErrorNumber::kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { groups.Delete(); }), ErrorNumber::kNoCurrentRecord);
    EXPECT_EQ(message, "Žádný záznam není aktuální.");
}

TEST_F(Recordsets, AreOpenedOnceAndClosedOnce) {
    EXPECT_EQ(groups.State(), ObjectStateEnum::adStateClosed);
    for (const std::function<void()>& use : {std::function<void()>([&] { groups.Close(); }),
                                             {[&] { groups.Eof(); }},
                                             {[&] { groups.AddNew(); }},
                                             {[&] { groups.Update(); }},
                                             {[&] { groups.EditMode(); }},
                                             {[&] { groups.CancelUpdate(); }},
                                             {[&] { groups.Requery(); }},
                                             {[&] { groups.MoveFirst(); }},
                                             {[&] { groups.MoveNext(); }},
                                             {[&] { groups.Find("ID=1"); }},
                                             {[&] { groups.Delete(); }},
                                             {[&] { groups.Field("ID"); }},
                                             {[&] { groups.RecordCount(); }},
                                             {[&] { groups.SetField("Name", Value()); }}}) {
        EXPECT_EQ(errorOf(use), ErrorNumber::kClosed);
    }
    groups.Open(kGroups, connection);
    EXPECT_EQ(groups.State(), ObjectStateEnum::adStateOpen);
    EXPECT_EQ(errorOf([&] { groups.Open(kGroups, connection); }), ErrorNumber::kAlreadyOpen);
    groups.Close();
    EXPECT_EQ(groups.State(), ObjectStateEnum::adStateClosed);
    groups.Open(kElements, connection);
    EXPECT_TRUE(groups.Eof());
}

TEST_F(Recordsets, NeedAnOpenConnectionAndOutliveIt) {
    addPalette(*file.database, "a", {3});
    Connection closed(file.files);
    EXPECT_EQ(errorOf([&] { groups.Open(kGroups, closed); }), ErrorNumber::kClosed);
    groups.Open(kGroups, connection);
    connection.Close();
    EXPECT_EQ(groups.Field("Name"), Value(std::string("a")));
}

TEST_F(Recordsets, UnderstandNoOtherQuery) {
    for (const std::string& query :
         {std::string("SELECT * FROM TFillGroup"),
          std::string("SELECT TFillGroup.* From TFillGroup"), kGroups + " ", kElements + " ",
          kElements + " Where (GroupID =)ORDER BY OrderNumber",
          kElements + " Where (GroupID = 1)ORDER BY OrderNumber",
          kElements + " Where (GroupID =1) ORDER BY OrderNumber",
          kElements + " Where (GroupID =1 )ORDER BY OrderNumber",
          kElements + " Where (GroupID =4294967296)ORDER BY OrderNumber"}) {
        EXPECT_EQ(errorOf([&] { groups.Open(query, connection); }), ErrorNumber::kSyntax) << query;
    }
    EXPECT_EQ(groups.State(), ObjectStateEnum::adStateClosed);
}

TEST_F(Recordsets, OfATableOrColumnThatIsNotThereAreErrorsWhenOpened) {
    createDatabase(file.files, "/other.mdb");
    const auto other = Database::open(file.files, "/other.mdb");
    Connection toOther(file.files);
    toOther.Open(connectionTo("/other.mdb"));
    EXPECT_EQ(errorOf([&] { groups.Open(kGroups, toOther); }), ErrorNumber::kNoSuchTable);
    createTable(*other, {"TFillGroup", {{"ID", ColumnType::longInteger, 0, false, true}}, {}});
    createTable(*other, {"TFillElementParameter", {{"Key", ColumnType::longInteger}}, {}});
    EXPECT_EQ(errorOf([&] { groups.Open(kGroups, toOther); }), ErrorNumber::kNoSuchColumn);
    EXPECT_EQ(errorOf([&] { groups.Open(kElements, toOther); }), ErrorNumber::kNoSuchColumn);
    EXPECT_EQ(groups.State(), ObjectStateEnum::adStateClosed);
}

TEST_F(Recordsets, BeginAtTheirFirstRecordAndEndAfterTheLast) {
    addPalette(*file.database, "b", {});
    addPalette(*file.database, "a", {});
    groups.Open(kGroups, connection);
    EXPECT_FALSE(groups.Bof());
    EXPECT_FALSE(groups.Eof());
    EXPECT_EQ(nameOf(groups), "a");
    groups.MoveNext();
    EXPECT_EQ(nameOf(groups), "b");
    EXPECT_FALSE(groups.Eof());
    groups.MoveNext();
    EXPECT_TRUE(groups.Eof());
    EXPECT_FALSE(groups.Bof());
    EXPECT_EQ(errorOf([&] { groups.MoveNext(); }), ErrorNumber::kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { groups.Field("Name"); }), ErrorNumber::kNoCurrentRecord);
    groups.MoveFirst();
    EXPECT_EQ(nameOf(groups), "a");
}

TEST_F(Recordsets, OfPalettesAreSortedByTheOrderOfTheFile) {
    for (const char* name : {"žába", "zeď", "cesta", "čas", "Cit", "hrad", "chata"}) {
        addPalette(*file.database, name, {});
    }
    groups.Open(kGroups, connection);
    EXPECT_EQ(names(groups),
              (std::vector<std::string>{"čas", "cesta", "chata", "Cit", "hrad", "žába", "zeď"}));
    // The same file made by a Czech installation.
    const PageNumber page = file.database->definition("TFillGroup")->page;
    Bytes& bytes = *file.files.files.at(PaletteFile::kName);
    const Bytes english{0x09, 0x04, 0x00, 0x00};
    for (std::size_t at = page * kPageSize; at + 4 < (page + 1) * kPageSize; ++at) {
        if (std::equal(english.begin(), english.end(),
                       bytes.begin() + static_cast<std::ptrdiff_t>(at))) {
            bytes[at] = 0x05;
        }
    }
    Connection again(file.files);
    again.Open(toFile);
    Recordset czech;
    czech.Open(kGroups, again);
    EXPECT_EQ(names(czech),
              (std::vector<std::string>{"cesta", "Cit", "čas", "hrad", "chata", "zeď", "žába"}));
}

TEST_F(Recordsets, OfElementsHaveThoseOfOnePaletteByTheirOrderNumbers) {
    const std::int32_t other = addPalette(*file.database, "a", {1, 2});
    const std::int32_t id = addPalette(*file.database, "b", {});
    file.database->change([&] {
        Table table(*file.database, "TFillElementParameter");
        for (const std::int32_t order : {5, -1, 300, 0}) {
            table.insert({{&table.column("GroupID"), id}, {&table.column("OrderNumber"), order}});
        }
    });
    Recordset elements;
    elements.Open(elementsOf(id), connection);
    EXPECT_EQ(column(elements, "OrderNumber"), (std::vector<Value>{-1, 0, 5, 300}));
    EXPECT_EQ(column(elements, "GroupID"), (std::vector<Value>{id, id, id, id}));
    elements.Close();
    elements.Open(elementsOf(other), connection);
    EXPECT_EQ(column(elements, "OrderNumber"), (std::vector<Value>{0, 1}));
    elements.Close();
    elements.Open(elementsOf(99), connection);
    EXPECT_TRUE(elements.Eof());
    elements.Close();
    elements.Open(kElements, connection);
    EXPECT_EQ(elements.RecordCount(), 6U);
}

TEST_F(Recordsets, GiveColumnsByNameWithNullsEmptyTextsAndLongValues) {
    addPalette(*file.database, "a", {0, 40, 9000});
    file.database->change([&] {
        Table table(*file.database, "TFillElementParameter");
        table.insert({{&table.column("GroupID"), 1},
                      {&table.column("OrderNumber"), 3},
                      {&table.column("TextureName"), std::string()}});
    });
    Recordset elements;
    elements.Open(elementsOf(1), connection);
    EXPECT_EQ(column(elements, "FillPreview"),
              (std::vector<Value>{patternBytes(0, 0), patternBytes(40, 1), patternBytes(9000, 2),
                                  Value()}));
    EXPECT_EQ(column(elements, "TextureName").back(), Value(std::string()));
    elements.MoveFirst();
    EXPECT_EQ(elements.Field("ID"), Value(1));
    EXPECT_EQ(errorOf([&] { elements.Field("Barva"); }), ErrorNumber::kNoSuchColumn);
    EXPECT_EQ(message, "Tabulka „TFillElementParameter“ nemá sloupec „Barva“.");
    groups.Open(kGroups, connection);
    EXPECT_TRUE(isNull(groups.Field("Description")));
}

TEST_F(Recordsets, FindARecordByItsIDFromTheCurrentOneOn) {
    for (const char* name : {"c", "b", "a"}) addPalette(*file.database, name, {});
    groups.Open(kGroups, connection);
    groups.Find("ID=2");
    EXPECT_EQ(nameOf(groups), "b");
    groups.Find("ID=2");
    EXPECT_EQ(nameOf(groups), "b");
    groups.Find("ID=3");
    EXPECT_TRUE(groups.Eof());
    groups.MoveFirst();
    groups.Find("ID=3");
    EXPECT_EQ(nameOf(groups), "a");
    for (const char* criteria : {"", "ID=", "ID = 3", "ID=3 ", "Name=3", "ID=x"}) {
        EXPECT_EQ(errorOf([&] { groups.Find(criteria); }), ErrorNumber::kSyntax) << criteria;
    }
    EXPECT_EQ(nameOf(groups), "a");
}

TEST_F(Recordsets, ANewRecordIsCurrentWhileItIsPendingEvenInAnEmptySet) {
    groups.Open(kGroups, connection);
    groups.AddNew();
    EXPECT_FALSE(groups.Eof());
    EXPECT_FALSE(groups.Bof());
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditAdd);
    EXPECT_TRUE(isNull(groups.Field("ID")));
    EXPECT_TRUE(isNull(groups.Field("Name")));
    groups.SetField("Name", std::string("Podzim"));
    EXPECT_EQ(nameOf(groups), "Podzim");
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditAdd);
    EXPECT_TRUE(rows("TFillGroup").empty());
}

TEST_F(Recordsets, ANewRecordIsTheLastAndHasItsIDAfterUpdate) {
    addPalette(*file.database, "m", {});
    addPalette(*file.database, "z", {});
    groups.Open(kGroups, connection);
    addGroup(groups, "a");
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditNone);
    EXPECT_EQ(groups.Field("ID"), Value(3));
    EXPECT_EQ(nameOf(groups), "a");
    EXPECT_EQ(names(groups), (std::vector<std::string>{"m", "z", "a"}));
    EXPECT_EQ(rows("TFillGroup").size(), 3U);
    groups.MoveFirst();
    groups.Find("ID=3");
    EXPECT_EQ(nameOf(groups), "a");
    groups.Requery();
    EXPECT_EQ(names(groups), (std::vector<std::string>{"a", "m", "z"}));
}

TEST_F(Recordsets, ANewRecordMayBeChangedRightAfterUpdate) {
    groups.Open(kGroups, connection);
    addGroup(groups, "a");
    groups.SetField("Count", 16);
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditInProgress);
    groups.Update();
    EXPECT_EQ(rows("TFillGroup"),
              (std::vector<std::vector<Value>>{{1, std::string("a"), Value(), 16}}));
}

TEST_F(Recordsets, ACancelledNewRecordGivesWayToTheOneBefore) {
    addPalette(*file.database, "a", {});
    addPalette(*file.database, "b", {});
    groups.Open(kGroups, connection);
    groups.MoveNext();
    groups.AddNew();
    groups.SetField("Name", std::string("c"));
    groups.CancelUpdate();
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditNone);
    EXPECT_EQ(nameOf(groups), "b");
    EXPECT_EQ(groups.RecordCount(), 2U);
    EXPECT_EQ(rows("TFillGroup").size(), 2U);
}

TEST_F(Recordsets, ANewRecordCancelledInAnEmptySetLeavesNone) {
    groups.Open(kGroups, connection);
    groups.AddNew();
    groups.CancelUpdate();
    EXPECT_TRUE(groups.Eof());
    EXPECT_TRUE(groups.Bof());
    // Nothing is pending any more, and nothing happens.
    groups.CancelUpdate();
    groups.Update();
    EXPECT_TRUE(rows("TFillGroup").empty());
}

TEST_F(Recordsets, UpdateBatchUpdatesAndCancelBatchCancels) {
    addPalette(*file.database, "a", {});
    Recordset elements;
    elements.Open(kElements, connection);
    for (const std::int32_t order : {0, 1}) {
        elements.AddNew();
        elements.SetField("GroupID", 1);
        elements.SetField("OrderNumber", order);
        elements.SetField("FillPreview", patternBytes(5000, 7));
        elements.UpdateBatch();
        EXPECT_EQ(elements.EditMode(), EditModeEnum::adEditNone);
        elements.AddNew();
        elements.SetField("OrderNumber", 77);
        elements.CancelBatch();
        EXPECT_EQ(elements.Field("OrderNumber"), Value(order));
    }
    EXPECT_EQ(elements.Field("FillPreview"), Value(patternBytes(5000, 7)));
    EXPECT_EQ(column(elements, "OrderNumber"), (std::vector<Value>{0, 1}));
    EXPECT_EQ(rows("TFillElementParameter").size(), 2U);
}

TEST_F(Recordsets, RecordsAddedBeforeTheSetOfAllIsLookedAtAreItsLast) {
    addPalette(*file.database, "a", {1, 2, 3});
    Recordset elements;
    elements.Open(kElements, connection);
    elements.AddNew();
    elements.SetField("GroupID", 1);
    elements.SetField("OrderNumber", 50);
    elements.Update();
    EXPECT_EQ(elements.Field("OrderNumber"), Value(50));
    EXPECT_EQ(elements.RecordCount(), 4U);
    EXPECT_EQ(elements.Field("OrderNumber"), Value(50));
    elements.MoveNext();
    EXPECT_TRUE(elements.Eof());
    EXPECT_EQ(column(elements, "OrderNumber"), (std::vector<Value>{0, 1, 2, 50}));
}

TEST_F(Recordsets, OfAllElementsAreNotReadWhereRecordsAreOnlyAdded) {
    connection.inOneCommit([&] {
        for (int i = 0; i < 60; ++i) {
            addPalette(*connection.database(), "Paleta", std::vector<std::size_t>(20, 100));
        }
    });
    Connection fresh(file.files);
    fresh.Open(toFile);
    Recordset elements;
    const auto readsOf = [&](const std::function<void()>& body) {
        std::size_t reads = 0;
        file.files.onCall = [&](const char* what) { reads += std::string(what) == "read" ? 1 : 0; };
        body();
        file.files.onCall = nullptr;
        return reads;
    };
    const std::size_t opening = readsOf([&] { elements.Open(kElements, fresh); });
    const std::size_t gathering = readsOf([&] { EXPECT_EQ(elements.RecordCount(), 1200U); });
    EXPECT_LT(opening, 20U);
    EXPECT_GT(gathering, 20U);
}

TEST_F(Recordsets, ValuesArePendingUntilUpdate) {
    addPalette(*file.database, "a", {});
    groups.Open(kGroups, connection);
    groups.SetField("Name", std::string("Zima"));
    groups.SetField("Description", std::string());
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditInProgress);
    EXPECT_EQ(nameOf(groups), "Zima");
    EXPECT_EQ(rows("TFillGroup")[0][1], Value(std::string("a")));
    groups.Update();
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditNone);
    EXPECT_EQ(nameOf(groups), "Zima");
    const auto now = rows("TFillGroup");
    EXPECT_EQ(now[0], (std::vector<Value>{1, std::string("Zima"), std::string(), 0}));
}

TEST_F(Recordsets, CancelledValuesAreThoseOfTheRecordAgain) {
    addPalette(*file.database, "a", {});
    groups.Open(kGroups, connection);
    groups.SetField("Name", std::string("Zima"));
    groups.CancelUpdate();
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditNone);
    EXPECT_EQ(nameOf(groups), "a");
    groups.Update();
    EXPECT_EQ(rows("TFillGroup")[0][1], Value(std::string("a")));
}

TEST_F(Recordsets, AFloatInALongColumnIsRoundedHalfToEven) {
    addPalette(*file.database, "a", {});
    Recordset elements;
    elements.Open(kElements, connection);
    const std::vector<std::pair<float, std::int32_t>> cases{
        {0.5F, 0}, {1.5F, 2}, {2.5F, 2}, {0.51F, 1}, {-0.5F, 0}, {-1.5F, -2}, {100.0F, 100}};
    std::vector<Value> expected;
    for (const auto& [given, rounded] : cases) {
        elements.AddNew();
        elements.SetField("GroupID", 1);
        elements.SetField("OrderNumber", given);
        EXPECT_EQ(elements.Field("OrderNumber"), Value(rounded));
        elements.Update();
        expected.emplace_back(rounded);
    }
    EXPECT_EQ(column(elements, "OrderNumber"), expected);
    elements.MoveFirst();
    EXPECT_EQ(errorOf([&] { elements.SetField("OrderNumber", 3e9F); }),
              base::ErrorNumber::kOverflow);
    EXPECT_EQ(errorOf([&] { elements.SetField("OrderNumber", Bytes{1}); }),
              base::ErrorNumber::kTypeMismatch);
    EXPECT_EQ(elements.EditMode(), EditModeEnum::adEditNone);
}

TEST_F(Recordsets, AnErrorInAColumnLeavesTheColumnsBeforeItAsGiven) {
    addPalette(*file.database, "a", {});
    Recordset elements;
    elements.Open(kElements, connection);
    elements.AddNew();
    elements.SetField("GroupID", 1);
    EXPECT_EQ(errorOf([&] { elements.SetField("OrderNumber", std::string("pět")); }),
              base::ErrorNumber::kTypeMismatch);
    EXPECT_EQ(elements.EditMode(), EditModeEnum::adEditAdd);
    EXPECT_EQ(elements.Field("GroupID"), Value(1));
    EXPECT_TRUE(isNull(elements.Field("OrderNumber")));
    elements.CancelBatch();
}

TEST_F(Recordsets, TheNumberOfARecordIsGivenByTheDatabaseAlone) {
    groups.Open(kGroups, connection);
    groups.AddNew();
    EXPECT_EQ(errorOf([&] { groups.SetField("ID", 7); }), ErrorNumber::kReadOnly);
    EXPECT_EQ(message, "Hodnotu sloupce „ID“ přiděluje databáze.");
}

TEST_F(Recordsets, ARefusedUpdateLeavesTheRecordPendingUntilItIsRightOrCancelled) {
    groups.Open(kGroups, connection);
    groups.AddNew();
    groups.SetField("Name", std::string(31, 'x'));
    groups.SetField("Description", std::string("popis"));
    EXPECT_EQ(errorOf([&] { groups.Update(); }), ErrorNumber::kTooLong);
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditAdd);
    EXPECT_EQ(groups.Field("Description"), Value(std::string("popis")));
    groups.SetField("Name", std::string());
    EXPECT_EQ(errorOf([&] { groups.Update(); }), ErrorNumber::kEmptyNotAllowed);
    groups.SetField("Name", Value());
    EXPECT_EQ(errorOf([&] { groups.Update(); }), ErrorNumber::kNullNotAllowed);
    EXPECT_TRUE(rows("TFillGroup").empty());
    groups.SetField("Name", std::string(30, 'x'));
    groups.Update();
    EXPECT_EQ(rows("TFillGroup").size(), 1U);
    groups.SetField("Name", std::string());
    EXPECT_EQ(errorOf([&] { groups.Update(); }), ErrorNumber::kEmptyNotAllowed);
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditInProgress);
    groups.CancelUpdate();
    EXPECT_EQ(nameOf(groups), std::string(30, 'x'));
}

TEST_F(Recordsets, AnElementWithoutItsPaletteIsRefused) {
    Recordset elements;
    elements.Open(kElements, connection);
    elements.AddNew();
    elements.SetField("GroupID", 5);
    elements.SetField("OrderNumber", 0);
    EXPECT_EQ(errorOf([&] { elements.UpdateBatch(); }), ErrorNumber::kNoParent);
    elements.CancelBatch();
    EXPECT_TRUE(elements.Eof());
}

TEST_F(Recordsets, MovingAwayUpdates) {
    addPalette(*file.database, "a", {});
    addPalette(*file.database, "b", {});
    groups.Open(kGroups, connection);
    const std::vector<std::function<void()>> moves{
        [&] { groups.MoveNext(); }, [&] { groups.MoveFirst(); }, [&] { groups.Find("ID=2"); },
        [&] { groups.AddNew(); }};
    std::int32_t count = 0;
    for (const auto& move : moves) {
        groups.MoveFirst();
        groups.SetField("Count", ++count);
        move();
        EXPECT_EQ(rows("TFillGroup")[0][3], Value(count));
    }
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditAdd);
    groups.SetField("Name", std::string());
    EXPECT_EQ(errorOf([&] { groups.MoveFirst(); }), ErrorNumber::kEmptyNotAllowed);
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditAdd);
    groups.SetField("Name", std::string("c"));
    groups.MoveFirst();
    EXPECT_EQ(rows("TFillGroup").size(), 3U);
}

TEST_F(Recordsets, ADeletedRecordIsCurrentWithoutFieldsUntilTheNextMove) {
    for (const char* name : {"a", "b", "c"}) addPalette(*file.database, name, {});
    groups.Open(kGroups, connection);
    groups.MoveNext();
    groups.Delete();
    EXPECT_EQ(rows("TFillGroup").size(), 2U);
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditDelete);
    EXPECT_FALSE(groups.Eof());
    EXPECT_EQ(groups.RecordCount(), 2U);
    EXPECT_EQ(errorOf([&] { groups.Field("Name"); }), ErrorNumber::kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { groups.SetField("Count", 1); }), ErrorNumber::kNoCurrentRecord);
    EXPECT_EQ(errorOf([&] { groups.Delete(); }), ErrorNumber::kNoCurrentRecord);
    groups.MoveNext();
    EXPECT_EQ(nameOf(groups), "c");
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditNone);
    groups.Delete();
    groups.MoveFirst();
    EXPECT_EQ(nameOf(groups), "a");
    groups.Delete();
    groups.MoveNext();
    EXPECT_TRUE(groups.Eof());
    EXPECT_TRUE(groups.Bof());
    EXPECT_TRUE(rows("TFillGroup").empty());
}

TEST_F(Recordsets, ANewRecordAfterADeletedOneStandsAlone) {
    addPalette(*file.database, "a", {});
    groups.Open(kGroups, connection);
    groups.Delete();
    addGroup(groups, "b");
    EXPECT_EQ(names(groups), (std::vector<std::string>{"b"}));
    groups.MoveFirst();
    groups.AddNew();
    groups.Delete();
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditNone);
    EXPECT_EQ(nameOf(groups), "b");
}

TEST_F(Recordsets, ARefusedDeletionLeavesTheRecord) {
    addPalette(*file.database, "a", {10});
    groups.Open(kGroups, connection);
    EXPECT_EQ(errorOf([&] { groups.Delete(); }), ErrorNumber::kHasChildren);
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditNone);
    EXPECT_EQ(nameOf(groups), "a");
    connection.Execute("DELETE FROM TFillElementParameter WHERE (GroupID = 1)");
    groups.Delete();
    groups.Requery();
    EXPECT_TRUE(groups.Eof());
}

TEST_F(Recordsets, NotifyBeforeAFieldChanges) {
    addPalette(*file.database, "a", {});
    groups.Open(kGroups, connection);
    std::vector<std::string> reported;
    groups.WillChangeField.connect([&](const std::string& column) {
        reported.push_back(column + " " + nameOf(groups));
        EXPECT_EQ(groups.EditMode(),
                  reported.size() == 1 ? EditModeEnum::adEditNone : EditModeEnum::adEditInProgress);
    });
    groups.SetField("Name", std::string("b"));
    groups.SetField("Name", std::string("c"));
    groups.SetField("Count", 1);
    EXPECT_EQ(reported, (std::vector<std::string>{"Name a", "Name b", "Count c"}));
    groups.Update();
    groups.MoveFirst();
    groups.Requery();
    EXPECT_EQ(reported.size(), 3U);
}

TEST_F(Recordsets, AHandlerMayRefuseAChange) {
    addPalette(*file.database, "a", {});
    groups.Open(kGroups, connection);
    groups.WillChangeField.connect([](const std::string&) { throw base::Error(7, "ne"); });
    EXPECT_EQ(errorOf([&] { groups.SetField("Name", std::string("b")); }), 7);
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditNone);
    EXPECT_EQ(nameOf(groups), "a");
}

TEST_F(Recordsets, AHandlerThatMovesAwayLeavesNothingToChange) {
    addPalette(*file.database, "a", {});
    groups.Open(kGroups, connection);
    groups.WillChangeField.connect([&](const std::string&) { groups.MoveNext(); });
    EXPECT_EQ(errorOf([&] { groups.SetField("Name", std::string("b")); }),
              ErrorNumber::kNoCurrentRecord);
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditNone);
    groups.MoveFirst();
    EXPECT_EQ(nameOf(groups), "a");
}

TEST_F(Recordsets, ARecordWhoseIDRepeatsIsReadAndNotWritten) {
    createDatabase(file.files, "/double.mdb");
    const auto other = Database::open(file.files, "/double.mdb");
    createTable(
        *other,
        {"TFillGroup", {{"ID", ColumnType::longInteger}, {"Name", ColumnType::text, 30}}, {}});
    other->change([&] {
        Table table(*other, "TFillGroup");
        for (const char* name : {"a", "b"}) {
            table.insert({{&table.column("ID"), 1}, {&table.column("Name"), std::string(name)}});
        }
    });
    Connection toOther(file.files);
    toOther.Open(connectionTo("/double.mdb"));
    groups.Open(kGroups, toOther);
    EXPECT_EQ(names(groups), (std::vector<std::string>{"a", "b"}));
    groups.MoveFirst();
    EXPECT_EQ(errorOf([&] { groups.Delete(); }), ErrorNumber::kRowChanged);
    groups.SetField("Name", std::string("c"));
    EXPECT_EQ(errorOf([&] { groups.Update(); }), ErrorNumber::kRowChanged);
    groups.CancelUpdate();
    EXPECT_EQ(names(groups), (std::vector<std::string>{"a", "b"}));
}

TEST_F(Recordsets, DoNotShowWhatOthersWriteUntilTheyAreQueriedAnew) {
    addPalette(*file.database, "a", {});
    groups.Open(kGroups, connection);
    renameElsewhere(1, "z");
    addPalette(*file.database, "m", {});
    EXPECT_EQ(names(groups), (std::vector<std::string>{"a"}));
    groups.Requery();
    EXPECT_EQ(names(groups), (std::vector<std::string>{"m", "z"}));
    groups.MoveFirst();
    EXPECT_EQ(nameOf(groups), "m");
}

TEST_F(Recordsets, OpenedLaterShowTheFileAsItIsThen) {
    addPalette(*file.database, "a", {});
    groups.Open(kGroups, connection);
    EXPECT_EQ(names(groups), (std::vector<std::string>{"a"}));
}

TEST_F(Recordsets, RequeryDiscardsPendingValues) {
    addPalette(*file.database, "a", {});
    groups.Open(kGroups, connection);
    groups.SetField("Name", std::string("b"));
    groups.Requery();
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditNone);
    EXPECT_EQ(nameOf(groups), "a");
    groups.AddNew();
    groups.Close();
    groups.Open(kGroups, connection);
    EXPECT_EQ(nameOf(groups), "a");
}

TEST_F(Recordsets, FindTheirRecordsAgainWhenTheFileWasWrittenByAnother) {
    addPalette(*file.database, "a", {100, 7000});
    addPalette(*file.database, "b", {200});
    groups.Open(kGroups, connection);
    Recordset elements;
    elements.Open(elementsOf(2), connection);
    const auto other = Database::open(file.files, PaletteFile::kName);
    // What is freed and used again moves the rows that are found by their place.
    erasePalette(*other, 1);
    addPalette(*other, "c", {8000, 1});
    groups.Find("ID=2");
    groups.SetField("Description", std::string("popis"));
    groups.Update();
    EXPECT_EQ(elements.Field("FillPreview"), Value(patternBytes(200, 0)));
    groups.Requery();
    EXPECT_EQ(names(groups), (std::vector<std::string>{"b", "c"}));
    groups.MoveFirst();
    EXPECT_EQ(groups.Field("Description"), Value(std::string("popis")));
}

TEST_F(Recordsets, ARecordThatAnotherHasChangedIsNotOverwritten) {
    addPalette(*file.database, "a", {});
    groups.Open(kGroups, connection);
    groups.SetField("Name", std::string("b"));
    renameElsewhere(1, "z");
    EXPECT_EQ(errorOf([&] { groups.Update(); }), ErrorNumber::kRowChanged);
    EXPECT_EQ(message, "Záznam tabulky „TFillGroup“ mezitím změnil nebo odstranil jiný program.");
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditInProgress);
    groups.CancelUpdate();
    groups.Requery();
    EXPECT_EQ(nameOf(groups), "z");
}

TEST_F(Recordsets, ARecordThatAnotherHasRemovedIsAnError) {
    addPalette(*file.database, "a", {900});
    groups.Open(kGroups, connection);
    Recordset elements;
    elements.Open(elementsOf(1), connection);
    erasePalette(*file.database, 1);
    groups.SetField("Name", std::string("b"));
    EXPECT_EQ(errorOf([&] { groups.Update(); }), ErrorNumber::kRowChanged);
    groups.CancelUpdate();
    EXPECT_EQ(errorOf([&] { groups.Delete(); }), ErrorNumber::kRowChanged);
    EXPECT_EQ(errorOf([&] { elements.Field("FillPreview"); }), ErrorNumber::kRowChanged);
    EXPECT_EQ(nameOf(groups), "a");
}

TEST_F(Recordsets, AFileThatAnotherHoldsIsReadAndNotWritten) {
    addPalette(*file.database, "a", {50});
    {
        const auto held = file.files.lock(PaletteFile::kName);
        groups.Open(kGroups, connection);
        EXPECT_EQ(nameOf(groups), "a");
        groups.SetField("Name", std::string("b"));
        EXPECT_EQ(errorOf([&] { groups.Update(); }), ErrorNumber::kInUse);
        EXPECT_EQ(message, "Databázi „/fill.mdb“ má otevřenou jiný program.");
        EXPECT_EQ(errorOf([&] {
                      connection.Execute("DELETE FROM TFillElementParameter WHERE (GroupID = 1)");
                  }),
                  ErrorNumber::kInUse);
    }
    groups.Update();
    EXPECT_EQ(rows("TFillGroup")[0][1], Value(std::string("b")));
}

TEST_F(Recordsets, OfAFileThatIsGoneKeepWhatTheyShow) {
    addPalette(*file.database, "a", {});
    groups.Open(kGroups, connection);
    const auto content = file.files.files.extract(PaletteFile::kName);
    EXPECT_EQ(errorOf([&] { groups.Requery(); }), ErrorNumber::kFileNotFound);
    EXPECT_EQ(nameOf(groups), "a");
    file.files.files[PaletteFile::kName] = content.mapped();
    groups.Requery();
    EXPECT_EQ(nameOf(groups), "a");
}

TEST_F(Recordsets, WhenTheDiskFailsPendingValuesAreKeptAndWrittenLater) {
    addPalette(*file.database, "a", {});
    std::size_t failures = 0;
    for (std::size_t at = 0;; ++at) {
        groups.Open(kGroups, connection);
        const std::size_t before = groups.RecordCount();
        groups.AddNew();
        groups.SetField("Name", std::string("nová"));
        const Bytes old = *file.files.files.at(PaletteFile::kName);
        std::size_t calls = 0;
        file.files.onCall = [&](const char* what) {
            if (calls++ == at) throw base::Error(ErrorNumber::kFileSystem, what);
        };
        const std::int32_t number = errorOf([&] { groups.Update(); });
        file.files.onCall = nullptr;
        const bool written = *file.files.files.at(PaletteFile::kName) != old;
        if (number != 0) {
            ++failures;
            EXPECT_EQ(number, ErrorNumber::kFileSystem);
            EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditAdd);
            EXPECT_EQ(nameOf(groups), "nová");
            if (written) {
                // It has failed after the file got its name.
                groups.CancelUpdate();
            } else {
                groups.Update();
            }
        }
        groups.Requery();
        EXPECT_EQ(groups.RecordCount(), before + 1);
        groups.Close();
        if (number == 0) break;
    }
    EXPECT_GE(failures, 8U);
}

TEST_F(Recordsets, WhenTheDiskFailsADeletedOrChangedRecordIsAsItWas) {
    addPalette(*file.database, "a", {});
    groups.Open(kGroups, connection);
    file.files.onCall = [](const char* what) {
        if (std::string(what) == "write") throw base::Error(ErrorNumber::kOutOfSpace, what);
    };
    EXPECT_EQ(errorOf([&] { groups.Delete(); }), ErrorNumber::kOutOfSpace);
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditNone);
    groups.SetField("Name", std::string("b"));
    EXPECT_EQ(errorOf([&] { groups.Update(); }), ErrorNumber::kOutOfSpace);
    EXPECT_EQ(groups.EditMode(), EditModeEnum::adEditInProgress);
    file.files.onCall = nullptr;
    EXPECT_EQ(rows("TFillGroup")[0][1], Value(std::string("a")));
    groups.Update();
    EXPECT_EQ(rows("TFillGroup")[0][1], Value(std::string("b")));
}

}  // namespace
}  // namespace huebrush::jet
