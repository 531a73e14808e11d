// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Error.h"
#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/DataSource.h"
#include "forms/Form.h"
#include "forms/OnShownForm.h"
#include "forms/Runtime.h"

/// The rules of fields, lists and what is bound to records, as tests that hold on every port.
/// Beside what FormsContract.h says, a port has:
///
///   void type(TextBox&, const std::string&);     the user clicks a box behind its text and types
///   void pick(ListBox&, std::int16_t);           the user clicks a line of a list
namespace huebrush::forms::contract {

/// Records in memory. Each is its fields by their names.
class SampleRecords final : public DataSource {
 public:
    using Record = std::map<std::string, std::string>;

    std::string text(const std::string& field) override {
        if (current >= records.size()) return {};
        const Record& record = records[current];
        const auto found = edited.find(field);
        if (found != edited.end()) return found->second;
        return record.contains(field) ? record.at(field) : std::string();
    }
    bool beginEdit(const std::string& field) override {
        events.push_back("edit " + field);
        return current < records.size();
    }
    void setText(const std::string& field, const std::string& text) override {
        events.push_back(field + "=" + text);
        if (refuses) throw base::Error(kRefused, "refused");
        edited[field] = text;
    }

    void moveTo(std::size_t record) {
        update();
        current = record;
        RecordChanged();
    }
    void update() {
        WillLeaveRecord();
        for (const auto& [field, text] : edited) records[current][field] = text;
        edited.clear();
    }
    void cancel() {
        edited.clear();
        RecordChanged();
    }
    std::vector<std::string> takeEvents() { return std::exchange(events, {}); }

    static constexpr std::int32_t kRefused = 3163;
    std::vector<Record> records{{{"Name", "first"}, {"Count", "1"}},
                                {{"Name", "second"}, {"Count", "22"}}};
    std::size_t current = 0;
    Record edited;
    std::vector<std::string> events;
    bool refuses = false;
};

class FieldsForm final : public Form {
 public:
    FieldsForm()
        : Form("FieldsForm"), pictures(*this, [this](std::int16_t index) {
              return std::make_shared<PictureBox>(strip, "pictures(" + std::to_string(index) + ")");
          }) {
        Width = 6000;
        Height = 5000;
        field.Move(100, 100, 2500, 350);
        notes.Move(100, 500, 2500, 1000);
        notes.MultiLine = true;
        ok.Move(100, 1600, 1200, 400);
        close.Move(1400, 1600, 1200, 400);
        count.Move(100, 2100, 1200, 300);
        list.Move(3000, 100, 1500, 1400);
        view.Move(3000, 1600, 2000, 1000);
        strip.Move(0, 0, 2000, 1000);
        pictures[0].Move(0, -300, 1500, 300);
        pictures[0].Visible = false;
        for (const char* const line : {"a", "b", "c"}) list.AddItem(line);
    }

    TextBox field{*this, "field"};
    TextBox notes{*this, "notes"};
    CommandButton ok{*this, "ok"};
    CommandButton close{*this, "close"};
    Label count{*this, "count"};
    ListBox list{*this, "list"};
    PictureBox view{*this, "view"};
    PictureBox strip{view, "strip"};
    ControlArray<PictureBox> pictures;

 protected:
    void unloadElements() override { pictures.clear(); }
};

/// A port with such a form shown.
template <class Port>
class FieldsTest : public OnShownForm<Port, FieldsForm> {
 protected:
    void bind() {
        this->form->field.bind(records, "Name");
        this->form->count.bind(records, "Count");
        this->form->ok.SetFocus();
        this->port.settle();
    }

