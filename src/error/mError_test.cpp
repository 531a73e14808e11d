// SPDX-License-Identifier: MPL-2.0

#include "error/mError.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "ports/memory/MemoryRuntime.h"

namespace huebrush::error {
namespace {

using forms::MsgBoxResult;
using memory::ShownBox;

constexpr const char* kConnection = "Huebrush.Connect2000.OnConnection";

class ErrorFixture : public ::testing::Test {
 protected:
    memory::MemoryRuntime runtime;
    forms::RuntimeScope scope{runtime};
    std::string message = "Chyba při navázání spojení...";
};

class ReportErrorTest : public ErrorFixture {
 protected:
    /// The message as it is after a report with this source and line.
    std::string reported(const std::string& source, std::int32_t line) {
        std::string text = "Zpráva";
        ReportError({5, "popis", line}, text, source, 0);
        return text;
    }
};

TEST_F(ReportErrorTest, NumberZeroShowsNothingAndLeavesTheMessage) {
    EXPECT_EQ(ReportError({0, "popis", 12}, message, kConnection, 1), 0);
    EXPECT_TRUE(runtime.boxes.empty());
    EXPECT_EQ(message, "Chyba při navázání spojení...");
}

TEST_F(ReportErrorTest, NamesTheSourceWhenThereIsNoLine) {
    EXPECT_EQ(std::string(kConnection).size(), 33U);
    EXPECT_EQ(reported(kConnection, 0),
              "Chyba v modulu \"Huebrush.Connect2000.OnConnection\"...\r\n\r\nZpráva");
}

TEST_F(ReportErrorTest, OmitsTheLineWhenItSharesNoBitWithTheSourceLength) {
    EXPECT_EQ(reported(kConnection, 12),
              "Chyba v modulu \"Huebrush.Connect2000.OnConnection\"...\r\n\r\nZpráva");
}

TEST_F(ReportErrorTest, NamesSourceAndLineWhenTheyShareABit) {
    const std::string source(36, 's');
    EXPECT_EQ(reported(source, 12),
              "Chyba v modulu \"" + source + "\" na řádku č.12...\r\n\r\nZpráva");
}

TEST_F(ReportErrorTest, CountsTheSourceInCharactersAndNotInBytes) {
    // Four characters, eight bytes: the line 4 shares a bit with the length 4 only.
    EXPECT_EQ(reported("žžžž", 4), "Chyba v modulu \"žžžž\" na řádku č.4...\r\n\r\nZpráva");
    EXPECT_EQ(reported("žžžž", 8), "Chyba v modulu \"žžžž\"...\r\n\r\nZpráva");
}

TEST_F(ReportErrorTest, NamesTheLineAloneWhenThereIsNoSource) {
    EXPECT_EQ(reported("", 12), "Chyba na řádku č.12...\r\n\r\nZpráva");
}

TEST_F(ReportErrorTest, HasNoPrefixWithoutSourceAndLine) {
    ReportError({5, "Neplatné volání.", 0}, message, "", 0);
    ASSERT_EQ(runtime.boxes.size(), 1U);
    EXPECT_EQ(runtime.boxes[0].text,
              "Chyba při navázání spojení...\r\n\r\nSystémový popis výjimky:\r\nNeplatné volání.");
}

TEST_F(ReportErrorTest, ATrapReturnsWhatTheBoxSaid) {
    const Place place{"Huebrush.", "Procedure", "Zpráva"};
    EXPECT_EQ(trap(place, [] {}), "");
    const std::string trapped = trap(place, [] { throw base::Error(7, "popis"); });
    const std::string withLine = report(place, base::Error(7, "popis"), 2);
    ASSERT_EQ(runtime.boxes.size(), 2U);
    EXPECT_EQ(trapped, runtime.boxes[0].text);
    EXPECT_EQ(withLine, runtime.boxes[1].text);
    EXPECT_NE(trapped, withLine);
    EXPECT_EQ(report(place, base::Error(0, "popis")), "");
    EXPECT_EQ(runtime.boxes.size(), 2U);
}

TEST_F(ReportErrorTest, ShowsAnOkBoxWithTheCriticalIconUnlessItAsks) {
    EXPECT_EQ(ReportError({91, "popis", 0}, message, "", 0), 0);
    ASSERT_EQ(runtime.boxes.size(), 1U);
    EXPECT_EQ(runtime.boxes[0].title, "Chyba č. 91");
    EXPECT_EQ(runtime.boxes[0].style, 16);
}

TEST_F(ReportErrorTest, ReturnsTheButtonWhenItAsks) {
    for (const auto answer : {MsgBoxResult::abort, MsgBoxResult::retry, MsgBoxResult::ignore}) {
        runtime.answers = {answer};
        EXPECT_EQ(ReportError({91, "popis", 0}, message, "", 103), static_cast<int>(answer));
        EXPECT_EQ(runtime.boxes.back().style, 50);
    }
}

TEST_F(ReportErrorTest, AnyNonZeroNumberAsks) {
    runtime.answers = {MsgBoxResult::retry};
    EXPECT_EQ(ReportError({91, "popis", 0}, message, "", -1), 4);
}

TEST_F(ReportErrorTest, KeepsTheMinusSignOfANegativeNumber) {
    ReportError({-2147467259, "popis", 0}, message, "", 0);
    EXPECT_EQ(runtime.boxes.at(0).title, "Chyba č. -2147467259");
}

TEST_F(ReportErrorTest, PutsThePrefixIntoTheCallersMessageAgainAndAgain) {
    ReportError({5, "popis", 0}, message, "S", 0);
    ReportError({5, "popis", 0}, message, "S", 0);
    EXPECT_EQ(message,
              "Chyba v modulu \"S\"...\r\n\r\nChyba v modulu \"S\"...\r\n\r\nChyba při navázání "
              "spojení...");
}

const Place kPlace{"Huebrush.CFill.", "SetFormat", "Chyba při aplikaci nové výplně..."};

class TrapTest : public ErrorFixture {};

TEST_F(TrapTest, RunsTheBodyAndShowsNothingWithoutAnError) {
    bool ran = false;
    trap(kPlace, [&] { ran = true; });
    EXPECT_TRUE(ran);
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(TrapTest, ReportsAnErrorWithModuleProcedureAndMessage) {
    trap(kPlace, [] { throw base::Error(5, "popis"); });
    EXPECT_EQ(
        runtime.boxes,
        (std::vector<ShownBox>{{"Chyba v modulu \"Huebrush.CFill.SetFormat\"...\r\n\r\nChyba při "
                                "aplikaci nové výplně...\r\n\r\nSystémový popis "
                                "výjimky:\r\npopis",
                                16, "Chyba č. 5"}}));
}

TEST_F(TrapTest, ReportsAnyOtherExceptionAsAnInternalError) {
    trap(kPlace, [] { throw std::out_of_range("broken"); });
    EXPECT_EQ(runtime.boxes.at(0).title, "Chyba č. 51");
}

TEST_F(TrapTest, TheMessageIsBuiltAnewForEachError) {
    for (int i = 0; i < 2; ++i) trap(kPlace, [] { throw base::Error(5, "popis"); });
    EXPECT_EQ(runtime.boxes.at(0), runtime.boxes.at(1));
}

TEST_F(TrapTest, IgnoringReturnsWhetherTheBodyCameToItsEnd) {
    EXPECT_TRUE(ignoring([] {}));
    EXPECT_FALSE(ignoring([] { throw base::Error(5, "popis"); }));
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(TrapTest, WhatNoTrapHasCaughtIsReportedWithoutASource) {
    reportUnhandled(base::Error(7, "popis"));
    EXPECT_EQ(runtime.boxes.at(0).text,
              "Při zpracování události došlo k chybě...\r\n\r\nSystémový popis výjimky:\r\npopis");
}

class StepsTest : public ErrorFixture {
 protected:
    /// Three steps; the second fails as many times as said.
    void runThree(int failures, std::int16_t ask) {
        Steps::run(
            kPlace, [ask] { return ask; },
            [&](Steps& step) {
                step([&] { done.push_back(1); });
                step([&] {
                    if (failures-- > 0) throw base::Error(5, "popis");
                    done.push_back(2);
                });
                step([&] { done.push_back(3); });
            });
    }
    std::vector<int> done;
};

TEST_F(StepsTest, RunInTheirOrder) {
    runThree(0, 1);
    EXPECT_EQ(done, (std::vector<int>{1, 2, 3}));
}

TEST_F(StepsTest, AbortLeavesTheProcedure) {
    runtime.answers = {MsgBoxResult::abort};
    runThree(1, 1);
    EXPECT_EQ(done, std::vector<int>{1});
}

TEST_F(StepsTest, RetryRepeatsTheFailingStepAndNoOther) {
    runtime.answers = {MsgBoxResult::retry, MsgBoxResult::retry};
    runThree(2, 1);
    EXPECT_EQ(done, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(runtime.boxes.size(), 2U);
}

TEST_F(StepsTest, IgnoreGoesOnWithTheNextStep) {
    runtime.answers = {MsgBoxResult::ignore};
    runThree(1, 1);
    EXPECT_EQ(done, (std::vector<int>{1, 3}));
}

TEST_F(StepsTest, WithoutAChoiceAnErrorEndsTheProcedure) {
    runThree(1, 0);
    EXPECT_EQ(done, std::vector<int>{1});
    EXPECT_EQ(runtime.boxes.at(0).style, 16);
}

TEST_F(StepsTest, WhetherToAskIsDecidedWhenTheErrorOccurs) {
    std::int16_t ask = 0;
    runtime.answers = {MsgBoxResult::ignore};
    Steps::run(
        kPlace, [&] { return ask; },
        [&](Steps& step) {
            ask = 101;
            step([] { throw base::Error(5, "popis"); });
            ask = 0;
            step([] { throw base::Error(5, "popis"); });
            done.push_back(1);
        });
    ASSERT_EQ(runtime.boxes.size(), 2U);
    EXPECT_EQ(runtime.boxes[0].style, 50);
    EXPECT_EQ(runtime.boxes[1].style, 16);
    EXPECT_TRUE(done.empty());
}

TEST_F(StepsTest, TheReportOfAStepNamesItsLineAndThatOfOneWithoutTheLastLinePassed) {
    // The source has 24 characters: the line shows where it shares a bit with that.
    runtime.answers = {MsgBoxResult::ignore, MsgBoxResult::ignore, MsgBoxResult::ignore};
    Steps::run(
        kPlace, [] { return std::int16_t{1}; },
        [](Steps& step) {
            const auto fail = [] { throw base::Error(5, "popis"); };
            step(fail);
            step(8, fail);
            step(fail);
            step(16, fail);
        });
    const auto prefix = [this](std::size_t box) {
        const std::string& shown = runtime.boxes.at(box).text;
        return shown.substr(0, shown.find("\r\n"));
    };
    EXPECT_EQ(kPlace.source().size(), 24U);
    EXPECT_EQ(prefix(0), "Chyba v modulu \"Huebrush.CFill.SetFormat\"...");
    EXPECT_EQ(prefix(1), "Chyba v modulu \"Huebrush.CFill.SetFormat\" na řádku č.8...");
    EXPECT_EQ(prefix(2), "Chyba v modulu \"Huebrush.CFill.SetFormat\" na řádku č.8...");
    EXPECT_EQ(prefix(3), "Chyba v modulu \"Huebrush.CFill.SetFormat\" na řádku č.16...");
    EXPECT_EQ(runtime.boxes.size(), 4U) << "the last question was answered by Abort";
}

TEST_F(StepsTest, AnErrorBetweenTheStepsNamesTheLastLinePassed) {
    Steps::run(
        kPlace, [] { return std::int16_t{1}; },
        [](Steps& step) {
            step(16, [] {});
            throw base::Error(5, "popis");
        });
    EXPECT_TRUE(runtime.boxes.at(0).text.starts_with(
        "Chyba v modulu \"Huebrush.CFill.SetFormat\" na řádku č.16...\r\n"));
    EXPECT_EQ(runtime.boxes.at(0).style, 16);
}

/// A procedure that ends when there is nothing left to do.
class EndingStepsTest : public StepsTest {
 protected:
    void run(const std::function<void(Steps&)>& procedure) {
        Steps::run(
            kPlace, [] { return std::int16_t{1}; }, [this] { return goesOn; }, procedure);
    }
    bool goesOn = true;
};

TEST_F(EndingStepsTest, EndsAfterTheStepInWhichItsWorkHasBecomeVoid) {
    run([this](Steps& step) {
        step([this] { done.push_back(1); });
        step([this] { goesOn = false; });
        step([this] { done.push_back(3); });
    });
    EXPECT_EQ(done, std::vector<int>{1});
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(EndingStepsTest, ReportsNoErrorOfThatStep) {
    run([this](Steps& step) {
        step([this] {
            goesOn = false;
            throw base::Error(5, "popis");
        });
        done.push_back(2);
    });
    EXPECT_TRUE(done.empty());
    EXPECT_TRUE(runtime.boxes.empty());
}

TEST_F(EndingStepsTest, RepeatsNoStepWhenItsWorkHasBecomeVoidUnderTheQuestion) {
    for (const auto answer : {MsgBoxResult::retry, MsgBoxResult::ignore}) {
        goesOn = true;
        int attempts = 0;
        runtime.answers = {answer};
        runtime.onBox = [this] { goesOn = false; };
        run([&](Steps& step) {
            step([&] {
                ++attempts;
                throw base::Error(5, "popis");
            });
            done.push_back(2);
        });
        EXPECT_EQ(attempts, 1);
        EXPECT_TRUE(done.empty());
    }
}

TEST_F(StepsTest, AnErrorBetweenTheStepsIsReportedAndEndsTheProcedure) {
    Steps::run(
        kPlace, [] { return std::int16_t{1}; }, [](Steps&) { throw base::Error(5, "popis"); });
    EXPECT_EQ(runtime.boxes.size(), 1U);
}

}  // namespace
}  // namespace huebrush::error
