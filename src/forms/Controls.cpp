// SPDX-License-Identifier: MPL-2.0

#include "forms/Controls.h"

#include <algorithm>

#include "base/Error.h"
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

}  // namespace

void CommandButton::press() {
    form().handle([this] {
        if (!isUsable()) return;
        SetFocus();
        Click();
    });
}

void CommandButton::propertyChanged(PropertyId id) {
    Control::propertyChanged(id);
    if (id != PropertyId::Default || !Default) return;
    forOthers(form(), *this, true, [](CommandButton& other) { other.Default = false; });
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

void ListBox::AddItem(const std::string& text) {
    std::vector<std::string> list = List;
    list.push_back(text);
    List = std::move(list);
}

void ListBox::Clear() {
    ListIndex.initialize(-1);
    List = std::vector<std::string>{};
}

void ListBox::pick(std::int16_t index) {
    form().handle([&] {
        if (!isUsable()) return;
        SetFocus();
        ListIndex = index;
    });
}

void ListBox::propertyChanged(PropertyId id) {
    if (id == PropertyId::ListIndex &&
        (ListIndex < -1 || ListIndex >= static_cast<std::int64_t>(List.get().size()))) {
        ListIndex.initialize(-1);
        throw base::Error(base::ErrorNumber::kInvalidProcedureCall,
                          "Neplatné volání procedury: seznam takový řádek nemá.");
    }
    Control::propertyChanged(id);
    if (id == PropertyId::ListIndex) Click();
}

void TextBox::type(const std::string& text) {
    form().handle([&] {
        if (!isUsable()) return;
        SetFocus();
        Text = text;
    });
}

void TextBox::propertyChanged(PropertyId id) {
    Control::propertyChanged(id);
    if (id == PropertyId::Text) Change();
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
