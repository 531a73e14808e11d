// SPDX-License-Identifier: MPL-2.0

// Breaks the rules of docs/jet4-format.md, one at a time, and asserts that the check reports it.

#include "jet/check/Check.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "jet/Palette_test_support.h"
#include "jet/table/Index.h"

namespace huebrush::jet {
namespace {

class Violations : public ::testing::Test {
 protected:
    Violations() {
        addPalette(*file.database, "Podzim", {30, 2000, 9000});
        good = *file.files.files.at(PaletteFile::kName);
        groups = file.database->definition("TFillGroup");
        elements = file.database->definition("TFillElementParameter");
    }

    PageNumber dataPage(const TableDefinition& table) {
        return UsageMap(file.database->pages(), table.ownedMap).all().at(0);
    }
    /// Where a row begins on its page.
    std::size_t rowAt(PageNumber page, std::size_t slot) {
        return DataPage::open(file.database->pages(), page).slot(slot).offset;
    }
    /// Where some bytes are on a page.
    std::size_t find(PageNumber page, const Bytes& wanted) {
        const auto begin = good.begin() + page * static_cast<long>(kPageSize);
        return static_cast<std::size_t>(
            std::search(begin, begin + kPageSize, wanted.begin(), wanted.end()) - begin);
    }
    PageNumber findPage(const Bytes& wanted) {
        PageNumber page = 0;
        while (find(page, wanted) == kPageSize) ++page;
        return page;
    }
    /// Where the 12 bytes of an element's preview are, by their first four.
    std::size_t previewAt(PageNumber page, std::uint32_t word) {
        Bytes wanted;
        append32(wanted, word);
        return find(page, wanted);
    }

    /// The rules that a file breaks when bytes of a page are others.
    std::set<std::string> broken(PageNumber page, std::size_t at, const Bytes& bytes) {
        Bytes spoilt = good;
        std::copy(bytes.begin(), bytes.end(),
                  spoilt.begin() + static_cast<long>(page * kPageSize + at));
        MemoryFiles files;
        files.files["/spoilt.mdb"] = std::make_shared<Bytes>(spoilt);
        std::set<std::string> rules;
        const auto database = Database::open(files, "/spoilt.mdb");
        for (const Violation& each : check(*database).violations) {
            rules.insert(std::string(each.rule.number));
            EXPECT_NE(each.text().find(each.rule.breach), std::string::npos);
        }
        return rules;
    }
    void expect(const char* rule, PageNumber page, std::size_t at, const Bytes& bytes) {
        EXPECT_TRUE(broken(page, at, bytes).contains(rule)) << rule;
    }

    PaletteFile file;
    Bytes good;
    std::shared_ptr<const TableDefinition> groups;
    std::shared_ptr<const TableDefinition> elements;
};

TEST_F(Violations, AreReported) {
    const PageNumber group = dataPage(*groups);
    const PageNumber element = dataPage(*elements);
    const std::size_t groupRow = rowAt(group, 0);
    const std::size_t elementRow = rowAt(element, 0);
    EXPECT_EQ(broken(group, 8, {}), std::set<std::string>());
    expect("F3", group, 0, {9});
    expect("M3", 1, rowAt(1, 0) + 5, {0xFF, 0xFF, 0xFF, 0xFF});
    expect("D4", group, 2, {0, 0});
    expect("D5", group, 4, {2, 0, 0, 0});
    expect("R1", group, groupRow, {200, 0});
    expect("R2", group, kPageSize - 3, {0xFF, 0xFF});
    expect("R4", group, kPageSize - 1, {0x0D});
    expect("T1", groups->page, 8, {0xFF, 0xFF, 0, 0});
    expect("T2", groups->page, 63 + 12 * groups->trees.size(), {77});
    expect("T4", groups->page, 16, {9, 0, 0, 0});
    expect("T5", groups->page, 20, {0, 0, 0, 0});
    expect("I6", group, 14, {0x00, 0xD0});
    expect("I7", group, groupRow + 2, {5, 0, 0, 0});
    expect("K2", element, elementRow + 6, {9, 0, 0, 0});
    expect("K1", elements->page, find(elements->page, {2, 1, 0, 0, 0}) + 1, {7});
    expect(
        "D6", group, 14,
        {static_cast<std::uint8_t>(groupRow), static_cast<std::uint8_t>(groupRow >> 8U | 0x80U)});
    expect("M2", groups->ownedMap.page, rowAt(groups->ownedMap.page, groups->ownedMap.slot) + 68,
           {0x80});
    const std::size_t lastColumn = 63 + 12 * groups->trees.size() + std::size_t{25} * 3;
    expect("R3", groups->page, lastColumn + 23, {2, 0});
    expect("T3", groups->page, find(groups->page, {0x83, 0x07, 0, 0}) + 4, {99, 0});
    expect("P1", findPage({'M', 'R', '2', 0}),
           find(findPage({'M', 'R', '2', 0}), {'M', 'R', '2', 0}), {'X'});
    expect("C1", 2, find(2, {'L', 0, 'v', 0, 'P', 0}), {'X'});
}

TEST_F(Violations, OfIndexesAreReported) {
    const PageNumber leaf = elements->trees[0].root;
    expect("I1", leaf, 27, {0xFF});
    // The first entries share their first four bytes.
    expect("I2", leaf, 480 + 4, {0xFF});
    // A page in the map that the tree does not use.
    const RowId map = elements->trees[0].map;
    const PageNumber stray = file.database->pages().count() - 1;
    const auto bit = static_cast<std::uint8_t>(1U << (stray % 8));
    expect("M5", map.page, rowAt(map.page, map.slot) + 5 + stray / 8, {bit});
}

TEST_F(Violations, OfLongValuesAreReported) {
    const PageNumber element = dataPage(*elements);
    const std::size_t single = previewAt(element, 2000U | 0x40000000U);
    ASSERT_LT(single, kPageSize);
    expect("L1", element, single + 3, {0xC0});
    expect("L2", element, single, {0xFF, 0x0F});
    expect("L5", element, single, {0, 0, 0, 0x80});
    // Two values share their first part.
    const std::size_t chain = previewAt(element, 9000U);
    ASSERT_LT(chain, kPageSize);
    const auto first = good.begin() + static_cast<long>(element * kPageSize + chain + 4);
    expect("L3", element, single + 4, Bytes(first, first + 4));
    // The properties of a table are on a page of another column.
    const PageNumber other = findPage({'M', 'R', '2', 0});
    expect("L4", element, single, {100, 0, 0, 0x40, 0, static_cast<std::uint8_t>(other), 0, 0});
}

TEST_F(Violations, OfOwnershipAreReported) {
    // Two indexes with the same root.
    Bytes root;
    append32(root, elements->trees[0].root);
    const std::size_t trees = [&] {
        const Bytes bytes = joinDefinition(file.database->pages(), elements->page);
        Bytes wanted;
        append32(wanted, elements->trees[1].root);
        const auto found = std::search(bytes.begin(), bytes.end(), wanted.begin(), wanted.end());
        return static_cast<std::size_t>(found - bytes.begin());
    }();
    expect("F4", elements->page, trees, root);
    // The rows of two tables have the same map.
    Bytes map;
    append32(map, groups->ownedMap.pointer());
    expect("F4", elements->page, 55, map);
}

}  // namespace
}  // namespace huebrush::jet
