// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Bitmap.h"
#include "base/Error.h"
#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/OnShownForm.h"
#include "forms/PopupMenu.h"
#include "forms/Runtime.h"
#include "forms/UserControl.h"

/// The rules of the controls, as tests that hold on every port. A port instantiates them with a
/// type that stands for it:
///
///   Runtime& runtime();                          what the forms run on, for the port's lifetime
///   void settle();                               lets the screen catch up with the controls
///   void click(Control&);                        the user's click on a button, box or option
///   void closeWindow(Form&);                     the user closes the form's window
///   void deactivate(Form&);                      another window becomes the active one
///   void activate(Form&);                        the form's window becomes the active one again
///   void inNextPump(std::function<void()>);      what happens while DoEvents lets events run
///   void answerNextBox(MsgBoxResult);            how the user leaves the next box
///   void pickInNextMenu(std::string caption);    what the user picks in the next menu; "" nothing;
///                                                for MenuContract.h only
namespace huebrush::forms::contract {

/// A row with one part that takes the focus.
class Row final : public UserControl {
 public:
    Row(Control& container, std::string name) : UserControl(container, std::move(name)) {
        box.Move(10, 10, 300, 300);
    }
    CheckBox box{*this, "box"};
    Property<std::string> Caption{*this, PropertyId::Caption};

    void WriteProperties(PropertyBag& bag) const override {
        bag.WriteProperty("Caption", Caption.get(), std::string());
    }
    void ReadProperties(const PropertyBag& bag) override {
        Caption = bag.ReadProperty("Caption", std::string());
    }
};

class SampleForm final : public Form {
 public:
    SampleForm()
        : Form("SampleForm"), rows(*this, [this](std::int16_t index) {
              return std::make_shared<Row>(area, "rows(" + std::to_string(index) + ")");
          }) {
        Width = 6000;
        Height = 5000;
        first.Move(100, 100, 1200, 400);
        second.Move(1400, 100, 1200, 400);
        box.Move(100, 600, 1200, 300);
        frame.Move(100, 1000, 3000, 900);
        one.Move(100, 100, 1200, 300);
        two.Move(100, 450, 1200, 300);
        list.Move(3300, 1000, 1500, 900);
        bar.Move(5500, 100, 255, 3000);
        image.Move(2700, 100, 400, 400);
        area.Move(100, 2000, 5000, 2000);
        rows[0].Move(50, -630, 4455, 630);
        rows[0].Caption = std::string("template");
        rows[0].Visible = false;
        list.AddItem("a");
        list.AddItem("b");
    }

    CommandButton first{*this, "first"};
    CommandButton second{*this, "second"};
    CheckBox box{*this, "box"};
    Frame frame{*this, "frame"};
    OptionButton one{frame, "one"};
    OptionButton two{frame, "two"};
    ListBox list{*this, "list"};
    VScrollBar bar{*this, "bar"};
    Image image{*this, "image"};
    PictureBox area{*this, "area"};
    ControlArray<Row> rows;

