// SPDX-License-Identifier: MPL-2.0

#include "recolor/FillEditor.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "forms/Form.h"
#include "ports/memory/TestHost.h"

namespace huebrush::recolor {
namespace {

using host::MsoTriState;

constexpr std::int32_t kPicked = 0x336699;

/// An editor with one row on a bare form, which is no dialog.
class FillEditorTest : public ::testing::Test {
 protected:
    FillEditorTest() {
        element = std::make_shared<ColorElement>(*form, "row", std::int16_t{1});
        element->FillObject().SaveOriginalFormat(test.document->addSolid("A", 1)->Fill());
    }
    /// The user gives the scratch shape another colour and ends the tool so.
    void userPicks(std::int32_t tool, std::int32_t result) {
        test.application.tools[tool] = [this, result](memory::MemoryShape& selected) {
            wasOpen = editor.isToolOpen();
            onTopDuringTool = onTop;
            selected.fill.ForeColorRGB = kPicked;
            return result;
        };
    }
    const fill::FillProperties& destination() { return element->FillObject().destination(); }

    memory::TestHost test;
    std::shared_ptr<forms::Form> form = std::make_shared<forms::Form>("form");
    std::shared_ptr<ColorElement> element;
    bool onTop = true;
    bool onTopDuringTool = true;
    bool wasOpen = false;
    FillEditor editor{{[this]() -> host::Application& { return test.application; },
                       [this](bool value) { onTop = value; }}};
    FillEditor::Row row = [this]() -> ColorElement& { return *element; };
};

TEST_F(FillEditorTest, EachToolEditsTheNewFillOnAScratchShape) {
    const std::pair<void (FillEditor::*)(const FillEditor::Row&), std::int32_t> tools[] = {
        {&FillEditor::useColorTool, 1051},
        {&FillEditor::useFillTool, 1006},
        {&FillEditor::useFormatTool, 960}};
    for (const auto& [use, id] : tools) {
        SCOPED_TRACE(id);
        element->FillObject().Restore();
        userPicks(id, -1);
        (editor.*use)(row);
        EXPECT_EQ(destination().ForeColorRGB, kPicked);
        EXPECT_TRUE(element->FillObject().Change());
        EXPECT_FALSE(element->DestinationPicture().empty());
        EXPECT_TRUE(wasOpen);
        EXPECT_FALSE(editor.isToolOpen());
        EXPECT_FALSE(onTopDuringTool);
        EXPECT_TRUE(onTop);
        EXPECT_EQ(test.application.openScratchDocuments(), 0U);
    }
    EXPECT_EQ(test.document->find("A")->fill.ForeColorRGB, 1);
}

TEST_F(FillEditorTest, OnlyTheFormatToolCanBeCancelled) {
    userPicks(960, 0);
    editor.useFormatTool(row);
    EXPECT_FALSE(element->FillObject().Change());
    userPicks(1051, 0);
    editor.useColorTool(row);
    EXPECT_EQ(destination().ForeColorRGB, kPicked);
}

TEST_F(FillEditorTest, AToolThatFailsIsTheCallersErrorAndCountsAsClosed) {
    userPicks(1006, -1);
    test.log().failAt("call Control 1006.Execute", base::Error(7, "popis"));
    EXPECT_THROW(editor.useFillTool(row), base::Error);
    EXPECT_FALSE(editor.isToolOpen());
    EXPECT_FALSE(element->FillObject().Change());
    EXPECT_EQ(test.application.openScratchDocuments(), 1U);
}

TEST_F(FillEditorTest, ARowThatIsUnloadedUnderTheToolIsAnError) {
    test.application.tools[1051] = [this](memory::MemoryShape&) {
        row = []() -> ColorElement& { throw base::Error(base::ErrorNumber::kNoSuchControl, ""); };
        return -1;
    };
    EXPECT_THROW(editor.useColorTool([this]() -> ColorElement& { return row(); }), base::Error);
    EXPECT_FALSE(element->FillObject().Change());
}

TEST_F(FillEditorTest, TogglesTheFillAndItsTransparencyWithoutATool) {
    editor.toggleFill(row);
    EXPECT_EQ(destination().Visible, MsoTriState::msoFalse);
    EXPECT_TRUE(element->DestinationPicture().empty());
    editor.toggleFill(row);
    EXPECT_EQ(destination().Visible, MsoTriState::msoTrue);
    EXPECT_FALSE(element->DestinationPicture().empty());
    editor.toggleTransparency(row);
    EXPECT_EQ(destination().Transparency, 0.5F);
    editor.toggleTransparency(row);
    EXPECT_EQ(destination().Transparency, 0.0F);
    EXPECT_TRUE(onTop);
}

}  // namespace
}  // namespace huebrush::recolor
