// SPDX-License-Identifier: MPL-2.0

#include "forms/Controls.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "forms/Form.h"

namespace huebrush::forms {

namespace {

/// Calls `action` for every other control of the same kind below `from`.
template <class Kind, class Action>
void forOthers(Control& from, const Kind& self, bool deep, const Action& action) {
    for (Control* const child : from.children()) {
        auto* const other = dynamic_cast<Kind*>(child);
        if (other != nullptr && other != &self) action(*other);
        if (deep) forOthers(*child, self, deep, action);
    }
}

/// A role that only one button of a form can have has come to this one.
void takeRole(Property<bool> CommandButton::*role, CommandButton& from) {
    if (!(from.*role).get()) return;
    forOthers(from.form(), from, true, [&](CommandButton& other) { other.*role = false; });
}

[[noreturn]] void throwInvalid(const char* message) {
    throw base::Error(base::ErrorNumber::kInvalidProcedureCall, message);
}

}  // namespace

void Label::bind(std::shared_ptr<DataSource> source, std::string field) {
    binding_.bind(std::move(source), std::move(field));
}

void CommandButton::press() {
    form().handle([this] {
        if (!isUsable()) return;
        SetFocus();
        Click();
    });
}

void CommandButton::propertyChanged(PropertyId id) {
    Control::propertyChanged(id);
    if (id == PropertyId::Default) takeRole(&CommandButton::Default, *this);
    if (id == PropertyId::Cancel) takeRole(&CommandButton::Cancel, *this);
}

void CheckBox::toggle() {
    form().handle([this] {
        if (!isUsable()) return;
        SetFocus();
        Value = Value == CheckValue::kClear ? CheckValue::kTicked : CheckValue::kClear;
    });
}

void CheckBox::keyUp(std::int16_t code, std::int16_t shift) {
    form().handle([&] { KeyUp(code, shift); });
}

void CheckBox::propertyChanged(PropertyId id) {
    Control::propertyChanged(id);
    if (id == PropertyId::Value) Click();
}

void OptionButton::choose() {
    form().handle([this] {
        if (!isUsable()) return;
        SetFocus();
        if (Value) {
            Click();
        } else {
            Value = true;
        }
    });
}

void OptionButton::propertyChanged(PropertyId id) {
    Control::propertyChanged(id);
    if (id != PropertyId::Value) return;
    if (Value) {
        forOthers(*container(), *this, false, [](OptionButton& other) {
            other.Value.initialize(false);
            if (other.peer() != nullptr) other.peer()->changed(PropertyId::Value);
        });
    }
    Click();
}

std::size_t ListBox::place(std::int16_t index) const {
    if (index < 0 || index >= ListCount()) {
        throwInvalid("Neplatné volání procedury: seznam takový řádek nemá.");
    }
    return static_cast<std::size_t>(index);
}

void ListBox::setList(std::int16_t index, const std::string& text) {
    std::string& shown = items_[place(index)].text;
    if (shown == text) return;
    shown = text;
    propertyChanged(PropertyId::List);
}

void ListBox::AddItem(const std::string& text) {
    const std::int16_t index = ListCount();
    if (index == std::numeric_limits<std::int16_t>::max()) base::throwCountOverflow();
    items_.push_back({text});
    newIndex_ = index;
    propertyChanged(PropertyId::List);
}

void ListBox::RemoveItem(std::int16_t index) {
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(place(index)));
    newIndex_ = -1;
    if (ListIndex == index) ListIndex.initialize(-1);
    if (ListIndex > index) ListIndex.initialize(static_cast<std::int16_t>(ListIndex - 1));
    propertyChanged(PropertyId::List);
}

void ListBox::Clear() {
    ListIndex.initialize(-1);
    items_.clear();
    newIndex_ = -1;
    propertyChanged(PropertyId::List);
}

void ListBox::pick(std::int16_t index) {
    form().handle([&] {
        if (!isUsable()) return;
        SetFocus();
        ListIndex = index;
    });
}

