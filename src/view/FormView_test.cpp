// SPDX-License-Identifier: MPL-2.0

#include "view/FormView.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "view/FakeToolkit_test_support.h"
#include "view/Scene.h"

namespace huebrush::view {
namespace {

using Names = std::vector<std::string>;
using Kind = MouseInput::Kind;

constexpr std::int16_t kNone = 0;
constexpr std::int16_t kLeft = 1;
/// 15 twips are a pixel.
constexpr double kPixel = 15;
constexpr std::int32_t kRowHeight = 20;

/// A list of rows in a picture box, with a scroll bar beside it and a button below; in pixels:
///
///     0        100 110
///     image  0..90  | bar      0..60    the list shows three rows of 20
///     ok                       70..90
class ListForm final : public forms::Form {
 public:
    ListForm() : Form("ListForm") {
        place(*this, 0, 0, 110, 100);
        place(list, 0, 0, 100, 60);
        place(bar, 100, 0, 10, 60);
        place(ok, 0, 70, 50, 20);
        Caption = std::string("List");
        bar.Max = 100;
        bar.Change.connect([this] { scroll(); });
        for (std::int32_t row = 0; row < 6; ++row) addRow(row);
    }

    static void place(forms::Control& control, int left, int top, int width, int height) {
        control.Move(left * kPixel, top * kPixel, width * kPixel, height * kPixel);
    }
    void scroll() {
        for (std::size_t row = 0; row < boxes.size(); ++row) {
            const double top = (static_cast<double>(row) - bar.value()) * kRowHeight * kPixel;
            boxes[row]->Top = top;
            handles[row]->Top = top;
        }
    }

    forms::CommandButton ok{*this, "ok"};
    forms::PictureBox list{*this, "list"};
    forms::VScrollBar bar{*this, "bar"};
    std::vector<std::unique_ptr<forms::CheckBox>> boxes;
    std::vector<std::unique_ptr<forms::Image>> handles;
    Names events;

 private:
    void addRow(int row) {
        const std::string number = std::to_string(row);
        boxes.push_back(std::make_unique<forms::CheckBox>(list, "box " + number));
        place(*boxes.back(), 0, row * kRowHeight, 40, kRowHeight);
        handles.push_back(std::make_unique<forms::Image>(list, "handle " + number));
        forms::Image& handle = *handles.back();
        place(handle, 40, row * kRowHeight, 20, kRowHeight);
        handle.ToolTipText = "row " + number;
        handle.MouseDown.connect([&handle](const forms::MouseEvent&) { handle.Drag(); });
        handle.DragOver.connect([this, &handle](forms::Control&, float, float, forms::DragState) {
            events.push_back("over " + handle.name());
        });
        handle.DragDrop.connect([this, &handle](forms::Control& source, float, float) {
            events.push_back(source.name() + " on " + handle.name());
        });
    }
};

class FormViewTest : public ViewTest<ListForm> {
 protected:
    FormViewTest() { open(); }

