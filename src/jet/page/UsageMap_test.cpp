// SPDX-License-Identifier: MPL-2.0

#include "jet/page/UsageMap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "jet/Palette_test_support.h"
#include "jet/page/Space.h"

namespace huebrush::jet {
namespace {

class UsageMaps : public ::testing::Test {
 protected:
    UsageMaps() { makeMapPage(pages); }

    Pages pages;
    UsageMap map{pages, {0, 1}};
    Space space{pages, {0, 0}};
};

TEST_F(UsageMaps, KeepsASetWhereverItsPagesAre) {
    map.add(5, space.pageSource());
    map.add(300, space.pageSource());
    EXPECT_EQ(map.all(), (std::vector<PageNumber>{5, 300}));
    EXPECT_TRUE(map.has(300));
    EXPECT_FALSE(map.has(301));
    map.drop(5);
    map.drop(5);
    EXPECT_EQ(map.first(0, 1000), 300U);
    EXPECT_EQ(map.first(301, 1000), std::nullopt);
}

TEST_F(UsageMaps, MovesItsBaseAsLongAsAllBitsFit) {
    map.add(10000, space.pageSource());
    map.add(10500, space.pageSource());
    EXPECT_TRUE(map.bitmapPages().empty());
    map.drop(10000);
    map.add(10900, space.pageSource());
    EXPECT_TRUE(map.bitmapPages().empty());
    EXPECT_EQ(map.all(), (std::vector<PageNumber>{10500, 10900}));
}

TEST_F(UsageMaps, TakesBitmapPagesWhenTheBitsDoNotFitItsRow) {
    map.add(3, space.pageSource());
    map.add(40000, space.pageSource());
    map.add(600, space.pageSource());
    EXPECT_EQ(map.bitmapPages().size(), 2U);
    EXPECT_EQ(map.all(), (std::vector<PageNumber>{3, 600, 40000}));
    map.drop(600);
    EXPECT_EQ(map.first(4, 0xFFFFFFFF), 40000U);
}

TEST_F(UsageMaps, IsAsASetUnderRandomChanges) {
    std::mt19937 random(1);
    std::set<PageNumber> model;
    for (int i = 0; i < 3000; ++i) {
        const auto page = static_cast<PageNumber>(random() % (i < 500 ? 500 : 100000));
        if (random() % 3 == 0) {
            map.drop(page);
            model.erase(page);
        } else {
            map.add(page, space.pageSource());
            model.insert(page);
        }
    }
    EXPECT_EQ(map.all(), std::vector<PageNumber>(model.begin(), model.end()));
}

TEST_F(UsageMaps, FreePagesAreTakenBeforeNewOnes) {
    const PageNumber first = space.take();
    const PageNumber second = space.take();
    EXPECT_EQ(pages.count(), 8U);
    space.giveBack(first);
    EXPECT_TRUE(space.isFree(first));
    EXPECT_FALSE(space.isFree(second));
    EXPECT_EQ(space.take(), first);
    EXPECT_EQ(pages.count(), 8U);
}

TEST_F(UsageMaps, TheMapOfFreePagesGrowsWithTheFile) {
    std::set<PageNumber> taken;
    // More than a map in the row itself can hold, and more than one bitmap page.
    for (int i = 0; i < 34000; ++i) taken.insert(space.take());
    EXPECT_EQ(taken.size(), 34000U);
    EXPECT_FALSE(space.map().bitmapPages().empty());
    for (const PageNumber page : taken) ASSERT_FALSE(space.isFree(page)) << page;
    for (const PageNumber page : space.map().bitmapPages()) {
        EXPECT_EQ(taken.count(page), 0U);
        EXPECT_FALSE(space.isFree(page));
    }
    space.giveBack(12345);
    EXPECT_EQ(space.take(), 12345U);
}

TEST_F(UsageMaps, OtherFormsAreDamage) {
    Page& page = pages.change(0);
    page[DataPage::open(pages, 0).slot(1).offset] = 2;
    EXPECT_THROW(map.all(), Damage);
}

/// The free map of a file of 16 pages as another program has left it.
class FreeMaps : public UsageMaps {
 protected:
    FreeMaps() {
        while (pages.count() < kEnd) pages.append();
    }
    void setFreeMap(const Bytes& row) { setRow(pages.change(0), 0, 0, row, SlotFlag::kNone); }
    static Bytes bits(PageNumber first, const Bytes& bits) {
        Bytes row{0};
        append32(row, first);
        append(row, bits);
        return row;
    }
    /// Form 1, of that size; without bitmap pages.
    static Bytes references(std::size_t size) {
        Bytes row(size, 0);
        row[0] = 1;
        return row;
    }
    /// Takes pages and frees them; none that is in use is ever taken.
    void takeAndGiveBack() {
        const PageNumber end = pages.count();
        std::set<PageNumber> taken;
        for (int i = 0; i < 40; ++i) taken.insert(space.take());
        EXPECT_EQ(taken.size(), 40U);
        EXPECT_GE(*taken.begin(), end);
        for (const PageNumber page : taken) EXPECT_FALSE(space.isFree(page));
        for (PageNumber page = 0; page < kEnd; ++page) EXPECT_FALSE(space.isFree(page)) << page;
        for (const PageNumber page : taken) space.giveBack(page);
        for (const PageNumber page : taken) EXPECT_TRUE(space.isFree(page));
    }

