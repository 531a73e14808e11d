// SPDX-License-Identifier: MPL-2.0

// Palettes in numbers and sizes beyond everyday ones.

#include "base/Text.h"
#include "jet/records/Records_test_support.h"

namespace huebrush::jet {
namespace {

std::string elementsOf(const Value& id) {
    return base::text("SELECT TFillElementParameter.* From TFillElementParameter Where (GroupID =",
                      std::get<std::int32_t>(id), ")ORDER BY OrderNumber");
}

class Volumes : public OnPaletteFile {
 protected:
    std::size_t pageCount() { return file.database->pages().count(); }
};

/// What an element of the test below has in a column, by its number.
Value textureOf(std::size_t element) {
    if (element % 3 == 0) return {};
    if (element % 3 == 1) return std::string();
    return "Příliš žluťoučký kůň " + std::to_string(element);
}

Value previewOf(std::size_t element) {
    const std::vector<std::size_t> sizes{
        0, 1, 2000, 4000, 50000, 300000, (std::size_t{16} << 20U) / kShare};
    if (element % 11 == 10) return {};
    return patternBytes(element < sizes.size() ? sizes[element] : element * 97,
                        static_cast<std::uint32_t>(element));
}

TEST_F(Volumes, PalettesWithEveryKindOfValueComeBackThroughRecordSets) {
    const std::vector<std::string> names{"žlutá podzimní", "Čerň a šeď", "časné jaro"};
    constexpr std::size_t kElements = 50;
    Connection connection(file.files);
    connection.Open(toFile);
    Recordset groups;
    groups.Open("SELECT TFillGroup.* From TFillGroup ORDER BY Name", connection);
    Recordset elements;
    elements.Open("SELECT TFillElementParameter.* From TFillElementParameter", connection);
    for (const std::string& name : names) {
        connection.inOneCommit([&] {
            groups.AddNew();
            groups.SetField("Name", name);
            groups.Update();
            for (std::size_t i = 0; i < kElements; ++i) {
                elements.AddNew();
                elements.SetField("GroupID", groups.Field("ID"));
                // The last one first.
                elements.SetField("OrderNumber", static_cast<std::int32_t>(kElements - i));
                elements.SetField("TextureName", textureOf(i));
                elements.SetField("FillPreview", previewOf(i));
                elements.UpdateBatch();
            }
            groups.SetField("Count", static_cast<std::int32_t>(kElements));
            groups.Update();
        });
    }
    Connection again(file.files);
    again.Open(toFile);
    Recordset saved;
    saved.Open("SELECT TFillGroup.* From TFillGroup ORDER BY Name", again);
    for (const char* name : {"časné jaro", "Čerň a šeď", "žlutá podzimní"}) {
        ASSERT_FALSE(saved.Eof());
        EXPECT_EQ(saved.Field("Name"), Value(std::string(name)));
        EXPECT_EQ(saved.Field("Count"), Value(static_cast<std::int32_t>(kElements)));
        Recordset loaded;
        loaded.Open(elementsOf(saved.Field("ID")), again);
        for (std::size_t i = kElements; i-- > 0; loaded.MoveNext()) {
            ASSERT_FALSE(loaded.Eof());
            ASSERT_EQ(loaded.Field("TextureName"), textureOf(i));
            ASSERT_TRUE(loaded.Field("FillPreview") == previewOf(i)) << i;
        }
        EXPECT_TRUE(loaded.Eof());
        saved.MoveNext();
    }
    EXPECT_TRUE(saved.Eof());
    file.database->refresh();
    EXPECT_EQ(faults(*file.database), "");
}

TEST_F(Volumes, MuchMakesDeepIndexesAndMapsOfBitmapPages) {
    constexpr std::size_t kPalettes = 2000 / kShare;
    file.database->inOneCommit([&] {
        for (std::size_t i = 0; i < kPalettes; ++i) {
            addPalette(*file.database, "Paleta",
                       std::vector<std::size_t>(20, i % 10 == 0 ? 900 : 0));
        }
    });
    const auto table = file.database->definition("TFillElementParameter");
    EXPECT_EQ(UsageMap(file.database->pages(), table->ownedMap).bitmapPages().empty(), kShare > 1);
    EXPECT_EQ((*file.database->pages().read(table->trees[0].root))[0], PageType::kNode);
    EXPECT_EQ(faults(*file.database), "");
}

TEST_F(Volumes, ErasingHalfAndAddingAgainDoesNotMakeTheFileGrow) {
    std::vector<std::size_t> previews{0, 100, 2000, 5000, 3, 900};
    previews.resize(20, 0);
    std::vector<std::int32_t> ids(casesOf(2000, 100));
    file.database->inOneCommit([&] {
        for (std::int32_t& id : ids) id = addPalette(*file.database, "Paleta", previews);
    });
    const std::size_t size = pageCount();
    std::size_t stable = 0;
    for (std::size_t round = 0; round < 10; ++round) {
        file.database->inOneCommit([&] {
            for (std::size_t i = round % 2; i < ids.size(); i += 2) {
                erasePalette(*file.database, ids[i]);
            }
        });
        ASSERT_EQ(faults(*file.database), "");
        file.database->inOneCommit([&] {
            for (std::size_t i = round % 2; i < ids.size(); i += 2) {
                ids[i] = addPalette(*file.database, "Paleta", previews);
            }
        });
        ASSERT_EQ(faults(*file.database), "");
        ASSERT_EQ(allRows(*file.database, "TFillElementParameter").size(), ids.size() * 20);
        // The first round leaves some pages emptier than they were filled at once.
        if (round == 0) stable = pageCount();
        ASSERT_EQ(pageCount(), stable);
    }
    std::cout << size << " pages before, " << pageCount() << " after\n";
    EXPECT_LE(pageCount(), size + size / 50 + 2);
}

}  // namespace
}  // namespace huebrush::jet