    /// The mouse does something on the list, in its pixels.
    void mouse(Kind kind, std::int32_t x, std::int32_t y, std::int16_t button) {
        mouseOn(form->list, kind, x, y, button);
    }
    void mouseOn(forms::Control& surface, Kind kind, std::int32_t x, std::int32_t y,
                 std::int16_t button) {
        view->mouse({kind, frame.surfaceFor(surface)->reference, {x, y}, button});
        turn();
    }
    void scrollTo(std::int32_t row) {
        form->bar.scrollTo(row);
        turn();
    }
    void turnWheel(int rows) {
        view->turnWheel(frame.surfaceFor(form->list)->reference, rows);
        turn();
    }
    Names events() { return std::exchange(form->events, {}); }
};

// What shows.

TEST_F(FormViewTest, OnlyWhatShowsHasANativeControl) {
    EXPECT_EQ(frame.shown(), (Names{"bar", "box 0", "box 1", "box 2", "ok"}));
    EXPECT_EQ(frame.of(*form->boxes[1])->place, (Rectangle{0, kRowHeight, 40, kRowHeight}));
    EXPECT_EQ(frame.surfaceFor(form->list)->bounds, (Rectangle{0, 0, 100, 60}));
    EXPECT_EQ(frame.size, (Size{110, 100}));
}

TEST_F(FormViewTest, NativeControlsAreUsedAgainAsTheListScrolls) {
    const int before = frame.controlsMade;
    scrollTo(3);
    EXPECT_EQ(frame.shown(), (Names{"bar", "box 3", "box 4", "box 5", "ok"}));
    scrollTo(1);
    EXPECT_EQ(frame.shown(), (Names{"bar", "box 1", "box 2", "box 3", "ok"}));
    EXPECT_EQ(frame.controlsMade, before + 3)
        << "those of the old rows are spare only from then on";
}

TEST_F(FormViewTest, ManyChangesAreOnePassAndNoneIsNoPass) {
    const int before = frame.surfaceFor(form->list)->repaints;
    form->ok.Caption = std::string("a");
    form->ok.Enabled = false;
    form->boxes[0]->Value = forms::CheckValue::kTicked;
    EXPECT_EQ(frame.surfaceFor(form->list)->repaints, before) << "the program still runs";
    turn();
    EXPECT_EQ(frame.surfaceFor(form->list)->repaints, before + 1);
    view->flush();
    EXPECT_EQ(frame.surfaceFor(form->list)->repaints, before + 1);
}

TEST_F(FormViewTest, TheWindowFollowsCaptionSizeAndPointer) {
    form->Caption = std::string("Other");
    form->Height = 200 * kPixel;
    form->MousePointer = forms::MousePointerShape::hourglass;
    turn();
    EXPECT_EQ(frame.caption, "Other");
    EXPECT_EQ(frame.size, (Size{110, 200}));
    EXPECT_TRUE(frame.waits);
    form->MousePointer = forms::MousePointerShape::standard;
    turn();
    EXPECT_FALSE(frame.waits);
}

TEST_F(FormViewTest, AHiddenPictureBoxIsHiddenWithAllOnIt) {
    form->list.Visible = false;
    turn();
    EXPECT_FALSE(frame.surfaceFor(form->list)->visible);
    form->list.Visible = true;
    turn();
    EXPECT_TRUE(frame.surfaceFor(form->list)->visible);
    EXPECT_EQ(frame.shown(), (Names{"bar", "box 0", "box 1", "box 2", "ok"}));
}

TEST_F(FormViewTest, AControlThatEndsTakesItsNativeOneAlong) {
    form->boxes.erase(form->boxes.begin() + 1);
    turn();
    EXPECT_EQ(frame.shown(), (Names{"bar", "box 0", "box 2", "ok"}));
}

TEST_F(FormViewTest, AControlThatIsAddedIsShown) {
    forms::CommandButton late(*form, "late");
    ListForm::place(late, 60, 70, 40, 20);
    turn();
    EXPECT_EQ(frame.shown(), (Names{"bar", "box 0", "box 1", "box 2", "late", "ok"}));
}

TEST_F(FormViewTest, TheSizeThatTheUserGivesIsTheForms) {
    frame.size = {};
    view->resized({220, 150});
    turn();
    EXPECT_EQ(form->Width, 220 * kPixel);
    EXPECT_EQ(form->Height, 150 * kPixel);
    EXPECT_EQ(frame.size, Size{}) << "the window has that size already";
    EXPECT_EQ(frame.surfaceFor(*form)->bounds, (Rectangle{0, 0, 220, 150}));
}

TEST_F(FormViewTest, OnceClosedItGetsNothingAndKeepsNothing) {
    view->post([] { FAIL() << "what was posted is forgotten"; });
    view->close();
    EXPECT_TRUE(frame.controls.empty());
    EXPECT_TRUE(frame.surfaces.empty());
    frame.turnsAskedFor = 0;
    form->ok.Caption = std::string("a");
    form->boxes.clear();
    EXPECT_EQ(frame.turnsAskedFor, 0);
    EXPECT_FALSE(view->runActions());
    view->close();
}

TEST_F(FormViewTest, AnActionMayCloseTheView) {
    view->post([this] { view->close(); });
    view->post([] { FAIL() << "its window is gone"; });
    turn();
    EXPECT_TRUE(frame.surfaces.empty());
}

// The focus.

TEST_F(FormViewTest, TheFirstControlHasTheFocusAtFirst) {
    EXPECT_EQ(form->focused(), &form->ok);
    EXPECT_EQ(frame.focused, frame.of(form->ok));
}

TEST_F(FormViewTest, TheNativeFocusFollows) {
    focus(*form->boxes[1]);
    EXPECT_EQ(frame.focused, frame.of(*form->boxes[1]));
}

TEST_F(FormViewTest, AnInactiveWindowTakesNoFocus) {
    frame.active = false;
    focus(*form->boxes[1]);
    EXPECT_EQ(frame.focused, frame.of(form->ok));
    frame.active = true;
    view->actions().wake();
    turn();
    EXPECT_EQ(frame.focused, frame.of(*form->boxes[1]));
}

TEST_F(FormViewTest, AClickedControlKeepsTheNativeFocusUntilItsActionComes) {
    frame.of(*form->boxes[2])->takeFocus();
    form->ok.Caption = std::string("a");
    turn();
    EXPECT_EQ(frame.focused, frame.of(*form->boxes[2]));
}

TEST_F(FormViewTest, AFocusThatNoControlHasReturns) {
    frame.focused = nullptr;
    form->ok.Caption = std::string("a");
    turn();
    EXPECT_EQ(frame.focused, frame.of(form->ok));
}

TEST_F(FormViewTest, AControlThatIsScrolledOutOfSightKeepsTheFocus) {
    focus(*form->boxes[0]);
    const FakeFrame::Control* const native = frame.focused;
    scrollTo(3);
    EXPECT_EQ(frame.focused, native);
    EXPECT_EQ(native->reference->control, form->boxes[0].get());
    EXPECT_TRUE(native->visible);
    EXPECT_LE(native->place.top + native->place.height, 0) << "above all that shows";
    scrollTo(0);
    EXPECT_EQ(frame.of(*form->boxes[0]), native);
}

TEST_F(FormViewTest, AHiddenControlDoesNotKeepTheFocus) {
    focus(*form->boxes[0]);
    form->boxes[0]->Visible = false;
    turn();
    EXPECT_EQ(frame.of(*form->boxes[0]), nullptr);
    EXPECT_EQ(form->focused()->peer(), ControlPeer::of(form->focused()));
    EXPECT_EQ(frame.focused, frame.of(*form->focused()));
}

// The mouse.

TEST_F(FormViewTest, WhatTheMouseDoesTakesEffectWithTheNextTurn) {
    view->mouse({Kind::press, frame.surfaceFor(form->list)->reference, {50, 10}, kLeft});
    EXPECT_EQ(form->dragged(), nullptr);
    turn();
    EXPECT_EQ(form->dragged(), form->handles[0].get());
    EXPECT_GT(frame.actionsRun, 0);
}

TEST_F(FormViewTest, ARowIsDroppedOnTheRowUnderTheMouse) {
    mouse(Kind::press, 50, 10, kLeft);
    mouse(Kind::move, 50, 50, kLeft);
    mouse(Kind::release, 50, 50, kLeft);
    EXPECT_EQ(events().back(), "handle 0 on handle 2");
    EXPECT_EQ(form->dragged(), nullptr);
}

TEST_F(FormViewTest, AMoveOverANativeControlCountsWhereThatLies) {
    mouse(Kind::press, 50, 10, kLeft);
    events();
    // 45 pixels right of its own left edge is the handle beside it: a window that has grabbed the
    // mouse gets its moves beyond its edges.
    view->mouse({Kind::move, frame.of(*form->boxes[1])->reference, {45, 5}, kLeft});
    turn();
    EXPECT_EQ(events().front(), "over handle 1");
}

TEST_F(FormViewTest, InputOfAControlThatHasEndedIsIgnored) {
    const ControlReference reference = frame.of(*form->boxes[1])->reference;
    view->mouse({Kind::press, reference, {1, 1}, kLeft});
    form->boxes.erase(form->boxes.begin() + 1);
    turn();
    view->mouse({Kind::move, nullptr, {1, 1}, kNone});
    turn();
    EXPECT_EQ(form->dragged(), nullptr);
}

TEST_F(FormViewTest, AToolTipFollowsTheMouse) {
    mouse(Kind::move, 50, 30, kNone);
    EXPECT_EQ(frame.surfaceFor(form->list)->toolTip, "row 1");
    mouse(Kind::move, 90, 30, kNone);
    EXPECT_EQ(frame.surfaceFor(form->list)->toolTip, "");
}

TEST_F(FormViewTest, TheWheelScrollsByRowsAndNotBeyondTheEnds) {
    turnWheel(2);
    EXPECT_EQ(form->bar.value(), 2);
    turnWheel(-5);
    EXPECT_EQ(form->bar.value(), 0);
}

TEST_F(FormViewTest, TheWheelDoesNothingWithoutAUsableBar) {
    form->bar.Enabled = false;
    turnWheel(2);
    EXPECT_EQ(form->bar.value(), 0);
}

TEST_F(FormViewTest, ADragBelowTheListScrollsItForAsLongAsItStaysThere) {
    mouse(Kind::press, 50, 10, kLeft);
    mouse(Kind::move, 50, 61, kLeft);
    for (int rows = 1; rows <= 3; ++rows) {
        ASSERT_TRUE(frame.tick());
        turn();
        EXPECT_EQ(form->bar.value(), rows);
    }
    mouse(Kind::move, 50, 30, kLeft);
    EXPECT_FALSE(frame.tick());
}

TEST_F(FormViewTest, ADragAboveTheListScrollsItBack) {
    scrollTo(3);
    mouse(Kind::press, 50, 10, kLeft);
    mouse(Kind::move, 50, -1, kLeft);
    ASSERT_TRUE(frame.tick());
    turn();
    EXPECT_EQ(form->bar.value(), 2);
    mouse(Kind::release, 50, -1, kLeft);
    EXPECT_FALSE(frame.tick());
    EXPECT_EQ(form->dragged(), nullptr);
}

TEST_F(FormViewTest, ADragOverTheFormBesideTheListScrollsIt) {
    mouse(Kind::press, 50, 10, kLeft);
    mouseOn(*form, Kind::move, 50, 95, kLeft);
    ASSERT_TRUE(frame.tick());
    turn();
    EXPECT_EQ(form->bar.value(), 1);
}

TEST_F(FormViewTest, ADragThatHasEndedScrollsNoMore) {
    mouse(Kind::press, 50, 10, kLeft);
    mouse(Kind::move, 50, 61, kLeft);
    view->cancelDrag();
    ASSERT_TRUE(frame.tick());
    turn();
    EXPECT_EQ(form->bar.value(), 0);
    EXPECT_FALSE(frame.tick());
}

TEST_F(FormViewTest, APlaceOfAControlIsFoundInTheWindow) {
    EXPECT_EQ(view->placeInWindow(*form, 2 * kPixel, 3 * kPixel), (Point{2, 3}));
    form->list.Left = 7 * kPixel;
    turn();
    EXPECT_EQ(view->placeInWindow(*form->boxes[1], kPixel, kPixel), (Point{8, kRowHeight + 1}));
}

/// Two lists with a bar each, the second one inside a frame, and a field.
class TwoListsForm final : public forms::Form {
 public:
    TwoListsForm() : Form("TwoListsForm") {
        ListForm::place(*this, 0, 0, 200, 200);
        ListForm::place(list, 0, 0, 50, 50);
        ListForm::place(bar, 50, 0, 10, 50);
        ListForm::place(frame, 0, 60, 100, 60);
        ListForm::place(view, 0, 0, 50, 50);
        ListForm::place(strip, 0, 0, 50, 90);
        ListForm::place(frameBar, 50, 0, 10, 50);
        ListForm::place(field, 0, 150, 50, 20);
    }
    forms::PictureBox list{*this, "list"};
    forms::VScrollBar bar{*this, "bar"};
    forms::Frame frame{*this, "frame"};
    forms::PictureBox view{frame, "view"};
    forms::PictureBox strip{view, "strip"};
    forms::VScrollBar frameBar{frame, "frameBar"};
    forms::TextBox field{*this, "field"};
};

class TwoListsTest : public ViewTest<TwoListsForm> {
 protected:
    TwoListsTest() { open(); }
    void turnWheel(const forms::Control& surface, int rows) {
        view->turnWheel(frame.surfaceFor(surface)->reference, rows);
        turn();
    }
};

TEST_F(TwoListsTest, TheBarsAroundASurfaceAreThoseBesideItAndThenThoseFurtherOut) {
    using Bars = std::vector<forms::VScrollBar*>;
    form->frameBar.Enabled = false;
    EXPECT_EQ(barsAround(form->view), (Bars{&form->frameBar, &form->bar}));
    EXPECT_EQ(barsAround(form->list), Bars{&form->bar});
    EXPECT_EQ(barsAround(*form), Bars{&form->bar});
}

TEST_F(TwoListsTest, TheWheelScrollsWhatIsUnderThePointer) {
    turnWheel(form->view, 3);
    EXPECT_EQ(form->frameBar.value(), 3);
    EXPECT_EQ(form->bar.value(), 0);
    turnWheel(form->list, 2);
    EXPECT_EQ(form->frameBar.value(), 3);
    EXPECT_EQ(form->bar.value(), 2);
}

TEST_F(TwoListsTest, TheWheelGoesToTheNextBarAroundWhereThatBesideCannotScroll) {
    form->frameBar.Enabled = false;
    turnWheel(form->view, 3);
    EXPECT_EQ(form->frameBar.value(), 0);
    EXPECT_EQ(form->bar.value(), 3);
}

TEST_F(TwoListsTest, TheNativeFocusFollowsWithoutAnythingElseThatChanges) {
    focus(form->field);
    const int repaints = frame.surfaceFor(*form)->repaints;
    form->bar.SetFocus();
    turn();
    EXPECT_TRUE(frame.of(form->bar)->hasFocus());
    EXPECT_EQ(frame.surfaceFor(*form)->repaints, repaints);
}

TEST_F(TwoListsTest, TheWheelOverAListThatHasGoneDoesNothing) {
    const ControlReference surface = frame.surfaceFor(form->view)->reference;
    view->turnWheel(surface, 3);
    view->close();
    turn();
    EXPECT_EQ(form->frameBar.value(), 0);
}

TEST_F(TwoListsTest, WhatTheFieldKnowsIsCollectedBeforeWhatTheUserDoesNext) {
    focus(form->field);
    form->field.Text = std::string("abc");
    turn();
    frame.of(form->field)->onCollect = [this] { form->field.select({2, 0}); };
    std::int32_t caret = 0;
    view->post([&] { caret = form->field.SelStart(); });
    turn();
    EXPECT_EQ(caret, 2);
}

TEST_F(FormViewTest, OnAScreenOfAnotherResolutionThePixelsChangeAndTheTwipsStay) {
    open();
    const Size before = frame.size;
    const double width = form->Width;
    view->rescale(Scale(192));
    turn();
    EXPECT_EQ(frame.size, (Size{2 * before.width, 2 * before.height}));
    EXPECT_EQ(form->Width, width);
}

}  // namespace
}  // namespace huebrush::view
