// SPDX-License-Identifier: MPL-2.0

#include "cli/FillText.h"

#include <gtest/gtest.h>

namespace huebrush::cli {
namespace {

TEST(OneLine, PutsABlankForBreaksOfLines) {
    EXPECT_EQ(oneLine("a\r\nb\n\nc"), "a b c");
    EXPECT_EQ(oneLine("\na"), "a");
    EXPECT_EQ(oneLine("Žluťoučký kůň \U0001F3A8"), "Žluťoučký kůň \U0001F3A8");
}

TEST(OneLine, LeavesNothingThatATerminalTakesForACommand) {
    EXPECT_EQ(oneLine("a\x1b[31mb"), "a\uFFFD[31mb");
    EXPECT_EQ(oneLine(std::string("\0\a\b\t\x7f", 5)), "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(oneLine("\u009b31m\u00a0"), "\uFFFD31m\u00a0");
    EXPECT_EQ(oneLine("\xC2"), "\xC2") << "half a character is none of them";
}

TEST(PercentText, HasAtMostTwoDecimals) {
    EXPECT_EQ(percentText(0.5F), "50");
    EXPECT_EQ(percentText(0.125F), "12.5");
    EXPECT_EQ(percentText(0.3333F), "33.33");
    EXPECT_EQ(percentText(0.0001F), "0.01");
}

TEST(CountOf, HasTheRightWord) {
    EXPECT_EQ(countOf(1, "fill", "fills"), "1 fill");
    EXPECT_EQ(countOf(0, "fill", "fills"), "0 fills");
}

}  // namespace
}  // namespace huebrush::cli