    static constexpr PageNumber kEnd = 16;
};

class FreeMapsFrom : public FreeMaps, public ::testing::WithParamInterface<PageNumber> {};

TEST_P(FreeMapsFrom, TheirFirstPageLeaveThoseBeforeAlone) {
    setFreeMap(bits(GetParam(), Bytes(64, 0xFF)));
    takeAndGiveBack();
}

INSTANTIATE_TEST_SUITE_P(All, FreeMapsFrom,
                         ::testing::Values(16U, 24U, 1600U, 30000U, 556512U, 0xFFFFFFF8U));

TEST_F(FreeMaps, OfNoBitsGetSome) {
    setFreeMap(bits(0, {}));
    takeAndGiveBack();
}

TEST_F(FreeMaps, WithoutBitmapPagesCountNoPageAsFree) {
    for (const std::size_t size : {1U, 5U, 69U, 101U}) {
        SCOPED_TRACE(size);
        setFreeMap(references(size));
        takeAndGiveBack();
    }
}

TEST_F(FreeMaps, HaveSeventeenBitmapPagesHoweverLongTheRowIs) {
    Bytes row = references(101);
    std::fill(row.begin() + 69, row.end(), std::uint8_t{0xAB});
    setFreeMap(row);
    EXPECT_TRUE(space.map().bitmapPages().empty());
    takeAndGiveBack();
    EXPECT_EQ(space.map().bitmapPages().size(), 1U);
    EXPECT_EQ(space.map().first(556512, 0xFFFFFFFF), std::nullopt);
}

TEST_F(FreeMaps, MayStandWhereTheirRowHasMovedTo) {
    const PageNumber page = pages.append();
    clearDataPage(pages.change(page), 0);
    const RowId target{
        page, addRow(pages.change(page), page, bits(16, Bytes(1, 0xFE)), SlotFlag::kTarget)};
    Bytes pointer;
    append32(pointer, target.pointer());
    setRow(pages.change(0), 0, 0, pointer, SlotFlag::kMoved);
    EXPECT_EQ(space.map().place(), target);
    takeAndGiveBack();
    EXPECT_EQ(space.map().place(), target);
    EXPECT_EQ(DataPage::open(pages, 0).slot(0).flags, SlotFlag::kMoved);
    EXPECT_EQ(DataPage::open(pages, page).slot(target.slot).flags, SlotFlag::kTarget);
}

TEST_F(FreeMaps, GetBitsForPagesBeforeTheirFirst) {
    setFreeMap(bits(160, Bytes(64, 0xFF)));
    space.giveBack(9);
    EXPECT_TRUE(space.isFree(9));
    for (const PageNumber page : {8U, 10U, 15U}) EXPECT_FALSE(space.isFree(page));
    EXPECT_TRUE(space.isFree(200));
    EXPECT_EQ(space.take(), 9U);
}

TEST_F(FreeMaps, NeverGiveAwayThePagesThatEveryFileHas) {
    setFreeMap(bits(0, Bytes(64, 0xFF)));
    EXPECT_THROW(space.take(), Damage);
}

TEST_F(FreeMaps, NeverGiveAwayWhatHasAnOwner) {
    setFreeMap(bits(8, {0x04, 0xFF}));
    PageOwners owners;
    owners.add(10);
    EXPECT_THROW(space.begin(owners), Damage);
    EXPECT_THROW(space.take(), Damage);
    owners.drop(10);
    space.begin(owners);
    EXPECT_EQ(space.take(), 10U);
}

TEST_F(FreeMaps, AreNotWrittenThroughANumberThatLeadsToAnotherPage) {
    Bytes row = references(69);
    Writer(row).u32(1, 12);
    setFreeMap(row);
    EXPECT_THROW(space.take(), Damage);
}

}  // namespace
}  // namespace huebrush::jet