    std::shared_ptr<SampleRecords> records = std::make_shared<SampleRecords>();
};

template <class Port>
class FieldsContract : public FieldsTest<Port> {};

TYPED_TEST_SUITE_P(FieldsContract);

// Lists.

TYPED_TEST_P(FieldsContract, AListKeepsANumberForEachItemThroughRemovals) {
    auto& list = this->form->list;
    EXPECT_EQ(list.NewIndex(), 2);
    list.setItemData(list.NewIndex(), 77);
    list.AddItem("d");
    list.setItemData(list.NewIndex(), 88);
    EXPECT_EQ(list.ItemData(0), 0);
    list.RemoveItem(1);
    EXPECT_EQ(list.NewIndex(), -1);
    EXPECT_EQ(list.ListCount(), 3);
    EXPECT_EQ(list.List(1), "c");
    EXPECT_EQ(list.ItemData(1), 77);
    EXPECT_EQ(list.ItemData(2), 88);
    list.Clear();
    EXPECT_EQ(list.ListCount(), 0);
}

TYPED_TEST_P(FieldsContract, RemovingTheCurrentItemLeavesNoneCurrentWithoutAClick) {
    auto& list = this->form->list;
    list.ListIndex = std::int16_t{0};
    this->port.settle();
    this->watch(list, &ListBox::Click);
    list.RemoveItem(0);
    this->port.settle();
    EXPECT_EQ(list.ListIndex, -1);
    EXPECT_TRUE(this->takeEvents().empty());
    list.ListIndex = std::int16_t{0};
    EXPECT_EQ(this->takeEvents(), Names{"list"});
}

TYPED_TEST_P(FieldsContract, RemovingAnotherItemKeepsTheCurrentOne) {
    auto& list = this->form->list;
    list.ListIndex = std::int16_t{1};
    this->port.settle();
    this->watch(list, &ListBox::Click);
    list.RemoveItem(0);
    EXPECT_EQ(list.ListIndex, 0);
    list.RemoveItem(1);
    this->port.settle();
    EXPECT_EQ(list.ListIndex, 0);
    EXPECT_EQ(list.List(0), "b");
    EXPECT_TRUE(this->takeEvents().empty());
}

TYPED_TEST_P(FieldsContract, AnItemGetsAnotherTextWithoutAClick) {
    auto& list = this->form->list;
    list.ListIndex = std::int16_t{1};
    this->port.settle();
    this->watch(list, &ListBox::Click);
    list.setList(1, "žluť");
    this->port.settle();
    EXPECT_EQ(list.List(1), "žluť");
    EXPECT_EQ(list.ListIndex, 1);
    EXPECT_TRUE(this->takeEvents().empty());
}

TYPED_TEST_P(FieldsContract, AnItemThatTheListDoesNotHaveIsAnError) {
    auto& list = this->form->list;
    constexpr std::int32_t kInvalid = base::ErrorNumber::kInvalidProcedureCall;
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{3}}) {
        EXPECT_EQ(this->errorOf([&] { static_cast<void>(list.List(index)); }), kInvalid);
        EXPECT_EQ(this->errorOf([&] { list.setList(index, "x"); }), kInvalid);
        EXPECT_EQ(this->errorOf([&] { static_cast<void>(list.ItemData(index)); }), kInvalid);
        EXPECT_EQ(this->errorOf([&] { list.setItemData(index, 1); }), kInvalid);
        EXPECT_EQ(this->errorOf([&] { list.RemoveItem(index); }), kInvalid);
    }
    EXPECT_EQ(list.ListCount(), 3);
}

TYPED_TEST_P(FieldsContract, AUsersPickRaisesClickWithTheLineCurrent) {
    auto& list = this->form->list;
    list.Click.connect(
        [&] { this->events.push_back(list.ListIndex < 0 ? "none" : list.List(list.ListIndex)); });
    this->port.pick(list, 1);
    EXPECT_EQ(this->takeEvents(), Names{"b"});
    list.RemoveItem(1);
    list.AddItem("d");
    this->port.settle();
    this->port.pick(list, 2);
    EXPECT_EQ(this->takeEvents(), Names{"d"});
    list.ListIndex = std::int16_t{-1};
    this->port.settle();
    EXPECT_EQ(this->takeEvents(), Names{"none"});
    EXPECT_EQ(list.ListIndex, -1);
}

// Text boxes.

TYPED_TEST_P(FieldsContract, TypingMovesTheFocusThereAndRaisesChangeWithTheNewText) {
    this->form->field.Text = std::string("ab");
    this->form->ok.SetFocus();
    this->port.settle();
    this->watch(this->form->field, &TextBox::Change);
    this->port.type(this->form->field, "c");
    EXPECT_EQ(this->form->field.Text.get(), "abc");
    EXPECT_EQ(this->takeEvents(), Names{"field"});
    EXPECT_EQ(this->form->focused(), &this->form->field);
    EXPECT_EQ(this->form->field.SelStart(), 3);
}

TYPED_TEST_P(FieldsContract, TextThatTheProgramSetsIsNoTyping) {
    this->watch(this->form->field, &TextBox::Change);
    this->form->field.Text = std::string("žluťoučký kůň");
    this->form->notes.Text = std::string("one\r\ntwo");
    this->port.settle();
    this->port.settle();
    EXPECT_EQ(this->takeEvents(), Names{"field"});
    EXPECT_EQ(this->form->notes.Text.get(), "one\r\ntwo");
    EXPECT_EQ(this->form->field.SelStart(), 0);
}

TYPED_TEST_P(FieldsContract, ALockedBoxTakesNoTyping) {
    this->form->field.Text = std::string("ab");
    this->form->field.Locked = true;
    this->port.settle();
    this->port.type(this->form->field, "c");
    EXPECT_EQ(this->form->field.Text.get(), "ab");
    this->form->field.Text = std::string("x");
    EXPECT_EQ(this->form->field.Text.get(), "x");
}

