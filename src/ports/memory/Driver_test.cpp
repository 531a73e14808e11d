// SPDX-License-Identifier: MPL-2.0

#include "ports/memory/Driver.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ports/memory/TestHost.h"

namespace huebrush::memory {
namespace {

class SmallForm final : public forms::Form {
 public:
    SmallForm() : Form("SmallForm") {
        Caption = std::string("Small");
        Width = 3000;
        Height = 2000;
        ok.Caption = std::string("&OK");
        ok.Move(10, 20, 30, 40);
    }
    forms::CommandButton ok{*this, "ok"};
    forms::CheckBox box{*this, "box"};
    forms::Frame frame{*this, "frame"};
    forms::OptionButton first{frame, "first"};
    forms::OptionButton second{frame, "second"};
    forms::Image image{*this, "image"};
    forms::VScrollBar bar{*this, "bar"};
};

/// Fields and a list.
class FieldForm final : public forms::Form {
 public:
    FieldForm() : Form("FieldForm") {
        notes.MultiLine = true;
        list.AddItem("a");
        list.AddItem("b");
    }
    forms::TextBox field{*this, "field"};
    forms::TextBox notes{*this, "notes"};
    forms::ListBox list{*this, "list"};
    forms::CommandButton ok{*this, "ok"};
};

class DriverTest : public ::testing::Test {
 protected:
    TestHost host;
    std::shared_ptr<SmallForm> form = std::make_shared<SmallForm>();
    Driver user{*form};
    std::vector<std::string> events;
};

TEST_F(DriverTest, ClicksByNameWhatCanBeClicked) {
    form->ok.Click.connect([this] { events.emplace_back("ok"); });
    form->image.Click.connect([this] { events.emplace_back("image"); });
    user.click("ok");
    user.click("box");
    user.click("second");
    user.click("image");
    EXPECT_EQ(events, (std::vector<std::string>{"ok", "image"}));
    EXPECT_EQ(form->box.Value, 1);
    EXPECT_TRUE(form->second.Value);
    EXPECT_THROW(user.click("frame"), ImpossibleInput);
    EXPECT_THROW(user.click("nobody"), ImpossibleInput);
}

TEST_F(DriverTest, RefusesAClickOnAHiddenOrDisabledControl) {
    form->ok.Enabled = false;
    EXPECT_THROW(user.click(form->ok), ImpossibleInput);
    form->frame.Visible = false;
    EXPECT_THROW(user.click(form->first), ImpossibleInput);
    form->bar.Enabled = false;
    EXPECT_THROW(user.scrollTo(form->bar, 5), ImpossibleInput);
}

TEST_F(DriverTest, RefusesInputOnAClosedForm) {
    user.close();
    EXPECT_TRUE(form->isUnloaded());
    EXPECT_THROW(user.click(form->ok), ImpossibleInput);
    EXPECT_THROW(user.tab(), ImpossibleInput);
    EXPECT_THROW(user.close(), ImpossibleInput);
}

TEST_F(DriverTest, ReleasesKeysOnTheFocusedControl) {
    form->box.KeyUp.connect([this](std::int16_t code, std::int16_t shift) {
        events.push_back(std::to_string(code) + "+" + std::to_string(shift));
    });
    EXPECT_THROW(user.key(forms::KeyCode::kUp), ImpossibleInput);
    form->box.SetFocus();
    user.key(forms::KeyCode::kUp, forms::Shift::kShift);
    EXPECT_EQ(events, std::vector<std::string>{"38+1"});
}

TEST_F(DriverTest, WalksTheControlsWithTabInBothDirections) {
    user.tab();
    EXPECT_EQ(form->focused(), &form->ok);
    user.tab();
    EXPECT_EQ(form->focused(), &form->box);
    user.tab();
    EXPECT_EQ(form->focused(), &form->first);
    user.shiftTab();
    user.shiftTab();
    user.shiftTab();
    EXPECT_EQ(form->focused(), &form->bar);
}

TEST_F(DriverTest, DragsOverControlsAndDrops) {
    const auto watch = [this](forms::Control& control) {
        control.DragOver.connect(
            [this, &control](forms::Control& source, float, float, forms::DragState state) {
                events.push_back(control.name() + " " + source.name() + " " +
                                 std::to_string(static_cast<int>(state)));
            });
        control.DragDrop.connect([this, &control](forms::Control& source, float, float) {
            events.push_back(control.name() + " drops " + source.name());
        });
    };
    watch(form->ok);
    watch(form->box);
    user.drag([this] { form->image.Drag(); }, {&form->ok, &form->box});
    EXPECT_EQ(events, (std::vector<std::string>{"ok image 0", "ok image 2", "ok image 1",
                                                "box image 0", "box image 2", "box drops image"}));
    EXPECT_EQ(form->dragged(), nullptr);
    EXPECT_THROW(user.drag([] {}, {&form->ok}), ImpossibleInput);
}

TEST_F(DriverTest, PrintsTheControlTree) {
    form->second.Value = true;
    form->box.Visible = false;
    form->ok.SetFocus();
    EXPECT_EQ(user.print(),
              "Form SmallForm \"Small\" (0, 0, 3000, 2000)\n"
              "  CommandButton ok \"&OK\" (10, 20, 30, 40) focused\n"
              "  CheckBox box [0] (0, 0, 0, 0) hidden\n"
              "  Frame frame (0, 0, 0, 0)\n"
              "    OptionButton first (0, 0, 0, 0)\n"
              "    OptionButton second [chosen] (0, 0, 0, 0)\n"
              "  Image image (0, 0, 0, 0)\n"
              "  VScrollBar bar [0 of 32767] (0, 0, 0, 0)\n");
}

TEST_F(DriverTest, TypesBehindTheTextOfABoxAndWhereTheCaretIs) {
    const auto fields = std::make_shared<FieldForm>();
    const Driver typist(*fields);
    EXPECT_THROW(typist.type("a"), ImpossibleInput);
    fields->field.Text = std::string("ž");
    typist.type(fields->field, "lu");
    typist.key(forms::KeyCode::kBack);
    typist.key(forms::KeyCode::kHome);
    typist.type("x");
    typist.key(forms::KeyCode::kDelete);
    EXPECT_EQ(fields->field.Text.get(), "xl");
    fields->field.setSelStart(0);
    fields->field.setSelLength(2);
    typist.type("ň");
    EXPECT_EQ(fields->field.Text.get(), "ň");
    typist.type(fields->notes, "a\nb");
    EXPECT_EQ(fields->notes.Text.get(), "a\r\nb");
    fields->field.Enabled = false;
    EXPECT_THROW(typist.type(fields->field, "x"), ImpossibleInput);
}

TEST_F(DriverTest, PicksALineThatTheListHas) {
    const auto fields = std::make_shared<FieldForm>();
    const Driver reader(*fields);
    reader.pick(fields->list, 1);
    EXPECT_EQ(fields->list.ListIndex, 1);
    EXPECT_EQ(fields->focused(), &fields->list);
    EXPECT_THROW(reader.pick(fields->list, 2), ImpossibleInput);
    fields->list.Enabled = false;
    EXPECT_THROW(reader.pick(fields->list, 0), ImpossibleInput);
}

TEST_F(DriverTest, ReturnAndEscapePressTheButtonsWithTheseRoles) {
    form->ok.Default = true;
    form->ok.Click.connect([this] { events.emplace_back("ok"); });
    user.key(forms::KeyCode::kReturn);
    EXPECT_EQ(events, std::vector<std::string>{"ok"});
    form->ok.Cancel = true;
    user.key(forms::KeyCode::kEscape);
    EXPECT_EQ(events, (std::vector<std::string>{"ok", "ok"}));
    form->ok.Cancel = false;
    user.key(forms::KeyCode::kEscape);
    EXPECT_TRUE(form->isUnloaded());
}

TEST_F(DriverTest, ResizesTheForm) {
    int resizes = 0;
    form->Resize.connect([&] { ++resizes; });
    user.resize(3000, 2500);
    EXPECT_EQ(form->Height, 2500);
    EXPECT_EQ(resizes, 1);
}

}  // namespace
}  // namespace huebrush::memory
