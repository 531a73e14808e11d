// SPDX-License-Identifier: MPL-2.0

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/PopupMenu.h"
#include "ports/memory/TestHost.h"

namespace huebrush::memory {
namespace {

using Calls = std::vector<std::string>;
using host::MsoTriState;

class MemoryHostTest : public ::testing::Test {
 protected:
    TestHost test;
};

TEST_F(MemoryHostTest, LogsNothingUntilTheLogIsOn) {
    const auto shape = test.document->addSolid("Sun", 255);
    shape->Fill().Visible();
    EXPECT_TRUE(test.calls().empty());
    test.startLog();
    shape->Fill().Visible();
    shape->Fill().setTransparency(0.25F);
    shape->Fill().OneColorGradient(1, 2, 0.5F);
    EXPECT_EQ(test.calls(), (Calls{"read Sun.Fill.Visible", "write Sun.Fill.Transparency 0.25",
                                   "call Sun.Fill.OneColorGradient 1 2 0.5"}));
}

TEST_F(MemoryHostTest, FailsACallFromItsNthOccurrenceAsManyTimesAsSaid) {
    const auto shape = test.document->addSolid("Sun", 255);
    test.log().failAt("read Sun.Fill", base::Error(1, "no"), 2, 1);
    EXPECT_EQ(shape->Fill().ForeColorRGB(), 255);
    EXPECT_THROW(shape->Fill().Visible(), base::Error);
    EXPECT_EQ(shape->Fill().Visible(), MsoTriState::msoTrue);
}

TEST_F(MemoryHostTest, AFailingWriteTakesNoEffect) {
    const auto shape = test.document->addSolid("Sun", 255);
    test.log().failAt("write Sun.Fill.ForeColor.RGB", base::Error(1, "no"));
    EXPECT_THROW(shape->Fill().setForeColorRGB(7), base::Error);
    EXPECT_EQ(shape->fill.ForeColorRGB, 255);
}

TEST_F(MemoryHostTest, AGroupAnswersWithTheCommonValueOfItsMembersOrMixed) {
    const auto red = test.document->addSolid("A", 255);
    const auto alsoRed = test.document->addSolid("B", 255);
    const auto group = test.document->addGroup("G", {red, alsoRed});
    EXPECT_EQ(group->Fill().ForeColorRGB(), 255);
    alsoRed->fill.ForeColorRGB = 1;
    EXPECT_EQ(group->Fill().ForeColorRGB(), host::kMixed);
    EXPECT_EQ(test.document->shapes.size(), 1U);
}

TEST_F(MemoryHostTest, ARangeWritesToEveryShapeMembersOfGroupsIncluded) {
    const auto inner = test.document->addSolid("Inner", 1);
    const auto outer = test.document->addSolid("Outer", 2);
    test.document->addGroup("G", {inner});
    test.document->Shapes()->Range({"Inner", "Outer"})->Fill().setForeColorRGB(9);
    EXPECT_EQ(inner->fill.ForeColorRGB, 9);
    EXPECT_EQ(outer->fill.ForeColorRGB, 9);
    EXPECT_THROW(test.document->Shapes()->Range({"Nobody"}), base::Error);
}

TEST_F(MemoryHostTest, EveryUseOfADeletedShapeFails) {
    const auto shape = test.document->addSolid("Sun", 255);
    test.document->remove(shape);
    EXPECT_THROW(shape->Name(), base::Error);
    EXPECT_THROW(shape->Fill().Visible(), base::Error);
    EXPECT_THROW(shape->Line().Visible(), base::Error);
    EXPECT_THROW(shape->Select(), base::Error);
}

TEST_F(MemoryHostTest, ShapesOfAClosedDocumentAnswerAsDeletedOnes) {
    const host::ShapePointer shape = test.document->addSolid("Sun", 255);
    test.document->Close();
    test.document.reset();
    EXPECT_THROW(shape->Fill().Visible(), base::Error);
    EXPECT_THROW(test.application.ActiveDocument(), base::Error);
}

TEST_F(MemoryHostTest, AnUndoGroupLeavesAStepOnlyWhenSomethingWasWritten) {
    const auto shape = test.document->addSolid("Sun", 255);
    test.document->undoGroup("Nothing").reset();
    EXPECT_TRUE(test.document->undoTitles.empty());
    {
        const auto group = test.document->undoGroup("Clear");
        shape->Fill().setTransparency(0.5F);
    }
    EXPECT_EQ(test.document->undoTitles, Calls{"Clear"});
}

TEST_F(MemoryHostTest, AnswersBoxesInTurnAndThenByTheirFirstButton) {
    test.runtime.answers = {forms::MsgBoxResult::ignore};
    EXPECT_EQ(test.runtime.MsgBox("a", 50, "t"), forms::MsgBoxResult::ignore);
    EXPECT_EQ(test.runtime.MsgBox("b", 50, "t"), forms::MsgBoxResult::abort);
    EXPECT_EQ(test.runtime.MsgBox("c", 16, "t"), forms::MsgBoxResult::ok);
    ASSERT_EQ(test.runtime.boxes.size(), 3U);
    EXPECT_EQ(test.runtime.boxes[0], (ShownBox{"a", 50, "t"}));
}

}  // namespace
}  // namespace huebrush::memory