TYPED_TEST_P(FieldsContract, WhatIsSelectedIsReadAndReplacedInCharacters) {
    auto& field = this->form->field;
    field.Text = std::string("žluť 🖌 kůň");
    field.setSelStart(5);
    EXPECT_EQ(field.SelLength(), 0);
    field.setSelLength(2);
    EXPECT_EQ(field.SelText(), "🖌");
    field.setSelText("a");
    this->port.settle();
    EXPECT_EQ(field.Text.get(), "žluť a kůň");
    EXPECT_EQ(field.SelStart(), 6);
    EXPECT_EQ(field.SelLength(), 0);
}

TYPED_TEST_P(FieldsContract, ASelectionStaysWithinTheText) {
    auto& field = this->form->field;
    field.Text = std::string("abc");
    field.setSelStart(9);
    EXPECT_EQ(field.SelStart(), 3);
    field.setSelStart(1);
    field.setSelLength(std::numeric_limits<std::int32_t>::max());
    this->port.settle();
    EXPECT_EQ(field.SelStart(), 1);
    EXPECT_EQ(field.SelLength(), 2);
    field.Text = std::string("a");
    EXPECT_EQ(field.SelStart(), 0);
    EXPECT_EQ(field.SelLength(), 0);
    constexpr std::int32_t kInvalid = base::ErrorNumber::kInvalidProcedureCall;
    EXPECT_EQ(this->errorOf([&] { field.setSelStart(-1); }), kInvalid);
    EXPECT_EQ(this->errorOf([&] { field.setSelLength(-1); }), kInvalid);
}

// What is bound to records.

TYPED_TEST_P(FieldsContract, BoundControlsShowTheCurrentRecord) {
    this->bind();
    EXPECT_EQ(this->form->field.Text.get(), "first");
    EXPECT_EQ(this->form->count.Caption.get(), "1");
    this->records->moveTo(1);
    this->port.settle();
    EXPECT_EQ(this->form->field.Text.get(), "second");
    EXPECT_EQ(this->form->count.Caption.get(), "22");
    EXPECT_TRUE(this->records->takeEvents().empty()) << "showing a record is no edit";
}

TYPED_TEST_P(FieldsContract, TheFirstChangeBeginsTheEditAndTheTextGoesOverWithTheFocus) {
    this->bind();
    this->port.type(this->form->field, "1");
    EXPECT_EQ(this->records->takeEvents(), Names{"edit Name"});
    this->port.type(this->form->field, "2");
    EXPECT_TRUE(this->records->takeEvents().empty()) << "it has begun";
    this->port.click(this->form->ok);
    EXPECT_EQ(this->records->takeEvents(), Names{"Name=first12"});
    this->form->close.SetFocus();
    EXPECT_TRUE(this->records->takeEvents().empty()) << "it has gone over";
    this->port.type(this->form->field, "3");
    EXPECT_EQ(this->records->takeEvents(), Names{"edit Name"}) << "and the next one begins";
}

TYPED_TEST_P(FieldsContract, TheTextGoesOverBeforeAButtonIsPressed) {
    this->bind();
    this->form->ok.Click.connect([this] { this->records->events.push_back("ok"); });
    this->port.type(this->form->field, "1");
    this->port.click(this->form->ok);
    EXPECT_EQ(this->records->takeEvents(), (Names{"edit Name", "Name=first1", "ok"}));
}

TYPED_TEST_P(FieldsContract, TheTextGoesOverBeforeTheRecordIsWrittenOrLeft) {
    this->bind();
    this->port.type(this->form->field, "1");
    this->records->update();
    EXPECT_EQ(this->records->records[0]["Name"], "first1");
    this->port.type(this->form->field, "2");
    this->records->moveTo(1);
    EXPECT_EQ(this->records->records[0]["Name"], "first12");
    EXPECT_EQ(this->records->records[1]["Name"], "second");
    this->port.settle();
    EXPECT_EQ(this->form->field.Text.get(), "second");
}

TYPED_TEST_P(FieldsContract, ACancelledEditShowsTheRecordAgain) {
    this->bind();
    this->port.type(this->form->field, "1");
    this->records->cancel();
    this->port.settle();
    EXPECT_EQ(this->form->field.Text.get(), "first");
    this->form->ok.SetFocus();
    EXPECT_EQ(this->records->takeEvents(), Names{"edit Name"}) << "nothing went over";
}

TYPED_TEST_P(FieldsContract, WithoutARecordABoundBoxTakesTypingBack) {
    this->records->records.clear();
    this->bind();
    this->port.type(this->form->field, "1");
    this->port.settle();
    EXPECT_EQ(this->form->field.Text.get(), "");
    this->form->ok.SetFocus();
    EXPECT_EQ(this->records->takeEvents(), Names{"edit Name"});
}

