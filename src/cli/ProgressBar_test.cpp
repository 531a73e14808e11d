// SPDX-License-Identifier: MPL-2.0

#include "cli/ProgressBar.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace huebrush::cli {
namespace {

TEST(ProgressLine, FillsUpWithTheWork) {
    EXPECT_EQ(progressLine(0, 10, 80), "[" + std::string(40, '.') + "] 0/10");
    EXPECT_EQ(progressLine(5, 10, 80),
              "[" + std::string(20, '#') + std::string(20, '.') + "] 5/10");
    EXPECT_EQ(progressLine(10, 10, 80), "[" + std::string(40, '#') + "] 10/10");
    EXPECT_EQ(progressLine(11, 10, 80), "[" + std::string(40, '#') + "] 11/10");
}

TEST(ProgressLine, IsNeverWiderThanTheTerminal) {
    for (std::size_t width = 0; width < 100; ++width) {
        for (const std::size_t done : {0U, 7U, 123456U}) {
            const std::string line = progressLine(done, 123456, width);
            EXPECT_LT(line.size(), std::max<std::size_t>(width, 1)) << width << ": " << line;
        }
    }
    EXPECT_EQ(progressLine(7, 10, 12), "[##..] 7/10");
    EXPECT_EQ(progressLine(7, 10, 5), "7/10");
    EXPECT_EQ(progressLine(7, 10, 4), "");
}

}  // namespace
}  // namespace huebrush::cli
