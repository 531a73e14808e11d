// SPDX-License-Identifier: MPL-2.0

#include "jet/table/Value.h"

#include <gtest/gtest.h>

#include <functional>

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

std::int32_t errorOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const base::Error& error) {
        return error.number();
    }
    return 0;
}

TEST(Value, NumbersOfAnyKindBecomeASingle) {
    EXPECT_EQ(toSingle(7), 7.0F);
    EXPECT_EQ(toSingle(0.25F), 0.25F);
    EXPECT_EQ(toSingle(0.1), 0.1F);
    EXPECT_EQ(toSingle(true), -1.0F);
    EXPECT_EQ(toSingle(Money{15000}), 1.5F);
    EXPECT_EQ(toSingle(std::string("0.5")), 0.5F);
    EXPECT_EQ(errorOf([] { toSingle(1e39); }), base::ErrorNumber::kOverflow);
    EXPECT_EQ(errorOf([] { toSingle(std::string("půl")); }), base::ErrorNumber::kTypeMismatch);
    EXPECT_EQ(errorOf([] { toSingle(Bytes{1}); }), base::ErrorNumber::kTypeMismatch);
}

TEST(Value, TextsAndWholeNumbersBecomeText) {
    EXPECT_EQ(toText(std::string("kůň")), "kůň");
    EXPECT_EQ(toText(std::string()), "");
    EXPECT_EQ(toText(-12), "-12");
    EXPECT_EQ(errorOf([] { toText(0.5F); }), base::ErrorNumber::kTypeMismatch);
    EXPECT_EQ(errorOf([] { toText(Bytes{1}); }), base::ErrorNumber::kTypeMismatch);
}

TEST(Value, NoConversionTakesNull) {
    EXPECT_EQ(errorOf([] { toLong(Value()); }), base::ErrorNumber::kInvalidUseOfNull);
    EXPECT_EQ(errorOf([] { toSingle(Value()); }), base::ErrorNumber::kInvalidUseOfNull);
    EXPECT_EQ(errorOf([] { toText(Value()); }), base::ErrorNumber::kInvalidUseOfNull);
}

std::string englishOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const base::Error& error) {
        EXPECT_NE(error.description(), error.what());
        return error.what();
    }
    return {};
}

TEST(Value, RefusalsOfAConversionAreInEnglishToo) {
    EXPECT_EQ(englishOf([] { toLong(Value()); }), "a value is null that must not be");
    EXPECT_EQ(englishOf([] { toText(Value()); }), "a value is null that must not be");
    EXPECT_EQ(englishOf([] { toLong(3e9); }), "a number is out of range");
    EXPECT_EQ(englishOf([] { toLong(Bytes{1}); }), "a value is not a number");
    EXPECT_EQ(englishOf([] { toText(Bytes{1}); }), "a value is not a text");
    EXPECT_EQ(englishOf([] { toLong(std::string("půl")); }), "\"půl\" is not a number");
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
