#include "jet/page/UsageMap.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(pages.count(), 3U);
    space.giveBack(first);
    EXPECT_TRUE(space.isFree(first));
    EXPECT_FALSE(space.isFree(second));
    EXPECT_EQ(space.take(), first);
    EXPECT_EQ(pages.count(), 3U);
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

}  // namespace
}  // namespace huebrush::jet