 protected:
    void unloadElements() override { rows.clear(); }
};

template <class Port>
class FormsContract : public OnShownForm<Port, SampleForm> {
 protected:
    /// Notes that a control gains and loses the focus.
    void watchFocus(Control& control) {
        control.GotFocus.connect(
            [this, &control] { this->events.push_back("+" + control.name()); });
        control.LostFocus.connect(
            [this, &control] { this->events.push_back("-" + control.name()); });
    }
    Row& loadRow(std::int16_t index) {
        auto& rows = this->form->rows;
        rows.Load(index);
        rows[index].Top = 630.0 * (index - 1);
        rows[index].Visible = true;
        this->port.settle();
        return rows[index];
    }
};

TYPED_TEST_SUITE_P(FormsContract);

TYPED_TEST_P(FormsContract, SettingACheckBoxRaisesClickExactlyWhenItChangesAtOnce) {
    auto& box = this->form->box;
    this->watch(box, &CheckBox::Click);
    box.Value = CheckValue::kTicked;
    EXPECT_EQ(this->takeEvents().size(), 1U);
    box.Value = CheckValue::kTicked;
    EXPECT_TRUE(this->takeEvents().empty());
    box.Value = CheckValue::kGrey;
    EXPECT_EQ(this->takeEvents().size(), 1U);
    this->port.settle();
    EXPECT_TRUE(this->takeEvents().empty());
    EXPECT_EQ(box.Value, CheckValue::kGrey);
}

TYPED_TEST_P(FormsContract, SettingAnOptionRaisesItsClickAndClearsTheOthersSilently) {
    this->watch(this->form->one, &OptionButton::Click);
    this->watch(this->form->two, &OptionButton::Click);
    this->form->one.Value = true;
    EXPECT_EQ(this->takeEvents(), (Names{"one"}));
    this->form->two.Value = true;
    EXPECT_EQ(this->takeEvents(), (Names{"two"}));
    EXPECT_FALSE(this->form->one.Value);
    this->form->two.Value = true;
    this->port.settle();
    EXPECT_TRUE(this->takeEvents().empty());
}

TYPED_TEST_P(FormsContract, SettingAListIndexRaisesClickExactlyWhenItChanges) {
    auto& list = this->form->list;
    this->watch(list, &ListBox::Click);
    list.ListIndex = std::int16_t{1};
    list.ListIndex = std::int16_t{1};
    this->port.settle();
    EXPECT_EQ(this->takeEvents().size(), 1U);
    EXPECT_EQ(this->errorOf([&] { list.ListIndex = std::int16_t{2}; }),
              base::ErrorNumber::kInvalidProcedureCall);
}

TYPED_TEST_P(FormsContract, SettingAScrollBarRaisesChangeExactlyWhenItChanges) {
    auto& bar = this->form->bar;
    this->watch(bar, &VScrollBar::Change);
    bar.setValue(100);
    bar.setValue(100);
    this->port.settle();
    EXPECT_EQ(this->takeEvents().size(), 1U);
}

TYPED_TEST_P(FormsContract, AScrollBarHoldsThirtyTwoBitsBetweenItsBounds) {
    auto& bar = this->form->bar;
    bar.Max = 20'000'000;
    bar.setValue(19'000'000);
    this->port.settle();
    EXPECT_EQ(bar.value(), 19'000'000);
    bar.setValue(-5);
    EXPECT_EQ(bar.value(), 0);
    bar.setValue(30'000'000);
    EXPECT_EQ(bar.value(), 20'000'000);
    this->watch(bar, &VScrollBar::Change);
    bar.Max = 1000;
    EXPECT_EQ(bar.value(), 1000);
    EXPECT_EQ(this->takeEvents().size(), 1U);
}

TYPED_TEST_P(FormsContract, AUsersClickTakesABoxFromClearToTickedAndFromAllElseToClear) {
    auto& box = this->form->box;
    this->port.click(box);
    EXPECT_EQ(box.Value, CheckValue::kTicked);
    this->port.click(box);
    EXPECT_EQ(box.Value, CheckValue::kClear);
    box.Value = CheckValue::kGrey;
    this->port.settle();
    this->port.click(box);
    EXPECT_EQ(box.Value, CheckValue::kClear);
}

TYPED_TEST_P(FormsContract, AUsersClickOnTheChosenOptionRaisesClickAgain) {
    this->watch(this->form->one, &OptionButton::Click);
    this->port.click(this->form->one);
    this->port.click(this->form->one);
    EXPECT_EQ(this->takeEvents().size(), 2U);
    EXPECT_TRUE(this->form->one.Value);
}

TYPED_TEST_P(FormsContract, AClickMovesTheFocusToTheControlBeforeItsEvent) {
    this->form->second.SetFocus();
    this->watchFocus(this->form->first);
    this->watchFocus(this->form->second);
    this->watch(this->form->first, &CommandButton::Click);
    this->port.click(this->form->first);
    EXPECT_EQ(this->takeEvents(), (Names{"-second", "+first", "first"}));
}

TYPED_TEST_P(FormsContract, HidingTheFocusedControlMovesTheFocusOn) {
    this->form->first.SetFocus();
    this->watchFocus(this->form->first);
    this->watchFocus(this->form->second);
    this->form->first.Visible = false;
    EXPECT_EQ(this->takeEvents(), (Names{"-first", "+second"}));
    EXPECT_EQ(this->form->focused(), &this->form->second);
}

TYPED_TEST_P(FormsContract, DisablingTheFocusedControlOrItsContainerMovesTheFocusOn) {
    this->form->first.SetFocus();
    this->form->first.Enabled = false;
    EXPECT_EQ(this->form->focused(), &this->form->second);
    this->form->one.SetFocus();
    this->watchFocus(this->form->one);
    this->form->frame.Enabled = false;
    EXPECT_EQ(this->takeEvents(), (Names{"-one"}));
    EXPECT_EQ(this->form->focused(), &this->form->list);
}

TYPED_TEST_P(FormsContract, UnloadingTheFocusedRowMovesTheFocusOn) {
    this->loadRow(1);
    Row& last = this->loadRow(2);
    last.SetFocus();
    this->watchFocus(last);
    this->form->rows.Unload(2);
    EXPECT_EQ(this->takeEvents(), (Names{"-rows(2)"}));
    ASSERT_NE(this->form->focused(), nullptr);
    EXPECT_TRUE(this->form->focused()->isUsable());
}

TYPED_TEST_P(FormsContract, SetFocusOnAHiddenOrDisabledControlIsAnError) {
    this->form->second.SetFocus();
    this->form->first.Visible = false;
    this->form->frame.Enabled = false;
    for (Control* const control :
         std::vector<Control*>{&this->form->first, &this->form->one, &this->form->image}) {
        EXPECT_EQ(this->errorOf([&] { control->SetFocus(); }),
                  base::ErrorNumber::kInvalidProcedureCall)
            << control->name();
    }
    EXPECT_EQ(this->form->focused(), &this->form->second);
}

TYPED_TEST_P(FormsContract, TouchingAnUnloadedArrayElementIsAnError) {
    auto& rows = this->form->rows;
    EXPECT_EQ(this->errorOf([&] { rows[1].Caption = std::string("x"); }),
              base::ErrorNumber::kNoSuchControl);
    rows.Load(1);
    rows.Unload(1);
    EXPECT_EQ(this->errorOf([&] { rows[1].Caption = std::string("x"); }),
              base::ErrorNumber::kNoSuchControl);
    EXPECT_EQ(this->errorOf([&] { static_cast<void>(rows[-1]); }),
              base::ErrorNumber::kNoSuchControl);
}

TYPED_TEST_P(FormsContract, ArrayElementsAreLoadedAndUnloadedAtTheEndOnly) {
    auto& rows = this->form->rows;
    EXPECT_EQ(this->errorOf([&] { rows.Load(2); }), base::ErrorNumber::kNoSuchControl);
    rows.Load(1);
    rows.Load(2);
    EXPECT_EQ(this->errorOf([&] { rows.Load(2); }), base::ErrorNumber::kNoSuchControl);
    EXPECT_EQ(this->errorOf([&] { rows.Unload(1); }), base::ErrorNumber::kNoSuchControl);
    rows.Unload(2);
    rows.Unload(1);
    EXPECT_EQ(this->errorOf([&] { rows.Unload(0); }), base::ErrorNumber::kNoSuchControl);
    EXPECT_EQ(rows.ubound(), 0);
}

TYPED_TEST_P(FormsContract, LoadingAnArrayElementClonesTheTemplateHidden) {
    auto& rows = this->form->rows;
    rows.Load(1);
    EXPECT_FALSE(rows[1].Visible);
    EXPECT_EQ(rows[1].Caption.get(), "template");
    EXPECT_EQ(rows[1].Left, 50);
    EXPECT_EQ(rows[1].Top, -630);
    EXPECT_EQ(rows[1].Width, 4455);
    EXPECT_EQ(rows[1].Height, 630);
}

TYPED_TEST_P(FormsContract, AUserControlHasTheFocusWhileOneOfItsPartsHasIt) {
    Row& row = this->loadRow(1);
    this->watchFocus(row);
    row.SetFocus();
    EXPECT_EQ(this->form->focused(), &row.box);
    EXPECT_EQ(this->takeEvents(), (Names{"+rows(1)"}));
    this->form->first.SetFocus();
    EXPECT_EQ(this->takeEvents(), (Names{"-rows(1)"}));
}

TYPED_TEST_P(FormsContract, AMessageBoxIsNoLossOfTheFocus) {
    this->form->first.SetFocus();
    this->watchFocus(this->form->first);
    this->port.answerNextBox(MsgBoxResult::ok);
    EXPECT_EQ(Runtime::current().MsgBox("text", MsgBoxStyle::kInformation, "title"),
              MsgBoxResult::ok);
    this->port.settle();
    EXPECT_TRUE(this->takeEvents().empty());
    EXPECT_EQ(this->form->focused(), &this->form->first);
}

TYPED_TEST_P(FormsContract, LosingTheWindowsActivationIsNoLossOfTheFocus) {
    Row& row = this->loadRow(1);
    row.SetFocus();
    this->port.settle();
    this->watchFocus(row);
    this->port.deactivate(*this->form);
    EXPECT_TRUE(this->takeEvents().empty());
    EXPECT_EQ(this->form->focused(), &row.box);
    this->port.activate(*this->form);
    EXPECT_TRUE(this->takeEvents().empty());
    EXPECT_EQ(this->form->focused(), &row.box);
}

TYPED_TEST_P(FormsContract, AnImageTakesNoFocus) {
    this->form->first.SetFocus();
    this->watchFocus(this->form->first);
    this->watch(this->form->image, &Image::Click);
    this->port.click(this->form->image);
    EXPECT_EQ(this->takeEvents(), (Names{"image"}));
}

TYPED_TEST_P(FormsContract, ThePumpMayCloseTheFormUnderARunningHandler) {
    this->loadRow(1);
    const std::weak_ptr<SampleForm> watched = this->form;
    SampleForm* const form = this->form.get();
    Names seen;
    form->Unloaded.connect([&] { seen.push_back("unloaded"); });
    form->first.Click.connect([&, form] {
        this->port.inNextPump([&] {
            this->port.closeWindow(*form);
            this->form.reset();
        });
        Runtime::current().DoEvents();
        seen.push_back(form->isUnloaded() ? "gone" : "still there");
        EXPECT_EQ(form->rows.ubound(), 0);
        EXPECT_FALSE(watched.expired());
        form->Caption = std::string("late");
        form->rows[1].Caption = std::string("too late");
    });
    this->port.click(form->first);
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(seen, (Names{"unloaded", "gone"}));
    EXPECT_EQ(this->unhandled, std::vector<std::int32_t>{base::ErrorNumber::kUnloaded});
}

TYPED_TEST_P(FormsContract, ARowUnloadedByItsOwnHandlerLivesUntilTheHandlerReturns) {
    Row& row = this->loadRow(1);
    row.box.Click.connect([this, &row] {
        this->form->rows.Unload(1);
        row.Caption = std::string("still usable");
        this->events.push_back(row.Caption);
    });
    this->port.click(row.box);
    EXPECT_EQ(this->takeEvents(), (Names{"still usable"}));
    EXPECT_TRUE(this->unhandled.empty());
}

TYPED_TEST_P(FormsContract, WhatAHandlerThrowsGoesToTheUnhandledErrorsAndNoFurther) {
    this->form->first.Click.connect([] { throw base::Error(91, "x"); });
    this->port.click(this->form->first);
    EXPECT_EQ(this->unhandled, std::vector<std::int32_t>{91});
}

TYPED_TEST_P(FormsContract, UnloadingTwiceIsUnloadingOnce) {
    int unloaded = 0;
    this->form->Unloaded.connect([&] { ++unloaded; });
    this->port.closeWindow(*this->form);
    this->form->Unload();
    EXPECT_EQ(unloaded, 1);
}

TYPED_TEST_P(FormsContract, OneButtonOfAFormIsItsDefault) {
    this->form->first.Default = true;
    this->form->second.Default = true;
    this->port.settle();
    EXPECT_FALSE(this->form->first.Default);
    EXPECT_TRUE(this->form->second.Default);
}

TYPED_TEST_P(FormsContract, TheClipboardGivesBackThePictureUntilItIsCleared) {
    Clipboard& clipboard = Runtime::current().Clipboard();
    const base::Picture picture(base::PictureFormat::bitmap,
                                base::bitmapFileIn(base::rgb(10, 20, 30), 4, 3));
    const auto pixelsOf = [](const base::Picture& bitmap) {
        base::Pixels pixels = base::decodeBitmap(bitmap.bytes());
        base::ignoreUnusedAlpha(pixels);
        return pixels;
    };
    clipboard.SetData(picture);
    const base::Picture back = clipboard.GetData();
    ASSERT_EQ(back.format(), base::PictureFormat::bitmap);
    EXPECT_TRUE(pixelsOf(back) == pixelsOf(picture));
    clipboard.Clear();
    EXPECT_TRUE(clipboard.GetData().empty());
}

TYPED_TEST_P(FormsContract, SettingsAreKeptByApplicationSectionAndKey) {
    Settings& settings = Runtime::current().Settings();
    settings.SaveSetting("HuebrushContract", "Section", "Key", "žluť");
    EXPECT_EQ(settings.GetSetting("HuebrushContract", "Section", "Key"), "žluť");
    EXPECT_FALSE(settings.GetSetting("HuebrushContract", "Section", "Other"));
    settings.SaveSetting("HuebrushContract", "Section", "Key", "");
    EXPECT_EQ(settings.GetSetting("HuebrushContract", "Section", "Key"), "");
}

REGISTER_TYPED_TEST_SUITE_P(
    FormsContract, SettingACheckBoxRaisesClickExactlyWhenItChangesAtOnce,
    SettingAnOptionRaisesItsClickAndClearsTheOthersSilently,
    SettingAListIndexRaisesClickExactlyWhenItChanges,
    SettingAScrollBarRaisesChangeExactlyWhenItChanges, AScrollBarHoldsThirtyTwoBitsBetweenItsBounds,
    AUsersClickTakesABoxFromClearToTickedAndFromAllElseToClear,
    AUsersClickOnTheChosenOptionRaisesClickAgain, AClickMovesTheFocusToTheControlBeforeItsEvent,
    HidingTheFocusedControlMovesTheFocusOn, DisablingTheFocusedControlOrItsContainerMovesTheFocusOn,
    UnloadingTheFocusedRowMovesTheFocusOn, SetFocusOnAHiddenOrDisabledControlIsAnError,
    TouchingAnUnloadedArrayElementIsAnError, ArrayElementsAreLoadedAndUnloadedAtTheEndOnly,
    LoadingAnArrayElementClonesTheTemplateHidden, AUserControlHasTheFocusWhileOneOfItsPartsHasIt,
    AMessageBoxIsNoLossOfTheFocus, LosingTheWindowsActivationIsNoLossOfTheFocus,
    AnImageTakesNoFocus, ThePumpMayCloseTheFormUnderARunningHandler,
    ARowUnloadedByItsOwnHandlerLivesUntilTheHandlerReturns,
    WhatAHandlerThrowsGoesToTheUnhandledErrorsAndNoFurther, UnloadingTwiceIsUnloadingOnce,
    OneButtonOfAFormIsItsDefault, TheClipboardGivesBackThePictureUntilItIsCleared,
    SettingsAreKeptByApplicationSectionAndKey);

}  // namespace huebrush::forms::contract
