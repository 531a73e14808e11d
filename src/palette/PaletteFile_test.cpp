// SPDX-License-Identifier: MPL-2.0

#include "palette/PaletteFile.h"

#include <gtest/gtest.h>

#include "jet/check/Check.h"
#include "jet/database/Schema.h"
#include "jet/database/Table.h"
#include "jet/file/MemoryFiles.h"
#include "palette/mMakeDatabase.h"

namespace huebrush::palette {
namespace {

using jet::Value;

constexpr const char* kFile = "/fill.mdb";

Record element(std::int32_t order, const jet::Bytes& preview) {
    Record record{{"OrderNumber", order}};
    for (const char* const name :
         {"Visible", "ForeColorRGB", "BackColorRGB", "Transparency", "GradientStyle",
          "GradientColorType", "GradientVariant", "GradientDegree", "PresetGradientType",
          "TextureType", "Type", "PresetTexture", "Pattern"}) {
        record.emplace_back(name, static_cast<std::int32_t>(record.size()));
    }
    record.emplace_back("FillPreview", preview);
    return record;
}

Palette named(const std::string& name, const std::vector<Record>& elements) {
    return {{{"Name", name}}, elements};
}

/// Keeps all palettes that it is shown.
class Collector final : public PaletteVisitor {
 public:
    void begin(const jet::Table& groups, const jet::Row& group) override {
        found.push_back({recordOf(groups, group), {}});
    }
    void fill(const jet::Table& elements, const jet::Row& fill) override {
        found.back().elements.push_back(recordOf(elements, fill));
    }
    void end() override { ++ended; }

    std::vector<Palette> found;
    std::size_t ended = 0;
};

class PaletteFiles : public ::testing::Test {
 protected:
    PaletteFiles() {
        if (!MakeDatabase(kFile, files)) throw std::runtime_error("no file was made");
        database = jet::Database::open(files, kFile);
    }
    std::vector<Palette> all() {
        Collector collector;
        visitPalettes(*database, collector);
        EXPECT_EQ(collector.ended, collector.found.size());
        return collector.found;
    }
    std::size_t rows(const char* table) {
        std::size_t count = 0;
        jet::Table(*database, table).scan([&](jet::RowId, const jet::Row&) {
            ++count;
            return true;
        });
        return count;
    }

