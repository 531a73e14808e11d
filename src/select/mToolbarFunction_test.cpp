// SPDX-License-Identifier: MPL-2.0

#include "select/mToolbarFunction.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "base/Text.h"
#include "ports/memory/TestHost.h"

namespace huebrush::select {
namespace {

using base::text;
using host::MsoTriState;
using memory::MemoryShapePointer;
using memory::ShownBox;
using Calls = std::vector<std::string>;

constexpr std::int32_t kRed = 0x0000FF;
constexpr std::int32_t kBlue = 0xFF0000;

class SelectionTest : public ::testing::Test {
 protected:
    MemoryShapePointer addLine(const std::string& name, std::int32_t color) {
        auto shape = test.document->addShape(name);
        shape->lineColor = color;
        return shape;
    }
    MemoryShapePointer addSolid(const std::string& name, std::int32_t color) {
        return test.document->addSolid(name, color);
    }
    void selectLike(const MemoryShapePointer& sample) { test.document->select({sample}); }
    void byLine() { VseDleBarvyCary(test.application); }
    void byFill() { VseDleTypuVyplne(test.application); }

    Calls selectedNames() const {
        Calls names;
        for (const auto& shape : test.document->selected) names.push_back(shape->name());
        return names;
    }
    /// What one box of the command says.
    std::string onlyBox() const {
        if (test.runtime.boxes.size() != 1) return "not one box";
        return test.runtime.boxes[0].text;
    }

