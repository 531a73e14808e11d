// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "forms/FieldsContract.h"

/// The rules of the keyboard and of modal forms, as tests that hold on every port with a user at
/// the screen. Beside what FieldsContract.h says, a port has:
///
///   void key(Form&, const std::string&);     the user presses a key of a name in a form: a small
///   letter,
///                                     "Return", "Escape", "Tab", "BackSpace", "Left", "End"
///   void whileModal(std::function<void()>);  what happens while the next modal form is open
namespace huebrush::forms::contract {

template <class Port>
class KeysContract : public FieldsTest<Port> {
 protected:
    void keys(const std::vector<std::string>& names) {
        for (const std::string& each : names) this->port.key(*this->form, each);
    }
    void focus(Control& control) {
        control.SetFocus();
        this->port.settle();
    }
    void watchKeys(TextBox& box) {
        box.KeyDown.connect([this](std::int16_t code, std::int16_t) {
            this->events.push_back("down " + std::to_string(code));
        });
        box.KeyPress.connect([this](char16_t character) {
            this->events.push_back("press " + std::to_string(static_cast<int>(character)));
        });
        box.KeyUp.connect([this](std::int16_t code, std::int16_t) {
            this->events.push_back("up " + std::to_string(code));
        });
        box.Change.connect([this, &box] { this->events.push_back(box.Text.get()); });
    }
};

TYPED_TEST_SUITE_P(KeysContract);

TYPED_TEST_P(KeysContract, ATextBoxHearsTheKeysAroundTheChangeThatTheyMake) {
    this->watchKeys(this->form->field);
    this->focus(this->form->field);
    this->keys({"k"});
    EXPECT_EQ(this->takeEvents(), (Names{"down 75", "press 107", "k", "up 75"}));
    this->keys({"Left"});
    EXPECT_EQ(this->takeEvents(), (Names{"down 37", "up 37"}));
}

TYPED_TEST_P(KeysContract, ReturnIsKeptByABoxThatListensAndGoesToTheDefaultButtonFromAnother) {
    this->form->ok.Default = true;
    this->watch(this->form->ok, &CommandButton::Click);
    this->form->field.KeyPress.connect([this](char16_t character) {
        if (character == KeyCode::kReturn) this->form->notes.SetFocus();
    });
    this->focus(this->form->field);
    this->keys({"k", "Return"});
    EXPECT_EQ(this->form->focused(), &this->form->notes);
    EXPECT_TRUE(this->takeEvents().empty());
    this->form->field.KeyPress = {};
    this->focus(this->form->field);
    this->keys({"Return"});
    EXPECT_EQ(this->takeEvents(), Names{"ok"});
}

TYPED_TEST_P(KeysContract, ReturnEndsALineOfABoxWithSeveral) {
    this->form->ok.Default = true;
    this->watch(this->form->ok, &CommandButton::Click);
    this->focus(this->form->notes);
    this->keys({"a", "Return", "b"});
    EXPECT_EQ(this->form->notes.Text.get(), "a\r\nb");
    EXPECT_TRUE(this->takeEvents().empty());
}

TYPED_TEST_P(KeysContract, EscapePressesTheCancelButtonFromEverywhere) {
    this->form->close.Cancel = true;
    this->watch(this->form->close, &CommandButton::Click);
    for (Control* const from : std::vector<Control*>{&this->form->field, &this->form->notes,
                                                     &this->form->ok, &this->form->list}) {
        this->focus(*from);
        this->keys({"Escape"});
        EXPECT_EQ(this->takeEvents(), Names{"close"}) << from->name();
        EXPECT_EQ(this->form->focused(), &this->form->close);
    }
    this->form->close.Enabled = false;
    this->focus(this->form->field);
    this->keys({"Escape"});
    EXPECT_TRUE(this->takeEvents().empty());
    EXPECT_FALSE(this->form->isUnloaded()) << "a disabled one does not let it end the form";
}

TYPED_TEST_P(KeysContract, EscapeEndsAFormWithoutACancelButton) {
    this->focus(this->form->field);
    this->keys({"Escape"});
    EXPECT_TRUE(this->form->isUnloaded());
}

TYPED_TEST_P(KeysContract, TypingReplacesWhatTheProgramHasSelected) {
    this->form->field.Text = std::string("žluťoučký kůň");
    this->focus(this->form->field);
    this->form->field.setSelStart(0);
    this->form->field.setSelLength(std::numeric_limits<std::int32_t>::max());
    this->port.settle();
    this->keys({"a", "b"});
    EXPECT_EQ(this->form->field.Text.get(), "ab");
}

TYPED_TEST_P(KeysContract, ASelectionCountsBothCharactersOfALinesEnd) {
    this->form->notes.Text = std::string("a\r\nbc");
    this->focus(this->form->notes);
    this->form->notes.setSelStart(3);
    this->form->notes.setSelLength(1);
    this->port.settle();
    this->keys({"x"});
    EXPECT_EQ(this->form->notes.Text.get(), "a\r\nxc");
    EXPECT_EQ(this->form->notes.SelStart(), 4);
}

TYPED_TEST_P(KeysContract, TheProgramSeesWhereTheUserHasPutTheCaret) {
    this->form->field.Text = std::string("abc");
    this->focus(this->form->field);
    this->keys({"End", "Left"});
    this->form->ok.Click.connect([this] { this->form->field.setSelText("-"); });
    this->port.click(this->form->ok);
    EXPECT_EQ(this->form->field.Text.get(), "ab-c");
}

TYPED_TEST_P(KeysContract, TheFirstKeyInABoundBoxBeginsTheEdit) {
    this->bind();
    this->focus(this->form->field);
    this->keys({"End"});
    EXPECT_TRUE(this->records->takeEvents().empty());
    this->keys({"BackSpace", "x"});
    EXPECT_EQ(this->records->takeEvents(), Names{"edit Name"});
    this->keys({"Tab"});
    EXPECT_EQ(this->records->takeEvents(), Names{"Name=firsx"});
}

TYPED_TEST_P(KeysContract, EscapeCancelsTheEditOfABoundBox) {
    this->bind();
    this->form->close.Cancel = true;
    this->form->close.Click.connect([this] { this->records->cancel(); });
    this->focus(this->form->field);
    this->keys({"x"});
    EXPECT_EQ(this->form->field.Text.get(), "xfirst");
    this->keys({"Escape"});
    EXPECT_EQ(this->records->takeEvents(), (Names{"edit Name", "Name=xfirst"}));
    EXPECT_EQ(this->form->field.Text.get(), "first");
    EXPECT_EQ(this->records->text("Name"), "first");
}

TYPED_TEST_P(KeysContract, AModalFormOverAnotherReturnsWhenItIsUnloaded) {
    auto modal = std::make_shared<FieldsForm>();
    this->form->field.SetFocus();
    this->port.settle();
    this->form->field.LostFocus.connect([this] { this->events.push_back("lost"); });
    this->port.whileModal([&] {
        this->events.push_back("open");
        this->port.answerNextBox(MsgBoxResult::ok);
        EXPECT_EQ(Runtime::current().MsgBox("text", MsgBoxStyle::kInformation, "title"),
                  MsgBoxResult::ok);
        EXPECT_FALSE(modal->isUnloaded());
        modal->Unload();
    });
    modal->Show(true);
    this->events.push_back("closed");
    this->port.settle();
    EXPECT_EQ(this->takeEvents(), (Names{"open", "closed"}));
    EXPECT_EQ(this->form->focused(), &this->form->field);
    EXPECT_TRUE(modal->isUnloaded());
    EXPECT_FALSE(this->form->isUnloaded());
}

REGISTER_TYPED_TEST_SUITE_P(KeysContract, ATextBoxHearsTheKeysAroundTheChangeThatTheyMake,
                            ReturnIsKeptByABoxThatListensAndGoesToTheDefaultButtonFromAnother,
                            ReturnEndsALineOfABoxWithSeveral,
                            EscapePressesTheCancelButtonFromEverywhere,
                            EscapeEndsAFormWithoutACancelButton,
                            TypingReplacesWhatTheProgramHasSelected,
                            ASelectionCountsBothCharactersOfALinesEnd,
                            TheProgramSeesWhereTheUserHasPutTheCaret,
                            TheFirstKeyInABoundBoxBeginsTheEdit, EscapeCancelsTheEditOfABoundBox,
                            AModalFormOverAnotherReturnsWhenItIsUnloaded);

}  // namespace huebrush::forms::contract