TYPED_TEST_P(FieldsContract, ATextThatIsRefusedStopsTheUpdateAndNotTheFocus) {
    this->bind();
    this->port.type(this->form->field, "1");
    this->records->refuses = true;
    this->port.click(this->form->ok);
    EXPECT_EQ(this->form->focused(), &this->form->ok);
    EXPECT_EQ(this->unhandled, std::vector<std::int32_t>{SampleRecords::kRefused});
    EXPECT_EQ(this->errorOf([this] { this->records->update(); }), SampleRecords::kRefused);
    this->records->refuses = false;
    this->records->update();
    EXPECT_EQ(this->records->records[0]["Name"], "first1");
}

TYPED_TEST_P(FieldsContract, TextThatTheProgramSetsInABoundBoxIsAnEditToo) {
    this->bind();
    this->form->field.Text = std::string("new");
    EXPECT_EQ(this->records->takeEvents(), Names{"edit Name"});
    this->records->update();
    EXPECT_EQ(this->records->records[0]["Name"], "new");
}

TYPED_TEST_P(FieldsContract, ABoxThatIsBoundNoMoreKeepsItsText) {
    this->bind();
    this->form->field.unbind();
    this->form->count.unbind();
    this->records->moveTo(1);
    this->port.type(this->form->field, "1");
    EXPECT_EQ(this->form->field.Text.get(), "first1");
    EXPECT_EQ(this->form->count.Caption.get(), "1");
    EXPECT_TRUE(this->records->takeEvents().empty());
}

// Forms.

TYPED_TEST_P(FieldsContract, OneButtonOfAFormIsItsCancelButton) {
    this->form->ok.Cancel = true;
    this->form->ok.Default = true;
    this->form->close.Cancel = true;
    this->port.settle();
    EXPECT_FALSE(this->form->ok.Cancel);
    EXPECT_TRUE(this->form->close.Cancel);
    EXPECT_TRUE(this->form->ok.Default) << "another role";
}

TYPED_TEST_P(FieldsContract, WhetherAFormIsTopMostCanBeAskedAndSet) {
    EXPECT_FALSE(this->form->TopMost);
    this->form->TopMost = true;
    this->port.settle();
    EXPECT_TRUE(this->form->TopMost);
    this->form->TopMost = false;
    EXPECT_FALSE(this->form->TopMost);
}

TYPED_TEST_P(FieldsContract, LoadingAPictureBoxClonesTheTemplateHidden) {
    auto& pictures = this->form->pictures;
    const base::Picture picture(base::PictureFormat::bitmap, {'B', 'M', 1, 2, 3});
    pictures[0].Picture = picture;
    pictures[0].BorderStyle = std::int16_t{1};
    pictures.Load(1);
    EXPECT_FALSE(pictures[1].Visible);
    EXPECT_EQ(pictures[1].Picture.get(), picture);
    EXPECT_EQ(pictures[1].BorderStyle, 1);
    EXPECT_EQ(pictures[1].Width, 1500);
    EXPECT_EQ(pictures[1].Top, -300);
    pictures[1].Move(0, 0, 1500, 300);
    pictures[1].Visible = true;
    pictures[1].Picture = {};
    this->port.settle();
    EXPECT_EQ(pictures[0].Picture.get(), picture);
    pictures.Unload(1);
    this->port.settle();
    EXPECT_EQ(pictures.ubound(), 0);
}

REGISTER_TYPED_TEST_SUITE_P(
    FieldsContract, AListKeepsANumberForEachItemThroughRemovals,
    RemovingTheCurrentItemLeavesNoneCurrentWithoutAClick, RemovingAnotherItemKeepsTheCurrentOne,
    AnItemGetsAnotherTextWithoutAClick, AnItemThatTheListDoesNotHaveIsAnError,
    AUsersPickRaisesClickWithTheLineCurrent, TypingMovesTheFocusThereAndRaisesChangeWithTheNewText,
    TextThatTheProgramSetsIsNoTyping, ALockedBoxTakesNoTyping,
    WhatIsSelectedIsReadAndReplacedInCharacters, ASelectionStaysWithinTheText,
    BoundControlsShowTheCurrentRecord, TheFirstChangeBeginsTheEditAndTheTextGoesOverWithTheFocus,
    TheTextGoesOverBeforeAButtonIsPressed, TheTextGoesOverBeforeTheRecordIsWrittenOrLeft,
    ACancelledEditShowsTheRecordAgain, WithoutARecordABoundBoxTakesTypingBack,
    ATextThatIsRefusedStopsTheUpdateAndNotTheFocus, TextThatTheProgramSetsInABoundBoxIsAnEditToo,
    ABoxThatIsBoundNoMoreKeepsItsText, OneButtonOfAFormIsItsCancelButton,
    WhetherAFormIsTopMostCanBeAskedAndSet, LoadingAPictureBoxClonesTheTemplateHidden);

}  // namespace huebrush::forms::contract
