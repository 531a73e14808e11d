// SPDX-License-Identifier: MPL-2.0

#include "view/Keyboard.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "forms/Controls.h"
#include "view/FakeToolkit_test_support.h"

namespace huebrush::view {
namespace {

namespace KeyCode = forms::KeyCode;
namespace Shift = forms::Shift;
using Names = std::vector<std::string>;

constexpr std::int16_t kUnknown = 0;
constexpr std::int16_t kBoth = Shift::kShift | Shift::kCtrl;

/// One control of each kind for which keys have a meaning.
class KeyForm final : public forms::Form {
 public:
    KeyForm() : Form("KeyForm") {
        Move(0, 0, 3000, 3000);
        double top = 0;
        for (forms::Control* const control : children()) {
            control->Move(0, top, 300, 200);
            top += 200;
        }
        ok.Caption = std::string("&Ok");
        other.Caption = std::string("&Other");
        box.Caption = std::string("&Box");
        first.Caption = std::string("&First");
        ok.Default = true;
        notes.MultiLine = true;
        ok.Click.connect([this] { events.emplace_back("ok"); });
        other.Click.connect([this] { events.emplace_back("other"); });
        box.Click.connect([this] { events.emplace_back("box"); });
        box.KeyUp.connect([this](std::int16_t code, std::int16_t shift) {
            events.push_back(std::to_string(code) + "+" + std::to_string(shift));
        });
    }
    bool endsByEscape() const override { return endsByEscape_; }

    forms::CommandButton ok{*this, "ok"};
    forms::CommandButton other{*this, "other"};
    forms::CheckBox box{*this, "box"};
    forms::TextBox field{*this, "field"};
    forms::TextBox notes{*this, "notes"};
    forms::OptionButton first{*this, "first"};
    forms::OptionButton off{*this, "off"};
    forms::OptionButton last{*this, "last"};
    forms::Image image{*this, "image"};
    Names events;
    bool endsByEscape_ = true;
};

/// A menu that gets keys.
class HearingMenu final : public NativeMenu {
 public:
    void press(const Key& key) override { heard.push_back(key.code); }
    void end() override { ended = true; }

    std::vector<std::int16_t> heard;
    bool ended = false;
};

class KeyboardTest : public ViewTest<KeyForm> {
 protected:
    KeyboardTest() {
        form->off.Enabled = false;
        open();
    }

