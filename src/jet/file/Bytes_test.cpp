// SPDX-License-Identifier: MPL-2.0

#include "jet/file/Bytes.h"

#include <gtest/gtest.h>

namespace huebrush::jet {
namespace {

TEST(Reader, ReadsLittleEndianNumbersAndBigEndianOnesOfIndexEntries) {
    const Bytes bytes{0x01, 0x02, 0x03, 0x84};
    const Reader in(bytes, 7);
    EXPECT_EQ(in.u8(3), 0x84);
    EXPECT_EQ(in.u16(0), 0x0201);
    EXPECT_EQ(in.u32(0), 0x84030201U);
    EXPECT_EQ(in.i32(0), static_cast<std::int32_t>(0x84030201U));
    EXPECT_EQ(in.u24Big(0), 0x010203U);
    EXPECT_EQ(in.u32Big(0), 0x01020384U);
}

TEST(Reader, ReportsPageOffsetAndRuleOfWhatLiesOutside) {
    const Bytes bytes(8, 0);
    const Reader part = Reader(bytes, 7).part(2, 4);
    try {
        part.u32(1);
        FAIL() << "no error";
    } catch (const Damage& damage) {
        EXPECT_EQ(damage.page(), 7U);
        EXPECT_EQ(damage.offset(), 3U);
        EXPECT_EQ(damage.rule(), rule::kWithinBytes);
        EXPECT_EQ(damage.number(), ErrorNumber::kDamaged);
        EXPECT_EQ(damage.description(),
                  "Soubor databáze je poškozený: strana 7, bajt 3 (pravidlo B1).");
        EXPECT_STREQ(damage.what(),
                     "the database file is damaged: page 7, byte 3: a field reaches beyond its "
                     "page or row (rule B1)");
    }
}

TEST(Reader, OffsetsNearTheLargestNumberDoNotWrapAround) {
    const Bytes bytes(8, 0);
    const Reader in(bytes, 1);
    EXPECT_THROW(in.bytes(static_cast<std::size_t>(-1), 2), Damage);
    EXPECT_THROW(in.bytes(4, static_cast<std::size_t>(-2)), Damage);
    EXPECT_EQ(in.bytes(8, 0).size(), 0U);
}

TEST(Writer, RefusesPlacesOutside) {
    Bytes bytes(4, 0);
    const Writer out(bytes);
    out.u32(0, 0x04030201);
    EXPECT_EQ(bytes, (Bytes{1, 2, 3, 4}));
    EXPECT_THROW(out.u16(3, 1), base::Error);
    EXPECT_THROW(out.bytes(2, Bytes(3, 0)), base::Error);
    EXPECT_EQ(bytes, (Bytes{1, 2, 3, 4}));
}

}  // namespace
}  // namespace huebrush::jet
