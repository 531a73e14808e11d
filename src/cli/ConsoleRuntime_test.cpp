// SPDX-License-Identifier: MPL-2.0

#include "cli/ConsoleRuntime.h"

#include <gtest/gtest.h>

#include <sstream>

namespace huebrush::cli {
namespace {

using forms::MsgBoxResult;

constexpr std::int32_t kQuestion =
    forms::MsgBoxStyle::kExclamation + forms::MsgBoxStyle::kAbortRetryIgnore;

class Console : public ::testing::Test {
 protected:
    MsgBoxResult answer(const std::string& input, bool interactive = true) {
        std::istringstream in(input);
        ConsoleRuntime runtime(in, out, interactive);
        return runtime.MsgBox("Disk je\r\n\r\nplný.", kQuestion, "Chyba č. 61");
    }
    std::ostringstream out;
};

TEST_F(Console, AsksUntilItGetsAnAnswer) {
    EXPECT_EQ(answer("a\n"), MsgBoxResult::abort);
    EXPECT_EQ(answer("R\n"), MsgBoxResult::retry);
    out.str("");
    EXPECT_EQ(answer("\nyes\ni\nr\n"), MsgBoxResult::ignore);
    EXPECT_EQ(out.str(),
              "huebrush: Chyba č. 61: Disk je plný.\n"
              "Abort, retry or ignore? [a/r/i] Abort, retry or ignore? [a/r/i] "
              "Abort, retry or ignore? [a/r/i] ");
}

TEST_F(Console, AbortsWhereNobodyAnswers) {
    EXPECT_EQ(answer(""), MsgBoxResult::abort);
    out.str("");
    EXPECT_EQ(answer("r\n", false), MsgBoxResult::abort);
    EXPECT_EQ(out.str(), "huebrush: Chyba č. 61: Disk je plný.\n");
}

TEST_F(Console, ShowsAMessageAndAsksNothingElse) {
    std::istringstream in;
    ConsoleRuntime runtime(in, out, true);
    EXPECT_EQ(runtime.MsgBox("Hotovo", forms::MsgBoxStyle::kInformation, "Huebrush"),
              MsgBoxResult::ok);
    EXPECT_EQ(out.str(), "huebrush: Huebrush: Hotovo\n");
    EXPECT_THROW(runtime.MsgBox("Ano?", forms::MsgBoxStyle::kYesNo, ""), base::Error);
}

}  // namespace
}  // namespace huebrush::cli
