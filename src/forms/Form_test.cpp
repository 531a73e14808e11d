// SPDX-License-Identifier: MPL-2.0

#include "forms/Form.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Error.h"
#include "forms/Controls.h"
#include "ports/memory/Driver.h"
#include "ports/memory/MemoryRuntime.h"

namespace huebrush::forms {
namespace {

class PlainForm final : public Form {
 public:
    PlainForm() : Form("PlainForm") {}
    CommandButton button{*this, "button"};
    TextBox field{*this, "field"};
    ListBox list{*this, "list"};
    PictureBox box{*this, "box"};
    Image image{box, "image"};
};

/// Counts the notifications that a screen would get.
class CountingPeer final : public Peer {
 public:
    explicit CountingPeer(std::vector<PropertyId>& heard) : heard_(heard) {}
    void changed(PropertyId id) override { heard_.push_back(id); }

 private:
    std::vector<PropertyId>& heard_;
};

class FormTest : public ::testing::Test {
 protected:
    memory::MemoryRuntime runtime;
    RuntimeScope scope{runtime};
    std::shared_ptr<PlainForm> form = std::make_shared<PlainForm>();
};

TEST_F(FormTest, APeerIsNotifiedOfEveryChangeAndOfNothingElse) {
    std::vector<PropertyId> heard;
    form->button.setPeer(std::make_unique<CountingPeer>(heard));
    form->button.Caption = std::string("a");
    form->button.Caption = std::string("a");
    form->button.Enabled = false;
    form->button.Move(0, 0, 10, 0);
    EXPECT_EQ(heard, (std::vector<PropertyId>{PropertyId::Caption, PropertyId::Enabled,
                                              PropertyId::Width}));
}

TEST_F(FormTest, ResizeIsRaisedForEachChangeOfASizeAndForNoneOfAPlace) {
    int resizes = 0;
    form->Resize.connect([&] { ++resizes; });
    form->Width = 100;
    form->Height = 100;
    form->Height = 100;
    form->Left = 5;
    EXPECT_EQ(resizes, 2);
}

TEST_F(FormTest, TheInnerSizeIsTheSizeWithoutThePlatformsFrameAndNeverNegative) {
    form->Width = 1000;
    form->Height = 200;
    form->setFrameSize(120, 400);
    EXPECT_EQ(form->ScaleWidth(), 880);
    EXPECT_EQ(form->ScaleHeight(), 0);
}

TEST_F(FormTest, IsShownAndHiddenByTheRuntime) {
    form->Show();
    form->Unload();
    form->Show();
    EXPECT_EQ(runtime.windowCalls, (std::vector<std::string>{"show PlainForm", "close PlainForm"}));
}

TEST_F(FormTest, FocusMovesNowhereOnAnUnloadedForm) {
    form->button.SetFocus();
    form->Unload();
    EXPECT_EQ(form->focused(), nullptr);
    form->field.SetFocus();
    EXPECT_EQ(form->focused(), nullptr);
}

TEST_F(FormTest, TheFocusGoesToNobodyWhenNoControlCanTakeIt) {
    form->button.SetFocus();
    int lost = 0;
    form->button.LostFocus.connect([&] { ++lost; });
    form->field.Enabled = false;
    form->list.Visible = false;
    form->button.Enabled = false;
    EXPECT_EQ(form->focused(), nullptr);
    EXPECT_EQ(lost, 1);
}

TEST_F(FormTest, AHandlerThatMovesTheFocusOnWins) {
    form->button.GotFocus.connect([&] { form->field.SetFocus(); });
    form->list.SetFocus();
    form->button.SetFocus();
    EXPECT_EQ(form->focused(), &form->field);
}

TEST_F(FormTest, ADragEndsWithItsDropWhetherOnAControlOrOnNone) {
    int drops = 0;
    form->button.DragDrop.connect([&](Control&, float, float) { ++drops; });
    form->image.Drag();
    EXPECT_EQ(form->dragged(), &form->image);
    form->dropAt(nullptr, 0, 0);
    EXPECT_EQ(form->dragged(), nullptr);
    form->dropAt(&form->button, 0, 0);
    EXPECT_EQ(drops, 0);
}

TEST_F(FormTest, NothingEscapesEvenWhenTheReportOfAnErrorFails) {
    runtime.UnhandledError.connect([](const base::Error&) { throw base::Error(1, "again"); });
    form->button.Click.connect([] { throw base::Error(2, "first"); });
    EXPECT_NO_THROW(form->button.press());
    // The handler counts as ended: an unloaded row would not be kept for it any more.
    std::weak_ptr<PlainForm> watched = form;
    form.reset();
    EXPECT_TRUE(watched.expired());
}

TEST_F(FormTest, AFormSurvivesItsReleaseByItsOwnHandler) {
    PlainForm* const plain = form.get();
    bool ran = false;
    plain->button.Click.connect([&, plain] {
        form->Unload();
        form.reset();
        plain->Caption = std::string("late");
        ran = true;
    });
    plain->button.press();
    EXPECT_TRUE(ran);
}

TEST_F(FormTest, TypingChangesATextBoxAndRaisesChangeOnce) {
    int changes = 0;
    form->field.Change.connect([&] { ++changes; });
    form->field.type("abc");
    form->field.type("abc");
    EXPECT_EQ(form->field.Text.get(), "abc");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(form->focused(), &form->field);
}

TEST_F(FormTest, AClearedListHasNoLines) {
    form->list.AddItem("a");
    form->list.pick(0);
    form->list.Clear();
    EXPECT_EQ(form->list.ListIndex, -1);
    EXPECT_TRUE(form->list.items().empty());
}

TEST_F(FormTest, AListHasAsManyItemsAsItsIndexCanCount) {
    for (std::int32_t i = 0; i < 32767; ++i) form->list.AddItem("a");
    try {
        form->list.AddItem("a");
        FAIL() << "one more was added";
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), base::ErrorNumber::kOverflow);
    }
    EXPECT_EQ(form->list.ListCount(), 32767);
}

TEST_F(FormTest, TheRuntimeIsAskedForTheTopMostLevelWhenThatChanges) {
    form->TopMost = true;
    form->TopMost = true;
    form->TopMost = false;
    EXPECT_EQ(runtime.windowCalls,
              (std::vector<std::string>{"raise PlainForm", "lower PlainForm"}));
}

TEST_F(FormTest, ADisabledContainerMakesItsPartsUnusable) {
    EXPECT_TRUE(form->image.isUsable());
    form->box.Enabled = false;
    EXPECT_TRUE(form->image.isShown());
    EXPECT_FALSE(form->image.isUsable());
    form->box.Visible = false;
    EXPECT_FALSE(form->image.isShown());
}

TEST_F(FormTest, RuntimesNestAndAreAnErrorWhenThereIsNone) {
    memory::MemoryRuntime other;
    {
        const RuntimeScope inner(other);
        EXPECT_EQ(&Runtime::current(), &other);
    }
    EXPECT_EQ(&Runtime::current(), &runtime);
}

}  // namespace
}  // namespace huebrush::forms