    jet::MemoryFiles files;
    std::shared_ptr<jet::Database> database;
};

TEST_F(PaletteFiles, ReturnWhatWasAddedWithEveryColumn) {
    addPalettes(*database, {named("Podzim", {element(0, {1, 2}), element(1, {})})});
    const auto palettes = all();
    ASSERT_EQ(palettes.size(), 1U);
    const Record expected{
        {"ID", 1}, {"Name", std::string("Podzim")}, {"Description", Value()}, {"Count", 2}};
    EXPECT_EQ(palettes[0].group, expected);
    ASSERT_EQ(palettes[0].elements.size(), 2U);
    const Record& first = palettes[0].elements[0];
    EXPECT_EQ(first.size(), 19U);
    EXPECT_EQ(first[0], (std::pair<std::string, Value>("ID", 1)));
    EXPECT_EQ(valueOf(first, "GroupID"), Value(1));
    EXPECT_EQ(valueOf(first, "Visible"), Value(1));
    EXPECT_EQ(valueOf(first, "Pattern"), Value(13));
    EXPECT_EQ(valueOf(first, "TextureName"), Value());
    EXPECT_EQ(valueOf(first, "FillPreview"), Value(jet::Bytes{1, 2}));
    EXPECT_EQ(valueOf(palettes[0].elements[1], "FillPreview"), Value(jet::Bytes{}));
}

TEST_F(PaletteFiles, AssignIdentitiesAndCountThemselves) {
    Palette given = named("Jaro", {element(7, {})});
    given.group.emplace_back("ID", 40);
    given.group.emplace_back("Count", 12);
    given.elements[0].emplace_back("ID", 41);
    given.elements[0].emplace_back("GroupID", 42);
    const auto added = addPalettes(*database, {given, given});
    ASSERT_EQ(added.size(), 2U);
    EXPECT_EQ(valueOf(added[1], "ID"), Value(2));
    EXPECT_EQ(valueOf(added[1], "Count"), Value(1));
    const auto palettes = all();
    EXPECT_EQ(valueOf(palettes[1].elements[0], "ID"), Value(2));
    EXPECT_EQ(valueOf(palettes[1].elements[0], "GroupID"), Value(2));
    EXPECT_EQ(valueOf(palettes[1].elements[0], "OrderNumber"), Value(7));
}

TEST_F(PaletteFiles, OrderFillsByTheirNumberAndNumberThoseWithout) {
    Palette mixed = named("Léto", {element(5, {5}), element(3, {3}), element(0, {2})});
    mixed.elements[2].erase(mixed.elements[2].begin());
    addPalettes(*database, {mixed});
    std::vector<Value> orders;
    const Palette stored = all().at(0);
    for (const auto& each : stored.elements) orders.push_back(valueOf(each, "OrderNumber"));
    EXPECT_EQ(orders, (std::vector<Value>{2, 3, 5}));
}

TEST_F(PaletteFiles, AreShownInTheSameOrderHoweverFewRowsAreSortedAtOnce) {
    std::vector<Palette> given;
    for (std::int32_t i = 0; i < 7; ++i) {
        given.push_back(named("Paleta", {}));
        // Equal numbers, too, which are ordered by ID.
        for (std::int32_t order = 0; order < i * 3; ++order) {
            given.back().elements.push_back(element(order * 7 % 5, {}));
        }
    }
    addPalettes(*database, given);
    const auto expected = all();
    ASSERT_EQ(expected.size(), 7U);
    ASSERT_EQ(expected[6].elements.size(), 18U);
    for (const std::size_t atOnce : {1U, 2U, 3U, 18U, 19U}) {
        Collector collector;
        visitPalettes(*database, collector, atOnce);
        ASSERT_EQ(collector.found.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(collector.found[i].group, expected[i].group);
            EXPECT_EQ(collector.found[i].elements, expected[i].elements) << atOnce;
        }
    }
}

TEST_F(PaletteFiles, TakeWhatIsKnownOfAPaletteOnlyAfterItsFills) {
    database->change([&] {
        PaletteAdder adder(*database);
        const auto column = [&](const char* name) { return &adder.groups().column(name); };
        adder.begin({{column("Description"), std::string("Popis")}});
        for (const Record& given : {element(4, {}), element(2, {1})}) {
            jet::Table::Values fill;
            for (const auto& [name, value] : given) {
                fill.emplace_back(&adder.elements().column(name), value);
            }
            adder.fill(fill);
        }
        adder.end({{column("Description"), std::string("Jiný")},
                   {column("Name"), std::string("Podzim")},
                   {column("Count"), 7}});
    });
    const Record expected{{"ID", 1},
                          {"Name", std::string("Podzim")},
                          {"Description", std::string("Jiný")},
                          {"Count", 2}};
    ASSERT_EQ(all().size(), 1U);
    EXPECT_EQ(all()[0].group, expected);
    EXPECT_EQ(valueOf(all()[0].elements[0], "OrderNumber"), Value(2));
    EXPECT_TRUE(jet::check(*database).violations.empty());
    // A name that never comes is refused as before.
    EXPECT_THROW(database->change([&] {
        PaletteAdder adder(*database);
        adder.begin({});
        adder.end({});
    }),
                 base::Error);
    EXPECT_EQ(all().size(), 1U);
}

TEST_F(PaletteFiles, TakeAllPalettesOrNone) {
    Palette bad = named("Zima", {element(0, {}), element(1, {})});
    bad.elements[1].pop_back();
    bad.elements[1].emplace_back("Barva", 3);
    const jet::Bytes before = *files.files.at(kFile);
    EXPECT_THROW(addPalettes(*database, {named("Podzim", {element(0, {})}), bad}), base::Error);
    EXPECT_THROW(addPalettes(*database, {named("", {})}), base::Error);
    EXPECT_THROW(addPalettes(*database, {named(std::string(31, 'x'), {})}), base::Error);
    EXPECT_EQ(*files.files.at(kFile), before);
    EXPECT_TRUE(all().empty());
}

TEST_F(PaletteFiles, EraseAllPalettesOfANameWithTheirFills) {
    addPalettes(*database, {named("Podzim", {element(0, {1}), element(1, {2})}),
                            named("Zima", {element(0, {3})}), named("Podzim", {})});
    EXPECT_EQ(erasePalettes(*database, "Podzi"), 0U);
    EXPECT_EQ(erasePalettes(*database, "Podzim"), 2U);
    ASSERT_EQ(all().size(), 1U);
    EXPECT_EQ(valueOf(all()[0].group, "Name"), Value(std::string("Zima")));
    EXPECT_EQ(rows(kElementTable), 1U);
    EXPECT_TRUE(jet::check(*database).violations.empty());
}

TEST_F(PaletteFiles, AreListedByTheirIdentity) {
    addPalettes(*database, {named("B", {}), named("A", {})});
    const auto listed = listPalettes(*database);
    ASSERT_EQ(listed.size(), 2U);
    EXPECT_EQ(valueOf(listed[0], "Name"), Value(std::string("B")));
}

TEST_F(PaletteFiles, WithoutTheTwoTablesAreRefused) {
    jet::createDatabase(files, "/other.mdb");
    const auto other = jet::Database::open(files, "/other.mdb");
    EXPECT_THROW(listPalettes(*other), base::Error);
    Collector collector;
    EXPECT_THROW(visitPalettes(*other, collector), base::Error);
    EXPECT_THROW(addPalettes(*other, {}), base::Error);
    EXPECT_THROW(erasePalettes(*other, "x"), base::Error);
}

}  // namespace
}  // namespace huebrush::palette
