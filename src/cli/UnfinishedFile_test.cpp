// SPDX-License-Identifier: MPL-2.0

#include "cli/UnfinishedFile.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace huebrush::cli {
namespace {

constexpr pid_t kProcess = 2702;

bool isItsFile(const std::string& name, pid_t office = 0) {
    return isUnfinishedFileOf(kProcess, name, [&](pid_t each) { return each == office; });
}

TEST(UnfinishedFile, IsNamedAfterItsProcess) {
    EXPECT_TRUE(isItsFile("lu2702x3k9.tmp"));
    EXPECT_TRUE(isItsFile("lu2702.tmp"));
    for (const char* const name :
         {"lu2703x3k9.tmp", "lu270.tmp", "2702x3k9.tmp", "lu2702x3k9", "lu2702x3k9.odt", "lu.tmp",
          "lu2702X3k9.tmp", "lu2702-x.tmp", ".tmp", "lutmp", ""}) {
        EXPECT_FALSE(isItsFile(name)) << name;
    }
}

TEST(UnfinishedFile, MayHaveADigitBehindTheNumberOfItsProcess) {
    EXPECT_TRUE(isItsFile("lu27021103dwg.tmp"));
}

TEST(UnfinishedFile, IsLeftToAnOfficeWithALongerNumberThatItFits) {
    for (const pid_t other : {27021, 270211, 27021103}) {
        EXPECT_FALSE(isItsFile("lu27021103dwg.tmp", other)) << other;
    }
    for (const pid_t other : {kProcess, 27022, 270, 2}) {
        EXPECT_TRUE(isItsFile("lu27021103dwg.tmp", other)) << other;
    }
    EXPECT_TRUE(isItsFile("lu2702999999999999.tmp"));
}

TEST(UnfinishedFile, OfAProcessThatIsNoOfficeIsNobodyElses) {
    EXPECT_FALSE(isRunningOffice(::getpid()));
    EXPECT_FALSE(isRunningOffice(-1));
}

}  // namespace
}  // namespace huebrush::cli
