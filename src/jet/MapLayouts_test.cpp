// SPDX-License-Identifier: MPL-2.0

// Files with page maps as other programs leave them, and with damaged ones: edited, nothing in them
// is lost.

#include "jet/MapLayouts_test_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <random>

#include "jet/Palette_test_support.h"

namespace huebrush::jet {
namespace {

constexpr const char* kName = PaletteFile::kName;

class MapLayouts : public ::testing::Test {
 protected:
    using Rows = std::vector<std::vector<Value>>;

    MapLayouts() {
        PaletteFile file;
        for (int i = 0; i < 4; ++i) addPalette(*file.database, "Podzim", {0, 30, 2000, 5000, 9000});
        // Pages that are free, among others that are not.
        erasePalette(*file.database, 2);
        sound = *file.files.files.at(kName);
        elements = allRows(*file.database, "TFillElementParameter");
        groups = allRows(*file.database, "TFillGroup");
    }

    std::shared_ptr<Database> open(const Bytes& content) {
        files.files[kName] = std::make_shared<Bytes>(content);
        return Database::open(files, kName);
    }

    /// Adds and erases palettes so that many pages are taken and freed; the others stay.
    void edit(Database& database) {
        std::int32_t id = 0;
        for (int turn = 0; turn < 3; ++turn) {
            if (turn > 0) erasePalette(database, id);
            id = addPalette(database, "Nova", std::vector<std::size_t>(12, 3000));
        }
        erasePalette(database, id);
    }

    void expectTheRows(Database& database) {
        EXPECT_EQ(allRows(database, "TFillElementParameter"), elements);
        EXPECT_EQ(allRows(database, "TFillGroup"), groups);
    }

    MemoryFiles files;
    Bytes sound;
    Rows elements;
    Rows groups;
};

TEST_F(MapLayouts, OfOtherProgramsAreSoundAndStaySoWhenEdited) {
    const std::size_t seeds = casesOf(20000, 500);
    for (std::uint32_t seed = 0; seed < seeds && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        const auto database = open(withOtherMaps(sound, seed, Layouts::ofThisEngine));
        ASSERT_EQ(damage(*database), "");
        const PageNumber lost = lostPages(*database);
        expectTheRows(*database);
        ASSERT_NO_THROW(edit(*database));
        EXPECT_EQ(damage(*database), "");
        EXPECT_LE(lostPages(*database), lost);
        expectTheRows(*database);
    }
}

TEST_F(MapLayouts, WithTheFreeMapAtTheLastPageLoseNothing) {
    for (std::uint32_t seed = 0; seed < 100 / kShare && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        const auto database = open(withFreeMapAtTheEnd(sound, seed));
        ASSERT_EQ(damage(*database), "");
        edit(*database);
        EXPECT_EQ(damage(*database), "");
        expectTheRows(*database);
    }
}

/// A bit of a usage map: of its row, or of one of its bitmap pages.
class DamagedMaps : public MapLayouts {
 protected:
    /// The places of all bytes of all maps in a file.
    std::vector<std::size_t> mapBytes(const Bytes& content) {
        const auto database = open(content);
        std::vector<std::size_t> places;
        const auto addMap = [&](RowId where) {
            const UsageMap map(database->pages(), where);
            const RowId at = map.place();
            const auto slot = DataPage::open(database->pages(), at.page).slot(at.slot);
            addBytes(places, at.page, slot.offset, slot.end);
            for (const PageNumber page : map.bitmapPages()) addBytes(places, page, 0, 40);
        };
        addMap(database->header().freeMap);
        for (const char* name : {"TFillGroup", "TFillElementParameter"}) {
            for (const TableMap& map : mapsOf(*database->definition(name))) addMap(map.where);
        }
        return places;
    }
    static void addBytes(std::vector<std::size_t>& places, PageNumber page, std::size_t from,
                         std::size_t to) {
        for (std::size_t at = from; at < to; ++at) places.push_back(page * kPageSize + at);
    }

    /// The rows that can be read; none of a table that is damaged.
    Rows readable(Database& database, const char* table) {
        try {
            return allRows(database, table);
        } catch (const base::Error&) {
            return {};
        }
    }

