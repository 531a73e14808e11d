// SPDX-License-Identifier: MPL-2.0

#include "jet/page/DataPage.h"

#include <gtest/gtest.h>

namespace huebrush::jet {
namespace {

constexpr PageNumber kNumber = 9;

class DataPages : public ::testing::Test {
 protected:
    DataPages() { clearDataPage(page, 3); }
    DataPage view() const { return {PagePointer(page), kNumber}; }
    std::uint8_t add(const Bytes& row) { return addRow(page, kNumber, row, SlotFlag::kNone); }
    Bytes row(std::size_t slot) const {
        const DataPage data = view();
        const ByteView bytes = data.row(data.slot(slot)).all();
        return {bytes.begin(), bytes.end()};
    }

    Page page{};
};

TEST_F(DataPages, RowsStackFromTheEndAndTheFreeBytesAreCounted) {
    add(Bytes(10, 1));
    add(Bytes(20, 2));
    EXPECT_EQ(view().slot(0).offset, 4086U);
    EXPECT_EQ(view().slot(1).offset, 4066U);
    EXPECT_EQ(view().freeBytes(), kPageSize - 14 - 4 - 30);
    EXPECT_EQ(view().statedFreeBytes(), view().freeBytes());
    EXPECT_EQ(view().owner(), 3U);
}

TEST_F(DataPages, ARowThatGrowsOrShrinksMovesTheRowsBelowIt) {
    add(Bytes(10, 1));
    add(Bytes(20, 2));
    add(Bytes(30, 3));
    EXPECT_TRUE(setRow(page, kNumber, 1, Bytes(50, 4), SlotFlag::kTarget));
    EXPECT_EQ(row(0), Bytes(10, 1));
    EXPECT_EQ(row(1), Bytes(50, 4));
    EXPECT_EQ(row(2), Bytes(30, 3));
    EXPECT_EQ(view().slot(1).flags, SlotFlag::kTarget);
    EXPECT_TRUE(setRow(page, kNumber, 1, Bytes(5, 5), SlotFlag::kNone));
    EXPECT_EQ(row(1), Bytes(5, 5));
    EXPECT_EQ(row(2), Bytes(30, 3));
    EXPECT_EQ(view().statedFreeBytes(), view().freeBytes());
}

TEST_F(DataPages, ADeletedRowGivesItsBytesBackAndItsSlotIsUsedAgain) {
    add(Bytes(10, 1));
    add(Bytes(20, 2));
    const std::size_t free = view().freeBytes();
    deleteRow(page, kNumber, 0);
    EXPECT_TRUE(view().slot(0).deleted());
    EXPECT_EQ(view().freeBytes(), free + 10);
    EXPECT_EQ(row(1), Bytes(20, 2));
    EXPECT_EQ(add(Bytes(7, 7)), 0);
    EXPECT_EQ(row(0), Bytes(7, 7));
    EXPECT_EQ(row(1), Bytes(20, 2));
    EXPECT_TRUE(view().hasRows());
}

TEST_F(DataPages, ARowThatDoesNotFitIsRefusedAndNothingChanges) {
    add(Bytes(4000, 1));
    EXPECT_TRUE(fitsOn(view(), 78));
    EXPECT_FALSE(fitsOn(view(), 79));
    EXPECT_FALSE(setRow(page, kNumber, 0, Bytes(4081, 2), SlotFlag::kNone));
    EXPECT_EQ(row(0), Bytes(4000, 1));
}

TEST_F(DataPages, APageHasAtMost255Slots) {
    for (int i = 0; i < 255; ++i) add(Bytes(1, 1));
    EXPECT_FALSE(fitsOn(view(), 1));
    deleteRow(page, kNumber, 200);
    EXPECT_TRUE(fitsOn(view(), 1));
    EXPECT_EQ(add(Bytes(1, 2)), 200);
}

TEST_F(DataPages, SlotsThatLieOutsideAreDamage) {
    add(Bytes(10, 1));
    add(Bytes(10, 2));
    const Page good = page;
    Writer(page).u16(12, 2042);
    EXPECT_THROW(view(), Damage);
    page = good;
    Writer(page).u16(16, 0x0010);
    EXPECT_THROW(view().slot(1), Damage);
    page = good;
    Writer(page).u16(16, 4090);
    EXPECT_THROW(view().slot(1), Damage);
    page = good;
    Writer(page).u16(14, 0x1FFF);
    EXPECT_THROW(view().slot(0), Damage);
    EXPECT_THROW(view().slot(2), Damage);
}

}  // namespace
}  // namespace huebrush::jet
