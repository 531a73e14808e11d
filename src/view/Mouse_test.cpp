// SPDX-License-Identifier: MPL-2.0

#include "view/Mouse.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "ports/memory/MemoryRuntime.h"
#include "view/ControlPeer.h"

namespace huebrush::tests {
namespace {

using view::ControlPeer;
using view::Mouse;
using Names = std::vector<std::string>;

constexpr std::int16_t kNone = 0;
constexpr std::int16_t kLeft = 1;
constexpr std::int16_t kRight = 2;

/// Three images in a row: one that is dragged when the button goes down on it, and two that listen.
class DragForm final : public forms::Form {
 public:
    DragForm() : Form("DragForm") {
        Move(0, 0, 300, 100);
        double left = 0;
        for (forms::Image* const image : {&handle, &first, &second}) {
            image->Move(left, 0, 100, 100);
            left += 100;
            image->MouseMove.connect([this, image](const forms::MouseEvent&) {
                events.push_back("move " + image->name());
            });
            image->DragOver.connect(
                [this, image](forms::Control&, float, float, forms::DragState state) {
                    if (state == forms::DragState::enter)
                        events.push_back("enter " + image->name());
                    if (state == forms::DragState::leave)
                        events.push_back("leave " + image->name());
                });
            image->DragDrop.connect([this, image](forms::Control& source, float, float) {
                events.push_back(source.name() + " on " + image->name());
            });
        }
        handle.MouseDown.connect([this](const forms::MouseEvent&) { handle.Drag(); });
    }
    forms::Image handle{*this, "handle"};
    forms::Image first{*this, "first"};
    forms::Image second{*this, "second"};
    Names events;
};

class MouseTest : public ::testing::Test {
 protected:
    static constexpr double kHandle = 50;
    static constexpr double kFirst = 150;
    static constexpr double kSecond = 250;

    MouseTest() {
        for (forms::Control* const control : form->children()) {
            control->setPeer(
                std::make_unique<ControlPeer>(*control, std::weak_ptr<view::ChangeListener>()));
        }
    }
    Mouse::Place at(double x) const { return {form.get(), x, 50, 300, 100}; }
    void press(double x) { mouse.press(at(x), {kLeft}, false); }
    void move(double x, std::int16_t button) { mouse.move(at(x), {button}); }
    void release(double x, std::int16_t button = kLeft) { mouse.release(at(x), {button}); }
    /// What has been raised since the last call.
    Names events() { return std::exchange(form->events, {}); }

    memory::MemoryRuntime runtime;
    forms::RuntimeScope scope{runtime};
    std::shared_ptr<DragForm> form = std::make_shared<DragForm>();
    Mouse mouse;
};

TEST_F(MouseTest, ADragIsDroppedWhereItsButtonIsReleased) {
    press(kHandle);
    move(kFirst, kLeft);
    EXPECT_EQ(events(), (Names{"enter first"}));
    release(kSecond);
    EXPECT_EQ(events(), (Names{"leave first", "enter second", "handle on second"}));
    EXPECT_EQ(form->dragged(), nullptr);
}

TEST_F(MouseTest, MovesThatOvertakeTheReleaseDoNotEndTheDrag) {
    press(kHandle);
    move(kFirst, kLeft);
    for (int moves = 0; moves < 10; ++moves) move(kSecond, kNone);
    ASSERT_EQ(form->dragged(), &form->handle);
    events();
    release(kFirst);
    EXPECT_EQ(events(), (Names{"enter first", "handle on first"}));
}

TEST_F(MouseTest, NothingIsDraggedOverByAMoveWithoutTheButton) {
    press(kHandle);
    move(kFirst, kLeft);
    events();
    move(kSecond, kNone);
    EXPECT_EQ(events(), (Names{"leave first", "move second"}));
    move(kSecond, kLeft);
    EXPECT_EQ(events(), (Names{"enter second"}));
}

TEST_F(MouseTest, APressEndsADragWhoseReleaseNobodySaw) {
    press(kHandle);
    move(kFirst, kLeft);
    press(kSecond);
    EXPECT_EQ(form->dragged(), nullptr);
    EXPECT_EQ(events(), (Names{"enter first", "leave first"}));
    release(kSecond);
    EXPECT_EQ(events(), Names{});
}

TEST_F(MouseTest, AnotherButtonDoesNotDrop) {
    press(kHandle);
    move(kFirst, kLeft);
    events();
    release(kFirst, kRight);
    EXPECT_EQ(events(), Names{});
    EXPECT_EQ(form->dragged(), &form->handle);
}

TEST_F(MouseTest, APressedImageGetsTheMouseWhereverItIsUntilTheButtonIsSeenToBeUp) {
    press(kFirst);
    move(kSecond, kLeft);
    EXPECT_EQ(events(), (Names{"move first"}));
    move(kSecond, kNone);
    EXPECT_EQ(events(), (Names{"move second"}));
}

}  // namespace
}  // namespace huebrush::tests