void ListBox::propertyChanged(PropertyId id) {
    if (id == PropertyId::ListIndex && (ListIndex < -1 || ListIndex >= ListCount())) {
        const std::int16_t missing = ListIndex;
        ListIndex.initialize(-1);
        static_cast<void>(place(missing));
    }
    Control::propertyChanged(id);
    if (id == PropertyId::ListIndex) Click();
}

std::string TextBox::SelText() const {
    const TextSelection& selected = selection_;
    return base::toUtf8(base::toUtf16(Text.get())
                            .substr(static_cast<std::size_t>(selected.start),
                                    static_cast<std::size_t>(selected.length)));
}

TextSelection TextBox::within(const TextSelection& selection) const {
    const auto whole = static_cast<std::int32_t>(base::lengthInCharacters(Text.get()));
    const std::int32_t start = std::min(selection.start, whole);
    return {start, std::min(selection.length, whole - start)};
}

void TextBox::setSelStart(std::int32_t start) {
    if (start < 0) throwInvalid("Neplatné volání procedury: výběr nemůže začínat před textem.");
    selection_ = within({start, 0});
}

void TextBox::setSelLength(std::int32_t length) {
    if (length < 0) throwInvalid("Neplatné volání procedury: výběr nemůže mít zápornou délku.");
    selection_ = within({SelStart(), length});
}

void TextBox::setSelText(const std::string& text) {
    const auto length = static_cast<std::int32_t>(base::lengthInCharacters(text));
    std::u16string whole = base::toUtf16(Text.get());
    whole.replace(static_cast<std::size_t>(SelStart()), static_cast<std::size_t>(SelLength()),
                  base::toUtf16(text));
    setTextAndCaret(base::toUtf8(whole), {SelStart() + length, 0});
}

void TextBox::setTextAndCaret(const std::string& text, const TextSelection& selection) {
    if (Text.get() == text) {
        selection_ = within(selection);
        return;
    }
    next_ = selection;
    Text = text;
}

void TextBox::bind(std::shared_ptr<DataSource> source, std::string field) {
    binding_.bind(std::move(source), std::move(field));
}

void TextBox::type(const std::string& text) {
    type(text, {static_cast<std::int32_t>(base::lengthInCharacters(text)), 0});
}

void TextBox::type(const std::string& text, const TextSelection& selection) {
    form().handle([&] {
        if (!isUsable() || Locked) return;
        SetFocus();
        setTextAndCaret(text, selection);
    });
}

void TextBox::select(const TextSelection& selection) {
    selection_.initialize(within(selection));
}

void TextBox::keyDown(std::int16_t code, std::int16_t shift, char16_t character) {
    form().handle([&] {
        KeyDown(code, shift);
        if (character != 0) KeyPress(character);
    });
}

void TextBox::keyUp(std::int16_t code, std::int16_t shift) {
    form().handle([&] { KeyUp(code, shift); });
}

void TextBox::focusLeft() {
    // A text that cannot be handed over keeps nobody from leaving.
    form().handle([this] { binding_.handOver(); });
}

void TextBox::propertyChanged(PropertyId id) {
    if (id == PropertyId::Text) selection_ = within(std::exchange(next_, {}));
    Control::propertyChanged(id);
    if (id != PropertyId::Text) return;
    binding_.textChanged();
    Change();
}

std::int32_t VScrollBar::clamped(std::int32_t value) const {
    return std::clamp(value, Min.get(), std::max(Min.get(), Max.get()));
}

void VScrollBar::setValue(std::int32_t value) {
    value_ = clamped(value);
}

void VScrollBar::scrollTo(std::int32_t value) {
    form().handle([&] {
        if (isUsable()) setValue(value);
    });
}

void VScrollBar::propertyChanged(PropertyId id) {
    Control::propertyChanged(id);
    if (id == PropertyId::Value) Change();
    if (id == PropertyId::Min || id == PropertyId::Max) setValue(value_);
}

}  // namespace huebrush::forms
