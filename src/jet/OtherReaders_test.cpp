// SPDX-License-Identifier: MPL-2.0

// Files that this engine has written are read by mdb-export as by this engine.

#include <algorithm>

#include "jet/MapLayouts_test_support.h"
#include "jet/MdbExport_test_support.h"
#include "jet/file/SystemFolder_test_support.h"

namespace huebrush::jet {
namespace {

class OtherReaders : public SystemFolder {
 protected:
    void compareAll() {
        ASSERT_EQ(damage(*database), "");
        for (const StoredObject& object : database->objects()) {
            if (!object.isTable()) continue;
            SCOPED_TRACE(object.name);
            const auto table = database->definition(static_cast<PageNumber>(object.id));
            Cells ours = exportTable(*database, *table);
            Cells theirs = runMdbExport(file, object.name);
            // A moved row comes where its slot is, or where its bytes are.
            std::sort(ours.begin() + 1, ours.end());
            std::sort(theirs.begin() + 1, theirs.end());
            ASSERT_EQ(ours.size(), theirs.size());
            for (std::size_t row = 0; row < ours.size(); ++row) {
                ASSERT_EQ(ours[row].size(), theirs[row].size());
                for (std::size_t i = 0; i < ours[row].size(); ++i) {
                    EXPECT_TRUE(sameCell(ours[row][i], theirs[row][i]))
                        << "row " << row << ", " << ours[0][i] << ": "
                        << ours[row][i].substr(0, 100) << " and " << theirs[row][i].substr(0, 100);
                }
            }
        }
    }

    static Bytes contentOf(const fs::path& name) {
        const auto opened = systemFiles().open(name);
        Bytes content(opened->size());
        opened->read(0, content);
        return content;
    }
    static void putContent(const fs::path& name, const Bytes& content) {
        fs::remove(name);
        const auto made = systemFiles().create(name);
        made->write(0, content);
        made->publish();
    }

    std::shared_ptr<Database> database = Database::open(systemFiles(), file);
};

TEST_F(OtherReaders, ReadPalettesWithCzechNamesAndPreviewsOfAllSizes) {
    const std::vector<std::size_t> sizes{0, 1, 2000, 4000, 50000, 300000, (16U << 20U) / kShare};
    std::vector<std::size_t> previews;
    for (std::size_t i = 0; i < 50; ++i) previews.push_back(i < 7 ? sizes[i] : i * 40);
    database->inOneCommit([&] {
        addPalette(*database, "Žluťoučký kůň", previews);
        previews[6] = 10;
        addPalette(*database, "příšerně úpěl", previews);
        addPalette(*database, "ďábelské ódy", previews);
        addPalette(*database, "Prázdná", {});
        database->change([&] {
            Table table(*database, "TFillGroup");
            table.insert({{&table.column("Name"), std::string("S popisem")},
                          {&table.column("Description"), std::string()}});
        });
    });
    compareAll();
}

TEST_F(OtherReaders, ReadWhatEditingAndErasingHasLeft) {
    database->inOneCommit([&] {
        for (int i = 0; i < 60; ++i) addPalette(*database, "Paleta", {10, 700, 5000, 0});
        for (std::int32_t id = 1; id <= 60; id += 2) erasePalette(*database, id);
        database->change([&] {
            Table table(*database, "TFillElementParameter");
            std::vector<RowId> rows;
            table.scan([&](RowId id, const Row&) {
                rows.push_back(id);
                return true;
            });
            // Some of them outgrow their pages.
            for (std::size_t i = 0; i < rows.size(); i += 2) {
                table.update(rows[i], {{&table.column("TextureName"), std::string(255, 'x')},
                                       {&table.column("FillPreview"), patternBytes(i * 90, 1)}});
            }
        });
        for (int i = 0; i < 20; ++i) addPalette(*database, "Nová", {300, 4077});
    });
    compareAll();
}

TEST_F(OtherReaders, ReadATableThatNeedsMapsOfBitmapPages) {
    database->inOneCommit([&] {
        for (std::uint32_t i = 0; i < 400 / kShare; ++i) {
            addPalette(*database, "Paleta", std::vector<std::size_t>(20, 900));
        }
    });
    const auto table = database->definition("TFillElementParameter");
    EXPECT_EQ(
        UsageMap(database->pages(), table->find("FillPreview")->ownedMap).bitmapPages().empty(),
        kShare > 1);
    compareAll();
}

TEST_F(OtherReaders, ReadFilesWithOtherMapsAsTheyWereAndAsTheyAreEdited) {
    database->inOneCommit([&] {
        for (int i = 0; i < 12; ++i) addPalette(*database, "Paleta", {10, 700, 5000, 0});
        for (std::int32_t id = 1; id <= 12; id += 3) erasePalette(*database, id);
    });
    const Bytes sound = contentOf(file);
    for (std::uint32_t seed = 0; seed < 40 / kShare; ++seed) {
        SCOPED_TRACE(seed);
        putContent(file, withOtherMaps(sound, seed, Layouts::ofAllReaders));
        database = Database::open(systemFiles(), file);
        compareAll();
        database->inOneCommit([&] {
            for (int i = 0; i < 3; ++i) addPalette(*database, "Nova", {10, 700, 5000, 0});
            for (std::int32_t id = 2; id <= 12; id += 3) erasePalette(*database, id);
        });
        compareAll();
    }
}

}  // namespace
}  // namespace huebrush::jet