    /// Edits the file; what could be read before must still be there. Whether it was not refused.
    bool editLosesNothing(const Bytes& content) {
        const auto database = open(content);
        const Rows elementsBefore = readable(*database, "TFillElementParameter");
        const Rows groupsBefore = readable(*database, "TFillGroup");
        bool edited = true;
        try {
            edit(*database);
        } catch (const base::Error& error) {
            edited = false;
            EXPECT_TRUE(error.number() == ErrorNumber::kDamaged ||
                        error.number() == ErrorNumber::kNotSupported)
                << error.description();
        }
        const auto reopened = Database::open(files, kName);
        for (const auto& [rows, table] : {std::pair(elementsBefore, "TFillElementParameter"),
                                          std::pair(groupsBefore, "TFillGroup")}) {
            const Rows after = readable(*reopened, table);
            for (const auto& row : rows) {
                EXPECT_NE(std::find(after.begin(), after.end(), row), after.end()) << table;
            }
        }
        return edited;
    }
};

TEST_F(DamagedMaps, WithOneBitFlippedLoseNoRow) {
    std::mt19937 random(3);
    std::size_t edited = 0;
    std::size_t refused = 0;
    const std::size_t tries = casesOf(50000, 1000);
    for (std::size_t i = 0; i < tries && !HasFailure(); ++i) {
        // Every other one is a bit of the file as this engine lays it out.
        Bytes content =
            i % 2 == 0 ? sound
                       : withOtherMaps(sound, static_cast<std::uint32_t>(i), Layouts::ofThisEngine);
        const auto places = mapBytes(content);
        const std::size_t at = places[random() % places.size()];
        content[at] ^= static_cast<std::uint8_t>(1U << (random() % 8));
        SCOPED_TRACE(testing::Message()
                     << "try " << i << ", page " << at / kPageSize << ", byte " << at % kPageSize);
        ++(editLosesNothing(content) ? edited : refused);
    }
    std::cout << edited << " edited, " << refused << " refused\n";
    EXPECT_GT(edited, tries / 20);
    EXPECT_GT(refused, tries / 20);
}

TEST_F(DamagedMaps, ThatCallAUsedPageFreeRefuseTheWriteAndLeaveTheFileAsItIs) {
    const auto database = open(sound);
    const auto groupTable = database->definition("TFillGroup");
    const auto elementTable = database->definition("TFillElementParameter");
    const auto firstOf = [&](RowId map) { return UsageMap(database->pages(), map).all().at(0); };
    for (const PageNumber page :
         {PageNumber{0}, PageNumber{1}, PageNumber{2}, groupTable->page, groupTable->ownedMap.page,
          firstOf(groupTable->ownedMap), groupTable->trees[0].root,
          firstOf(elementTable->find("FillPreview")->ownedMap)}) {
        SCOPED_TRACE(page);
        Bytes content = sound;
        const std::size_t row = DataPage::open(database->pages(), 1).slot(0).offset;
        content[kPageSize + row + 5 + page / 8] |= static_cast<std::uint8_t>(1U << (page % 8));
        const auto spoilt = open(content);
        try {
            addPalette(*spoilt, "Nova", {});
            FAIL() << "written to";
        } catch (const Damage& refusal) {
            EXPECT_EQ(refusal.page(), page);
            EXPECT_EQ(refusal.rule(), rule::kUsedNotFree);
        }
        EXPECT_EQ(*files.files.at(kName), content);
        EXPECT_NE(damage(*spoilt).find("the page is in use but marked as free"), std::string::npos);
    }
}

TEST_F(MapLayouts, LeavePagesThatNameATableAloneWhateverTheFreeMapSays) {
    // Freed by another program, which has left its content.
    const auto database = open(sound);
    const PageNumber table = database->definition("TFillGroup")->page;
    const PageNumber stale = database->pages().append();
    clearDataPage(database->pages().change(stale), table);
    {
        const auto made = files.create("/stale.mdb");
        database->pages().writeTo(*made);
        made->publish();
    }
    const auto reopened = Database::open(files, "/stale.mdb");
    ASSERT_TRUE(reopened->space().isFree(stale));
    ASSERT_EQ(damage(*reopened), "");
    edit(*reopened);
    EXPECT_EQ(DataPage::open(reopened->pages(), stale).owner(), table);
    EXPECT_TRUE(reopened->space().isFree(stale));
    EXPECT_EQ(damage(*reopened), "");
    expectTheRows(*reopened);
}

}  // namespace
}  // namespace huebrush::jet