    /// A key goes down and up again. Whether the press was used up.
    bool type(std::int16_t code, std::int16_t shift = Shift::kNone) {
        const bool used = view->keyboard().press({code, shift});
        view->keyboard().release({code, shift});
        turn();
        return used;
    }
    Names events() { return std::exchange(form->events, {}); }
};

TEST_F(KeyboardTest, TabMovesTheFocusForwardsAndBackwards) {
    EXPECT_TRUE(type(KeyCode::kTab));
    EXPECT_EQ(form->focused(), &form->other);
    EXPECT_TRUE(type(KeyCode::kTab, Shift::kShift));
    EXPECT_EQ(form->focused(), &form->ok);
    EXPECT_FALSE(type(KeyCode::kTab, Shift::kCtrl)) << "that is the desktop's";
    EXPECT_EQ(form->focused(), &form->ok);
}

TEST_F(KeyboardTest, ReturnPressesTheButtonWithTheFocusOrElseTheDefaultOne) {
    focus(form->other);
    EXPECT_TRUE(type(KeyCode::kReturn));
    EXPECT_EQ(events(), Names{"other"});
    focus(form->field);
    EXPECT_TRUE(type(KeyCode::kReturn));
    EXPECT_EQ(events(), Names{"ok"});
}

TEST_F(KeyboardTest, EscapeEndsTheForm) {
    EXPECT_TRUE(type(KeyCode::kEscape));
    EXPECT_TRUE(form->isUnloaded());
}

TEST_F(KeyboardTest, EscapePressesTheCancelButton) {
    form->other.Cancel = true;
    focus(form->field);
    EXPECT_TRUE(type(KeyCode::kEscape));
    EXPECT_EQ(events(), Names{"other"});
    EXPECT_FALSE(form->isUnloaded());
    EXPECT_EQ(form->focused(), &form->other);
}

TEST_F(KeyboardTest, ADisabledCancelButtonStillKeepsEscapeFromTheForm) {
    form->other.Cancel = true;
    form->other.Enabled = false;
    EXPECT_TRUE(type(KeyCode::kEscape));
    EXPECT_EQ(events(), Names{});
    EXPECT_FALSE(form->isUnloaded());
}

TEST_F(KeyboardTest, ReturnIsKeptByAFieldThatListensAndLeftToOneWithSeveralLines) {
    form->field.KeyPress.connect([this](char16_t character) {
        form->events.push_back("field " + std::to_string(static_cast<int>(character)));
        form->notes.SetFocus();
    });
    focus(form->field);
    view->keyboard().press({KeyCode::kReturn, Shift::kNone, u'\r'});
    turn();
    EXPECT_EQ(events(), Names{"field 13"});
    EXPECT_EQ(form->focused(), &form->notes);
    EXPECT_FALSE(type(KeyCode::kReturn)) << "it ends a line there";
    EXPECT_EQ(events(), Names{});
}

TEST_F(KeyboardTest, AFieldIsNotifiedOfKeysThatTheNativeFieldGetsToo) {
    form->field.KeyDown.connect([this](std::int16_t code, std::int16_t shift) {
        form->events.push_back("down " + std::to_string(code) + "+" + std::to_string(shift));
    });
    form->field.KeyUp.connect([this](std::int16_t code, std::int16_t shift) {
        form->events.push_back("up " + std::to_string(code) + "+" + std::to_string(shift));
    });
    focus(form->field);
    EXPECT_FALSE(type('A', Shift::kShift));
    EXPECT_EQ(events(), (Names{"down 65+1", "up 65+1"}));
    focus(form->notes);
    EXPECT_FALSE(type('A'));
    EXPECT_EQ(events(), Names{});
}

TEST_F(KeyboardTest, EscapeIsUsedUpByAFormThatStays) {
    form->endsByEscape_ = false;
    EXPECT_TRUE(type(KeyCode::kEscape));
    EXPECT_FALSE(form->isUnloaded());
}

TEST_F(KeyboardTest, EscapeEndsADragAndNotTheForm) {
    form->image.Drag();
    EXPECT_TRUE(type(KeyCode::kEscape));
    EXPECT_EQ(form->dragged(), nullptr);
    EXPECT_FALSE(form->isUnloaded());
}

TEST_F(KeyboardTest, ArrowsMoveTheFocusFromAButtonAndStayInAField) {
    EXPECT_TRUE(type(KeyCode::kRight));
    EXPECT_EQ(form->focused(), &form->other);
    EXPECT_TRUE(type(KeyCode::kUp));
    EXPECT_EQ(form->focused(), &form->ok);
    EXPECT_TRUE(type(KeyCode::kDown, Shift::kShift));
    EXPECT_EQ(form->focused(), &form->ok) << "with a shift key they are for released keys only";
    focus(form->field);
    EXPECT_FALSE(type(KeyCode::kLeft));
    EXPECT_EQ(form->focused(), &form->field);
}

TEST_F(KeyboardTest, ArrowsChooseTheNextOptionAndWrapAround) {
    focus(form->first);
    type(KeyCode::kDown);
    EXPECT_TRUE(form->last.Value) << "the one between is disabled";
    focus(form->last);
    type(KeyCode::kDown);
    EXPECT_TRUE(form->first.Value);
    focus(form->first);
    type(KeyCode::kUp);
    EXPECT_TRUE(form->last.Value);
}

TEST_F(KeyboardTest, AltAndALetterInvokeAControl) {
    EXPECT_TRUE(type('B', Shift::kAlt));
    EXPECT_EQ(form->box.Value, forms::CheckValue::kTicked);
    EXPECT_EQ(events(), Names{"box"});
    EXPECT_TRUE(type('F', Shift::kAlt));
    EXPECT_TRUE(form->first.Value);
    EXPECT_FALSE(type('X', Shift::kAlt)) << "nobody's letter";
}

TEST_F(KeyboardTest, OfSeveralWithTheSameLetterTheNextOneIsInvoked) {
    type('O', Shift::kAlt);
    EXPECT_EQ(events(), Names{"other"}) << "Ok has the focus";
    focus(form->other);
    type('O', Shift::kAlt);
    EXPECT_EQ(events(), Names{"ok"});
}

TEST_F(KeyboardTest, ADisabledControlIsNotInvoked) {
    form->box.Enabled = false;
    EXPECT_FALSE(type('B', Shift::kAlt));
}

TEST_F(KeyboardTest, ABoxGetsReleasedKeysOnce) {
    focus(form->box);
    for (const std::int16_t code : {KeyCode::kDelete, KeyCode::kBack, KeyCode::kContextMenu}) {
        type(code);
        EXPECT_EQ(events(), Names{std::to_string(code) + "+0"});
    }
    type('A');
    type(KeyCode::kEnd);
    EXPECT_EQ(events(), Names{});
    focus(form->ok);
    type(KeyCode::kDelete);
    EXPECT_EQ(events(), Names{});
}

TEST_F(KeyboardTest, AShiftKeyThatIsReleasedFirstStillCounts) {
    focus(form->box);
    view->keyboard().press({KeyCode::kDown, kBoth});
    view->keyboard().release({KeyCode::kDown, Shift::kNone});
    turn();
    EXPECT_EQ(events(), Names{std::to_string(KeyCode::kDown) + "+" + std::to_string(kBoth)});
    view->keyboard().press({KeyCode::kDelete, Shift::kShift});
    view->keyboard().release({KeyCode::kBack, Shift::kNone});
    turn();
    EXPECT_EQ(events(), Names{std::to_string(KeyCode::kBack) + "+0"}) << "of another key";
}

TEST_F(KeyboardTest, ShiftAndF10IsTheContextMenuKey) {
    focus(form->box);
    EXPECT_TRUE(type(KeyCode::kF10, Shift::kShift));
    EXPECT_EQ(events(), Names{std::to_string(KeyCode::kContextMenu) + "+0"});
    focus(form->field);
    EXPECT_FALSE(type(KeyCode::kF10, Shift::kShift));
}

TEST_F(KeyboardTest, AKeyThatAButtonHasNoUseForGoesNoFurther) {
    EXPECT_TRUE(type('A'));
    EXPECT_TRUE(type(kUnknown));
    EXPECT_FALSE(type(KeyCode::kSpace)) << "the native button's own";
    EXPECT_FALSE(type('C', Shift::kCtrl));
    focus(form->field);
    EXPECT_FALSE(type('A'));
    EXPECT_FALSE(type(kUnknown));
}

TEST_F(KeyboardTest, AKeyEndsADragBeforeItActs) {
    form->image.Drag();
    type(KeyCode::kTab);
    EXPECT_EQ(form->dragged(), nullptr);
    EXPECT_EQ(form->focused(), &form->other);
}

TEST_F(KeyboardTest, AnOpenMenuGetsAllKeysIncludingTheReleaseOfTheLast) {
    const forms::PopupMenu menu("menu");
    HearingMenu window;
    focus(form->box);
    {
        const Menu::Opened opened(view->menu(), window, menu);
        EXPECT_TRUE(type(KeyCode::kTab));
        EXPECT_TRUE(view->keyboard().press({KeyCode::kDelete}));
    }
    EXPECT_TRUE(view->keyboard().release({KeyCode::kDelete})) << "it closed the menu";
    turn();
    EXPECT_EQ(window.heard, (std::vector<std::int16_t>{KeyCode::kTab, KeyCode::kDelete}));
    EXPECT_EQ(events(), Names{});
    EXPECT_EQ(form->focused(), &form->box);
    type(KeyCode::kDelete);
    EXPECT_EQ(events().size(), 1U) << "the next one is the box's again";
}

TEST_F(KeyboardTest, AltIsHeardByABoxOnlyWhereItIsPressedAlone) {
    focus(form->box);
    view->keyboard().press({KeyCode::kAlt, Shift::kAlt});
    view->keyboard().release({KeyCode::kAlt, Shift::kNone});
    turn();
    EXPECT_EQ(form->events, (Names{"18+4"}));
    form->events.clear();
    view->keyboard().press({KeyCode::kAlt, Shift::kAlt});
    view->keyboard().press({'X', Shift::kAlt});
    view->keyboard().release({'X', Shift::kAlt});
    view->keyboard().release({KeyCode::kAlt, Shift::kNone});
    turn();
    EXPECT_TRUE(form->events.empty());
}

}  // namespace
}  // namespace huebrush::view