    memory::TestHost test;
};

// Wrong selections.

TEST_F(SelectionTest, WithNothingSelectedTheLineCommandAsksForASample) {
    test.startLog();
    byLine();
    EXPECT_EQ(test.runtime.boxes,
              (std::vector<ShownBox>{
                  {"Není vybrán vzorový grafický prvkek!\r\n\r\nOznač libovolný grafický prvek "
                   "obrázku, jehož barva čáry bude použita pro nalezení ostatních prvků v obrázku "
                   "a spusť nástroj znovu.",
                   48, "Nesprávný výběr"}}));
    EXPECT_EQ(test.calls(),
              (Calls{"read Application.Selection", "read Picture.Selection.ShapeRange",
                     "read Selection.ShapeRange.Count"}));
}

TEST_F(SelectionTest, WithNothingSelectedTheFillCommandAsksForASample) {
    byFill();
    EXPECT_EQ(test.runtime.boxes,
              (std::vector<ShownBox>{
                  {"Není vybrán vzorový grafický prvkek!\r\n\r\nOznač libovolný grafický prvek "
                   "obrázku, jehož výplň bude použita pro nalezení ostatních prvků v obrázku a "
                   "spusť nástroj znovu.",
                   48, "Nesprávný výběr"}}));
}

TEST_F(SelectionTest, WithTwoSelectedTheLineCommandAsksForOnlyOne) {
    test.document->select({addLine("A", kRed), addLine("B", kRed)});
    byLine();
    EXPECT_EQ(test.runtime.boxes,
              (std::vector<ShownBox>{
                  {"Je vybráno více vzorových grafických prvků!\r\n\r\nOznač pouze jeden libovolný "
                   "grafický prvek obrázku, jehož barva čáry bude použita pro nalezení ostatních "
                   "prvků v obrázku a spusť nástroj znovu.",
                   48, "Nesprávný výběr"}}));
}

TEST_F(SelectionTest, WithTwoSelectedTheFillCommandAsksForOnlyOneInWordsOfItsOwn) {
    test.document->select({addSolid("A", kRed), addSolid("B", kRed)});
    byFill();
    EXPECT_EQ(test.runtime.boxes,
              (std::vector<ShownBox>{
                  {"Je vybráno více vzorových grafických prvků!\r\n\r\nOznač pouze jeden libovolný "
                   "grafický prvek obrázku, jehož barva výplně bude použita pro nalezení ostatních "
                   "prvků v obrázku a spusť nástroj znovu.",
                   48, "Nesprávný výběr"}}));
}

TEST_F(SelectionTest, ASelectedInlinePictureIsNoSample) {
    addSolid("A", kRed);
    test.document->select({test.document->addInlinePicture("Photo")});
    byLine();
    byFill();
    ASSERT_EQ(test.runtime.boxes.size(), 2U);
    for (const ShownBox& box : test.runtime.boxes) {
        EXPECT_TRUE(box.text.starts_with("Není vybrán vzorový grafický prvkek!\r\n\r\n"));
        EXPECT_EQ(box.title, "Nesprávný výběr");
    }
}

TEST_F(SelectionTest, AnInlinePictureIsNeverACandidate) {
    test.document->addInlinePicture("Photo");
    addSolid("A", kRed);
    selectLike(addSolid("B", kRed));
    byFill();
    EXPECT_EQ(selectedNames(), (Calls{"A", "B"}));
    EXPECT_EQ(test.runtime.pumps, 2U);
}

TEST_F(SelectionTest, AWrongSelectionTouchesNeitherPointerNorStatusBar) {
    test.document->select({addLine("A", kRed), addLine("B", kRed)});
    test.startLog();
    byLine();
    byFill();
    EXPECT_TRUE(test.log().beginningWith("write").empty());
}

// By line.

TEST_F(SelectionTest, ARedLineSelectsAllRedLinesTheSampleIncluded) {
    addLine("A", kRed);
    const auto sample = addLine("B", kRed);
    addLine("C", kBlue);
    addLine("D", kRed);
    selectLike(sample);
    byLine();
    EXPECT_EQ(selectedNames(), (Calls{"A", "B", "D"}));
    EXPECT_EQ(test.application.statusBar,
              "Celkový počet všech vybraných objektů se stejnou barvou čáry.. 3.");
    EXPECT_EQ(test.application.cursor, host::WdCursorType::wdCursorNormal);
}

TEST_F(SelectionTest, AnInvisibleRedLineIsNoMatchForAVisibleOne) {
    addLine("A", kRed)->lineVisible = MsoTriState::msoFalse;
    selectLike(addLine("B", kRed));
    byLine();
    EXPECT_EQ(selectedNames(), Calls{"B"});
}

TEST_F(SelectionTest, ASampleWithoutLineSelectsAllWithoutLineWhateverTheirColour) {
    const auto sample = addLine("A", kRed);
    const auto other = addLine("B", kBlue);
    addLine("C", kRed);
    sample->lineVisible = MsoTriState::msoFalse;
    other->lineVisible = MsoTriState::msoFalse;
    selectLike(sample);
    byLine();
    EXPECT_EQ(selectedNames(), (Calls{"A", "B"}));
}

TEST_F(SelectionTest, ALineOfMixedVisibilityIsAVisibleOneAndMatchesItsLikeOnly) {
    const auto mixed = [this](const std::string& name, std::int32_t color) {
        auto shape = addLine(name, color);
        shape->lineVisible = MsoTriState::msoTriStateMixed;
        return shape;
    };
    mixed("A", kRed);
    mixed("B", kBlue);
    addLine("Visible", kRed);
    addLine("Hidden", kRed)->lineVisible = MsoTriState::msoFalse;
    selectLike(mixed("C", kRed));
    byLine();
    EXPECT_EQ(selectedNames(), (Calls{"A", "C"}));
}

TEST_F(SelectionTest, ALineOfMixedVisibilityIsNoMatchForAHiddenOne) {
    addLine("Mixed", kRed)->lineVisible = MsoTriState::msoTriStateMixed;
    const auto sample = addLine("A", kRed);
    sample->lineVisible = MsoTriState::msoFalse;
    selectLike(sample);
    byLine();
    EXPECT_EQ(selectedNames(), Calls{"A"});
}

TEST_F(SelectionTest, ALineThatNoOtherSharesSelectsTheSampleAgain) {
    addLine("A", kBlue);
    selectLike(addLine("B", kRed));
    test.startLog();
    byLine();
    EXPECT_EQ(selectedNames(), Calls{"B"});
    EXPECT_EQ(test.log().beginningWith("call Range.Select").size(), 1U);
    EXPECT_EQ(test.application.statusBar,
              "Nebyly nalezeny žádné jiné objekty se shodnou barvou čáry!");
}

TEST_F(SelectionTest, TheLineCommandAsksTheHostInThisOrder) {
    addLine("A", kBlue);
    selectLike(addLine("B", kRed));
    test.startLog();
    byLine();
    EXPECT_EQ(test.calls(),
              (Calls{"read Application.Selection",
                     "read Picture.Selection.ShapeRange",
                     "read Selection.ShapeRange.Count",
                     "write System.Cursor 0",
                     "read Selection.ShapeRange.Item 1",
                     "read B.Line.Visible",
                     "read Application.ActiveDocument",
                     "call Picture.Shapes.enumerate",
                     "call Shapes.next",
                     "read A.Line.ForeColor.RGB",
                     "read B.Line.ForeColor.RGB",
                     "read A.Line.Visible",
                     "read B.Line.Visible",
                     "read Picture.Shapes.Count",
                     "write StatusBar Zpracovávám 1. objekt z 2.",
                     "call DoEvents",
                     "call Shapes.next",
                     "read B.Line.ForeColor.RGB",
                     "read B.Line.ForeColor.RGB",
                     "read B.Line.Visible",
                     "read B.Line.Visible",
                     "read Picture.Shapes.Count",
                     "write StatusBar Zpracovávám 2. objekt z 2.",
                     "call DoEvents",
                     "call Shapes.next",
                     "read B.Name",
                     "call Picture.Shapes.Range",
                     "call Range.Select",
                     "write StatusBar Nebyly nalezeny žádné jiné objekty se shodnou barvou čáry!",
                     "write System.Cursor 2"}));
}

// By fill.

TEST_F(SelectionTest, AFillSelectsAllThatHaveTheSameFill) {
    addSolid("A", kRed);
    const auto sample = addSolid("B", kRed);
    addSolid("C", kBlue);
    selectLike(sample);
    byFill();
    EXPECT_EQ(selectedNames(), (Calls{"A", "B"}));
    EXPECT_EQ(test.application.statusBar,
              "Celkový počet všech vybraných objektů se shodným typem výplně.. 2.");
}

TEST_F(SelectionTest, ASampleWithoutFillSelectsAllWithoutFillAndReadsTheirVisibilityOnly) {
    const auto sample = addSolid("A", kRed);
    const auto other = addSolid("B", kBlue);
    addSolid("C", kRed);
    sample->fill.Visible = MsoTriState::msoFalse;
    other->fill.Visible = MsoTriState::msoFalse;
    selectLike(sample);
    test.startLog();
    byFill();
    EXPECT_EQ(selectedNames(), (Calls{"A", "B"}));
    EXPECT_EQ(test.log().beginningWith("read B.Fill"), Calls{"read B.Fill.Visible"});
}

TEST_F(SelectionTest, AFillOfMixedVisibilityIsAFillAndMatchesItsLikeOnly) {
    const auto mixed = [this](const std::string& name, std::int32_t color) {
        auto shape = addSolid(name, color);
        shape->fill.Visible = MsoTriState::msoTriStateMixed;
        return shape;
    };
    mixed("A", kRed);
    mixed("B", kBlue);
    addSolid("Visible", kRed);
    addSolid("Hidden", kRed)->fill.Visible = MsoTriState::msoFalse;
    selectLike(mixed("C", kRed));
    byFill();
    EXPECT_EQ(selectedNames(), (Calls{"A", "C"}));
}

TEST_F(SelectionTest, AFillOfMixedVisibilityIsNoMatchForASampleWithoutFill) {
    addSolid("Mixed", kRed)->fill.Visible = MsoTriState::msoTriStateMixed;
    const auto sample = addSolid("A", kRed);
    sample->fill.Visible = MsoTriState::msoFalse;
    selectLike(sample);
    byFill();
    EXPECT_EQ(selectedNames(), Calls{"A"});
}

TEST_F(SelectionTest, AFillThatNoOtherSharesSelectsTheSampleAgain) {
    addSolid("A", kBlue);
    selectLike(addSolid("B", kRed));
    byFill();
    EXPECT_EQ(selectedNames(), Calls{"B"});
    EXPECT_EQ(test.application.statusBar,
              "Nebyly nalezeny žádné jiné objekty se shodným typem výplně!");
}

TEST_F(SelectionTest, TheFillCommandPassesTheCandidateFirstToTheComparison) {
    addSolid("A", kBlue);
    selectLike(addSolid("B", kRed));
    test.startLog();
    byFill();
    const Calls calls = test.calls();
    const auto next = std::find(calls.begin(), calls.end(), "call Shapes.next");
    ASSERT_GT(calls.end() - next, 4);
    EXPECT_EQ(Calls(next + 1, next + 5),
              (Calls{"read A.Fill.Visible", "read B.Fill.Visible", "read B.Fill.Visible",
                     "read A.Fill.ForeColor.RGB"}));
}

TEST_F(SelectionTest, ACandidateWhoseFillCannotBeReadIsNoMatchAndNoError) {
    addSolid("A", kRed);
    selectLike(addSolid("B", kRed));
    test.log().failAt("read A.Fill.Pattern", base::Error(7, "popis"));
    byFill();
    EXPECT_EQ(selectedNames(), Calls{"B"});
    EXPECT_TRUE(test.runtime.boxes.empty());
}

// Both.

TEST_F(SelectionTest, AGroupIsOneShapeByItsOwnLineAndNeverByItsMembers) {
    test.document->addGroup("Same", {addLine("A", kRed), addLine("B", kRed)});
    test.document->addGroup("Mixed", {addLine("C", kBlue), addLine("D", kRed)});
    const auto hidden = addLine("E", kRed);
    hidden->lineVisible = MsoTriState::msoFalse;
    test.document->addGroup("Hidden", {hidden});
    selectLike(addLine("Sample", kRed));
    test.startLog();
    byLine();
    EXPECT_EQ(selectedNames(), (Calls{"Same", "Sample"}));
    EXPECT_TRUE(test.log().beginningWith("read A.").empty());
    EXPECT_TRUE(test.log().beginningWith("read Same.GroupItems").empty());
}

TEST_F(SelectionTest, AGroupThatIsTheSampleMatchesShapesAndGroupsOfItsValue) {
    const auto group = test.document->addGroup("Group", {addLine("A", kRed), addLine("B", kRed)});
    addLine("C", kRed);
    addLine("D", kBlue);
    selectLike(group);
    byLine();
    EXPECT_EQ(selectedNames(), (Calls{"Group", "C"}));
}

TEST_F(SelectionTest, AGroupIsOneShapeByItsOwnValueAndNeverByItsMembers) {
    const auto first = addSolid("A", kRed);
    const auto second = addSolid("B", kRed);
    const auto third = addSolid("C", kBlue);
    const auto fourth = addSolid("D", kRed);
    test.document->addGroup("Same", {first, second});
    test.document->addGroup("Mixed", {third, fourth});
    selectLike(addSolid("Sample", kRed));
    test.startLog();
    byFill();
    EXPECT_EQ(selectedNames(), (Calls{"Same", "Sample"}));
    EXPECT_TRUE(test.log().beginningWith("read A.").empty());
    EXPECT_TRUE(test.log().beginningWith("read Same.GroupItems").empty());
}

TEST_F(SelectionTest, ASampleInsideAGroupMatchesTopLevelShapesOnly) {
    const auto inner = addSolid("Inner", kRed);
    test.document->addGroup("Group", {inner, addSolid("Blue", kBlue)});
    addSolid("Top", kRed);
    selectLike(inner);
    byFill();
    EXPECT_EQ(selectedNames(), Calls{"Top"});
    EXPECT_EQ(test.application.statusBar,
              "Nebyly nalezeny žádné jiné objekty se shodným typem výplně!");
}

TEST_F(SelectionTest, WithNoMatchTheSelectionStaysAndTheNoneFoundTextShows) {
    const auto inner = addSolid("Inner", kRed);
    test.document->addGroup("Group", {inner, addSolid("Blue", kBlue)});
    selectLike(inner);
    test.startLog();
    byFill();
    EXPECT_EQ(selectedNames(), Calls{"Inner"});
    EXPECT_TRUE(test.log().beginningWith("call Picture.Shapes.Range").empty());
    EXPECT_EQ(test.application.statusBar,
              "Nebyly nalezeny žádné jiné objekty se shodným typem výplně!");
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(SelectionTest, WithAHundredAndTwentyShapesTheStatusBarCountsToTheLast) {
    for (int i = 1; i <= 120; ++i) addLine(text("Shape ", i), kRed);
    selectLike(test.document->shapes.front());
    test.application.log.on = true;
    byLine();
    ASSERT_EQ(test.application.statusTexts.size(), 121U);
    EXPECT_EQ(test.application.statusTexts[0], "Zpracovávám 1. objekt z 120.");
    EXPECT_EQ(test.application.statusTexts[119], "Zpracovávám 120. objekt z 120.");
    EXPECT_EQ(test.log().beginningWith("read Picture.Shapes.Count").size(), 120U);
    EXPECT_EQ(test.log().beginningWith("call Range.Select").size(), 1U);
}

TEST_F(SelectionTest, TheMatchesAreSelectedInTheOrderOfTheDocument) {
    const Calls names{"C", "A", "B"};
    for (const auto& name : names) addLine(name, kRed);
    selectLike(test.document->shapes.back());
    byLine();
    EXPECT_EQ(selectedNames(), names);
}

// Errors.

TEST_F(SelectionTest, WithoutADocumentTheErrorIsReportedUnderTheLineCommandsName) {
    test.document->Close();
    byLine();
    ASSERT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_EQ(test.runtime.boxes[0].style, 16);
    EXPECT_EQ(onlyBox().substr(0, onlyBox().find("\r\n\r\nSys")),
              "Chyba v modulu \"Huebrush.mToolbarFunction.VseDleBarvyCary\"...\r\n\r\nPři "
              "vybírání objektů došlo k chybě.");
}

TEST_F(SelectionTest, WithoutADocumentTheErrorIsReportedUnderTheFillCommandsName) {
    test.document->Close();
    byFill();
    EXPECT_EQ(onlyBox().substr(0, onlyBox().find("\r\n\r\nSys")),
              "Chyba v modulu \"Huebrush.mToolbarFunction.VseDleTypuVyplne\"...\r\n\r\nPři "
              "vybírání objektů došlo k chybě.");
}

TEST_F(SelectionTest, AnErrorInTheWalkLeavesSelectionProgressTextAndWaitCursor) {
    addLine("A", kRed);
    const auto sample = addLine("B", kRed);
    selectLike(sample);
    test.log().failAt("read B.Line.ForeColor.RGB", base::Error(7, "popis"), 2);
    byLine();
    EXPECT_EQ(onlyBox(),
              "Chyba v modulu \"Huebrush.mToolbarFunction.VseDleBarvyCary\"...\r\n\r\nPři "
              "vybírání objektů došlo k chybě.\r\n\r\nSystémový popis výjimky:\r\npopis");
    EXPECT_EQ(selectedNames(), Calls{"B"});
    EXPECT_EQ(test.application.statusBar, "Zpracovávám 1. objekt z 2.");
    EXPECT_EQ(test.application.cursor, host::WdCursorType::wdCursorWait);
}

TEST_F(SelectionTest, ALineThatCannotBeReadIsAnErrorEvenWhereTheColourDiffersAlready) {
    addLine("A", kBlue);
    selectLike(addLine("B", kRed));
    test.log().failAt("read A.Line.Visible", base::Error(7, "popis"));
    byLine();
    EXPECT_EQ(test.runtime.boxes.size(), 1U);
}

TEST_F(SelectionTest, EveryCallMayFailAndGivesOneReportWithTheSelectionAsItWas) {
    const auto run = [this](const std::function<void()>& command) {
        test.startLog();
        command();
        const Calls calls = test.calls();
        for (std::size_t call = 1; call <= calls.size(); ++call) {
            test.document->select({test.document->find("B")});
            test.runtime.boxes.clear();
            test.log().failAt("", base::Error(7, "popis"), call, 1);
            command();
            test.log().failNoMore();
            // A comparison swallows what fails inside it.
            const bool inComparison =
                calls[call - 1].find(".Fill.") != std::string::npos && test.runtime.boxes.empty();
            EXPECT_TRUE(inComparison || test.runtime.boxes.size() == 1) << calls[call - 1];
            const bool selected = calls[call - 1].starts_with("write StatusBar") ||
                                  calls[call - 1].starts_with("write System.Cursor 2");
            if (!selected && !inComparison) {
                EXPECT_EQ(selectedNames(), Calls{"B"}) << calls[call - 1];
            }
        }
    };
    addLine("A", kRed);
    selectLike(addLine("B", kRed));
    run([this] { byLine(); });
    selectLike(test.document->find("B"));
    run([this] { byFill(); });
}

TEST_F(SelectionTest, The32768thShapeIsAnOverflowErrorThatLeavesTheSelection) {
    for (int i = 1; i <= 32768; ++i) test.document->addShape(text("S", i));
    selectLike(test.document->shapes.front());
    test.startLog();
    byLine();
    EXPECT_EQ(test.calls().back(), "read S1.Line.Visible") << "it is judged before it is counted";
    ASSERT_EQ(test.runtime.boxes.size(), 1U);
    EXPECT_EQ(test.runtime.boxes[0].title, "Chyba č. 6");
    EXPECT_EQ(selectedNames(), Calls{"S1"});
    EXPECT_EQ(test.application.statusBar, "Zpracovávám 32767. objekt z 32768.");
}

// What may happen in the pump.

TEST_F(SelectionTest, EventsRunAfterEachShapeWithItsProgressShown) {
    for (int i = 1; i <= 3; ++i) addLine(text("Shape ", i), kRed);
    const auto expectProgress = [this](const std::function<void()>& command) {
        selectLike(test.document->shapes.front());
        Calls seen;
        test.runtime.onPump = [&](std::size_t) { seen.push_back(test.application.statusBar); };
        command();
        EXPECT_EQ(seen, (Calls{"Zpracovávám 1. objekt z 3.", "Zpracovávám 2. objekt z 3.",
                               "Zpracovávám 3. objekt z 3."}));
    };
    expectProgress([this] { byLine(); });
    expectProgress([this] { byFill(); });
}

TEST_F(SelectionTest, AWrongSelectionLetsNoEventsRun) {
    byLine();
    byFill();
    EXPECT_EQ(test.runtime.pumps, 0U);
}

/// Three red shapes, the first of them the sample, with something happening in the first pump.
class SelectionPumpTest : public SelectionTest {
 protected:
    SelectionPumpTest() {
        for (const char* name : {"A", "B", "C"}) addSolid(name, kRed)->lineColor = kRed;
        selectLike(shape("A"));
    }
    MemoryShapePointer shape(const std::string& name) { return test.document->find(name); }
    void inTheFirstPump(const std::function<void()>& happening) {
        test.runtime.onPump = [happening, first = test.runtime.pumps + 1](std::size_t pump) {
            if (pump == first) happening();
        };
    }
    /// The previous selection stands, and the cursor still waits.
    void expectReported() {
        ASSERT_EQ(test.runtime.boxes.size(), 1U);
        EXPECT_TRUE(onlyBox().starts_with("Chyba v modulu \"Huebrush.mToolbarFunction.VseDle"))
            << onlyBox();
        EXPECT_EQ(test.application.cursor, host::WdCursorType::wdCursorWait);
    }
};

TEST_F(SelectionPumpTest, AShapeIsJudgedAsItIsWhenItsTurnComes) {
    inTheFirstPump([this] { shape("C")->fill.ForeColorRGB = kBlue; });
    byFill();
    EXPECT_EQ(selectedNames(), (Calls{"A", "B"}));
    inTheFirstPump([this] { shape("B")->lineColor = kBlue; });
    selectLike(shape("A"));
    byLine();
    EXPECT_EQ(selectedNames(), (Calls{"A", "C"}));
}

TEST_F(SelectionPumpTest, ShapesAreComparedWithTheSampleAsItIsThen) {
    inTheFirstPump([this] {
        shape("A")->fill.ForeColorRGB = kBlue;
        shape("C")->fill.ForeColorRGB = kBlue;
    });
    byFill();
    EXPECT_EQ(selectedNames(), (Calls{"A", "C"}));
}

TEST_F(SelectionPumpTest, ADeletedCandidateIsAnErrorByLine) {
    inTheFirstPump([this] { test.document->remove(shape("B")); });
    byLine();
    expectReported();
    EXPECT_EQ(selectedNames(), Calls{"A"});
}

TEST_F(SelectionPumpTest, ADeletedCandidateIsNoMatchByFill) {
    inTheFirstPump([this] { test.document->remove(shape("B")); });
    byFill();
    EXPECT_EQ(selectedNames(), (Calls{"A", "C"}));
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(SelectionPumpTest, AMatchThatIsDeletedBeforeTheSelectionIsAnError) {
    inTheFirstPump([this] { test.document->remove(shape("A")); });
    selectLike(shape("C"));
    byFill();
    expectReported();
    EXPECT_EQ(selectedNames(), Calls{"C"});
}

TEST_F(SelectionPumpTest, ADocumentThatIsClosedEndsTheCommandWithAReport) {
    inTheFirstPump([this] { test.document->Close(); });
    byLine();
    expectReported();
}

TEST_F(SelectionPumpTest, WhatIsSelectedMeanwhileIsReplacedInTheDocumentOfTheSample) {
    std::shared_ptr<memory::MemoryDocument> other;
    inTheFirstPump([&] {
        test.document->select({});
        other = test.application.open("Other");
        other->select({other->addSolid("D", kRed)});
    });
    byFill();
    EXPECT_EQ(selectedNames(), (Calls{"A", "B", "C"}));
    ASSERT_EQ(other->selected.size(), 1U);
    EXPECT_EQ(other->selected[0]->name(), "D");
}

TEST_F(SelectionPumpTest, TheOtherCommandMayRunInsideOne) {
    shape("B")->fill.ForeColorRGB = kBlue;
    inTheFirstPump([this] { byLine(); });
    byFill();
    EXPECT_EQ(selectedNames(), (Calls{"A", "C"}));
    EXPECT_EQ(test.application.cursor, host::WdCursorType::wdCursorNormal);
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(SelectionTest, EachRunCountsAnew) {
    addLine("A", kRed);
    selectLike(addLine("B", kRed));
    byLine();
    selectLike(test.document->find("B"));
    test.application.log.on = true;
    byLine();
    EXPECT_EQ(test.application.statusTexts.front(), "Zpracovávám 1. objekt z 2.");
    EXPECT_EQ(test.application.statusBar,
              "Celkový počet všech vybraných objektů se stejnou barvou čáry.. 2.");
}

}  // namespace
}  // namespace huebrush::select
