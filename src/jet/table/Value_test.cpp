// SPDX-License-Identifier: MPL-2.0

#include "jet/table/Value.h"

#include <gtest/gtest.h>

#include "base/Error.h"

namespace huebrush::jet {
namespace {

TEST(Value, AFloatBecomesALongHalfToEven) {
    EXPECT_EQ(toLong(0.5F), 0);
    EXPECT_EQ(toLong(1.5F), 2);
    EXPECT_EQ(toLong(2.5), 2);
    EXPECT_EQ(toLong(-0.5), 0);
    EXPECT_EQ(toLong(-1.5), -2);
    EXPECT_EQ(toLong(true), -1);
    EXPECT_EQ(toLong(std::string("12")), 12);
}

TEST(Value, WhatIsNotALongIsRefused) {
    EXPECT_THROW(toLong(3e9), base::Error);
    EXPECT_THROW(toLong(std::numeric_limits<double>::quiet_NaN()), base::Error);
    EXPECT_THROW(toLong(Value()), base::Error);
    EXPECT_THROW(toLong(Bytes{1}), base::Error);
}

TEST(Text, IsCompressedOnlyWhereAllOfItCanBe) {
    EXPECT_EQ(encodeText("abc", true, 255), (Bytes{0xFF, 0xFE, 'a', 'b', 'c'}));
    EXPECT_EQ(encodeText("ab", true, 255), (Bytes{'a', 0, 'b', 0}));
    EXPECT_EQ(encodeText("abč", true, 255), (Bytes{'a', 0, 'b', 0, 0x0D, 0x01}));
    EXPECT_EQ(encodeText("abc", false, 255).size(), 6U);
    EXPECT_EQ(encodeText("abcd", true, 3).size(), 8U);
}

TEST(Text, ComesBackAsItWas) {
    for (const std::string text : {"", "a", "kůň", "áéíóú", "日本語", "😀 ano"}) {
        EXPECT_EQ(decodeText(encodeText(text, true, 255)), text);
        EXPECT_EQ(decodeText(encodeText(text, false, 255)), text);
    }
}

TEST(Text, AZeroSwitchesBetweenOneAndTwoBytes) {
    EXPECT_EQ(decodeText(Bytes{0xFF, 0xFE, 'a', 0, 0x0D, 0x01, 0, 'b'}), "ačb");
    EXPECT_EQ(decodeText(Bytes{0xFF, 0xFE}), "");
    EXPECT_EQ(decodeText(Bytes{0xFF, 0xFE, 0, 'x'}), "");
}

}  // namespace
}  // namespace huebrush::jet
