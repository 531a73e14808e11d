// SPDX-License-Identifier: MPL-2.0

#include "files/LocalTime.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace huebrush::files {
namespace {

class FixedTime : public testing::Test {
 protected:
    void TearDown() override { unsetenv("SOURCE_DATE_EPOCH"); }
};

TEST_F(FixedTime, IsThatOfTheEnvironmentInUniversalTime) {
    setenv("SOURCE_DATE_EPOCH", "1700000000", 1);
    const std::tm time = localTime();
    EXPECT_EQ(time.tm_year + 1900, 2023);
    EXPECT_EQ(time.tm_mon + 1, 11);
    EXPECT_EQ(time.tm_mday, 14);
    EXPECT_EQ(time.tm_hour, 22);
    EXPECT_EQ(time.tm_min, 13);
    EXPECT_EQ(time.tm_sec, 20);
}

TEST_F(FixedTime, IsNoneWhereTheEnvironmentHasNoNumber) {
    for (const char* const text : {"", "soon", "17 "}) {
        setenv("SOURCE_DATE_EPOCH", text, 1);
        EXPECT_GT(localTime().tm_year + 1900, 2023) << text;
    }
}

}  // namespace
}  // namespace huebrush::files
