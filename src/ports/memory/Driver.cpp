// SPDX-License-Identifier: MPL-2.0

#include "ports/memory/Driver.h"

#include <algorithm>
#include <memory>

#include "base/Text.h"
#include "forms/UserControl.h"

namespace huebrush::memory {

namespace {

using base::text;
using forms::Control;
namespace KeyCode = forms::KeyCode;

[[noreturn]] void throwImpossible(const std::string& what) {
    throw ImpossibleInput(what);
}

Control* findIn(Control& from, const std::string& name) {
    if (from.name() == name) return &from;
    for (Control* const child : from.children()) {
        if (Control* const found = findIn(*child, name)) return found;
    }
    return nullptr;
}

/// What print() says of a control beside what all controls have.
struct Description {
    std::string kind;
    std::string caption;
    std::string value;
};

Description describe(const Control& control) {
    if (const auto* button = dynamic_cast<const forms::CommandButton*>(&control)) {
        const char* const cancel = button->Cancel ? "cancel" : "";
        return {"CommandButton", button->Caption, button->Default ? "default" : cancel};
    }
    if (const auto* box = dynamic_cast<const forms::CheckBox*>(&control)) {
        return {"CheckBox", box->Caption, text(box->Value.get())};
    }
    if (const auto* option = dynamic_cast<const forms::OptionButton*>(&control)) {
        return {"OptionButton", option->Caption, option->Value ? "chosen" : ""};
    }
    if (const auto* bar = dynamic_cast<const forms::VScrollBar*>(&control)) {
        return {"VScrollBar", "", text(bar->value(), " of ", bar->Max.get())};
    }
    if (const auto* box = dynamic_cast<const forms::TextBox*>(&control)) {
        return {"TextBox", "", box->Text};
    }
    if (const auto* list = dynamic_cast<const forms::ListBox*>(&control)) {
        return {"ListBox", "", text(list->ListIndex.get(), " of ", list->ListCount())};
    }
    if (const auto* image = dynamic_cast<const forms::Image*>(&control)) {
        return {"Image", "", image->Picture.get().empty() ? "" : "picture"};
    }
    if (const auto* frame = dynamic_cast<const forms::Frame*>(&control)) {
        return {"Frame", frame->Caption, ""};
    }
    if (const auto* label = dynamic_cast<const forms::Label*>(&control)) {
        return {"Label", label->Caption, ""};
    }
    if (const auto* form = dynamic_cast<const forms::Form*>(&control)) {
        return {"Form", form->Caption, form->isUnloaded() ? "unloaded" : ""};
    }
    if (dynamic_cast<const forms::UserControl*>(&control) != nullptr) {
        return {"UserControl", "", ""};
    }
    if (const auto* box = dynamic_cast<const forms::PictureBox*>(&control)) {
        return {"PictureBox", "", box->Picture.get().empty() ? "" : "picture"};
    }
    if (dynamic_cast<const forms::Line*>(&control) != nullptr) return {"Line", "", ""};
    return {"Control", "", ""};
}

std::int64_t whole(double length) {
    return static_cast<std::int64_t>(length);
}

void printInto(const Control& control, const Control* focused, std::size_t depth,
               std::string& out) {
    const Description shown = describe(control);
    out += text(std::string(depth * 2, ' '), shown.kind, " ", control.name());
    if (!shown.caption.empty()) out += text(" \"", shown.caption, "\"");
    if (!shown.value.empty()) out += text(" [", shown.value, "]");
    out += text(" (", whole(control.Left), ", ", whole(control.Top), ", ", whole(control.Width),
                ", ", whole(control.Height), ")");
    if (!control.Visible) out += " hidden";
    if (!control.Enabled) out += " disabled";
    if (&control == focused) out += " focused";
    out += "\n";
    for (const Control* const child : control.children()) {
        printInto(*child, focused, depth + 1, out);
    }
}

std::int16_t codeOf(char16_t character) {
    const bool lower = character >= u'a' && character <= u'z';
    return static_cast<std::int16_t>(lower ? character - u'a' + u'A' : character);
}

/// The character of a key that is no letter's.
char16_t characterOf(std::int16_t code) {
    const bool has = code == KeyCode::kBack || code == KeyCode::kReturn ||
                     code == KeyCode::kEscape || code == KeyCode::kSpace;
    return has ? static_cast<char16_t>(code) : u'\0';
}

/// The user writes over what is selected.
void insert(forms::TextBox& box, const std::u16string& text) {
    std::u16string whole = base::toUtf16(box.Text.get());
    whole.replace(static_cast<std::size_t>(box.SelStart()),
                  static_cast<std::size_t>(box.SelLength()), text);
    box.type(base::toUtf8(whole), {box.SelStart() + static_cast<std::int32_t>(text.size()), 0});
}

}  // namespace

void Driver::requireOpen() const {
    if (form_.isUnloaded()) throwImpossible(text("The form ", form_.name(), " is closed"));
}

void Driver::requireUsable(const Control& control) const {
    requireOpen();
    if (!control.isUsable()) {
        throwImpossible(text("The control ", control.name(), " is ",
                             control.isShown() ? "disabled" : "hidden"));
    }
}

void Driver::click(forms::CommandButton& button) const {
    requireUsable(button);
    button.press();
}

void Driver::click(forms::CheckBox& box) const {
    requireUsable(box);
    box.toggle();
}

void Driver::click(forms::OptionButton& option) const {
    requireUsable(option);
    option.choose();
}

void Driver::click(forms::Image& image) const {
    requireUsable(image);
    form_.handle([&] {
        image.MouseDown(forms::MouseEvent{});
        image.MouseUp(forms::MouseEvent{});
        image.Click();
    });
}

void Driver::click(const std::string& name) const {
    click(find(name));
}

void Driver::click(Control& control) const {
    if (auto* const button = dynamic_cast<forms::CommandButton*>(&control)) return click(*button);
    if (auto* const box = dynamic_cast<forms::CheckBox*>(&control)) return click(*box);
    if (auto* const option = dynamic_cast<forms::OptionButton*>(&control)) return click(*option);
    if (auto* const image = dynamic_cast<forms::Image*>(&control)) return click(*image);
    throwImpossible(text("The control ", control.name(), " is none that a user clicks"));
}

void Driver::moveMouse(forms::Image& image, float x, float y) const {
    requireUsable(image);
    forms::MouseEvent event;
    event.Button = 0;
    event.X = x;
    event.Y = y;
    form_.handle([&] { image.MouseMove(event); });
}

void Driver::pick(forms::ListBox& list, std::int16_t index) const {
    requireUsable(list);
    if (index < 0 || index >= list.ListCount()) {
        throwImpossible(text("The list ", list.name(), " has no line ", index));
    }
    list.pick(index);
}

void Driver::key(std::int16_t code, std::int16_t shift) const {
    requireOpen();
    auto* const field = dynamic_cast<forms::TextBox*>(form_.focused());
    const bool isCheckBox = dynamic_cast<forms::CheckBox*>(form_.focused()) != nullptr;
    const std::shared_ptr<forms::Form> kept = form_.shared_from_this();
    const bool keepsReturn = field != nullptr && field->keepsReturn();
    if (field != nullptr) field->keyDown(code, shift, characterOf(code));
    if (code == KeyCode::kTab) {
        form_.handle([&] { form_.focusNext((shift & forms::Shift::kShift) != 0); });
    } else if (code == KeyCode::kEscape) {
        form_.pressEscape();
    } else if (code == KeyCode::kReturn && !keepsReturn) {
        form_.pressReturn();
    } else if (field != nullptr) {
        press(*field, code, shift);
    } else if (!isCheckBox) {
        throwImpossible("No control that takes keys has the focus");
    }
    if (form_.isUnloaded()) return;
    if (auto* const now = dynamic_cast<forms::TextBox*>(form_.focused())) now->keyUp(code, shift);
    if (auto* const now = dynamic_cast<forms::CheckBox*>(form_.focused())) now->keyUp(code, shift);
}

/// What the keys of a field do.
void Driver::press(forms::TextBox& box, std::int16_t code, std::int16_t shift) {
    const auto length = static_cast<std::int32_t>(base::lengthInCharacters(box.Text.get()));
    const forms::TextSelection& at = box.selection();
    const std::int32_t end = at.start + at.length;
    const auto remove = [&](std::int32_t start, std::int32_t count) {
        std::u16string left = base::toUtf16(box.Text.get());
        left.erase(static_cast<std::size_t>(start), static_cast<std::size_t>(count));
        box.type(base::toUtf8(left), {start, 0});
    };
    switch (code) {
        case KeyCode::kHome:
            return box.select({0, (shift & forms::Shift::kShift) != 0 ? end : 0});
        case KeyCode::kEnd:
            return (shift & forms::Shift::kShift) != 0 ? box.select({at.start, length - at.start})
                                                       : box.select({length, 0});
        case KeyCode::kLeft:
            return box.select({at.length > 0 ? at.start : std::max(0, at.start - 1), 0});
        case KeyCode::kRight:
            return box.select({at.length > 0 ? end : std::min(length, end + 1), 0});
        case KeyCode::kBack:
            if (at.length > 0) return remove(at.start, at.length);
            if (at.start > 0) return remove(at.start - 1, 1);
            return;
        case KeyCode::kDelete:
            if (at.length > 0) return remove(at.start, at.length);
            if (at.start < length) return remove(at.start, 1);
            return;
        case KeyCode::kReturn:
            if (box.MultiLine) insert(box, std::u16string(u"\r\n"));
            return;
        default:
            return;
    }
}

void Driver::typeCharacter(char16_t character) const {
    requireOpen();
    auto* box = dynamic_cast<forms::TextBox*>(form_.focused());
    if (box == nullptr) throwImpossible("No text box has the focus");
    const std::int16_t code = codeOf(character);
    box->keyDown(code, forms::Shift::kNone, character);
    // The handlers may have moved the focus.
    requireOpen();
    box = dynamic_cast<forms::TextBox*>(form_.focused());
    if (box == nullptr) return;
    insert(*box, std::u16string(1, character));
    box = form_.isUnloaded() ? nullptr : dynamic_cast<forms::TextBox*>(form_.focused());
    if (box != nullptr) box->keyUp(code, forms::Shift::kNone);
}

void Driver::type(const std::string& text) const {
    for (const char16_t character : base::toUtf16(text)) {
        if (character == u'\n') {
            key(KeyCode::kReturn);
        } else {
            typeCharacter(character);
        }
    }
}

void Driver::type(forms::TextBox& box, const std::string& text) const {
    requireUsable(box);
    form_.handle([&] { box.SetFocus(); });
    key(KeyCode::kEnd);
    type(text);
}

void Driver::tab() const {
    requireOpen();
    form_.handle([this] { form_.focusNext(); });
}

void Driver::shiftTab() const {
    requireOpen();
    form_.handle([this] { form_.focusNext(true); });
}

void Driver::dragWithoutDrop(const std::function<void()>& grab,
                             const std::vector<Control*>& over) const {
    requireOpen();
    grab();
    if (form_.dragged() == nullptr) throwImpossible("Nothing started to drag");
    Control* previous = nullptr;
    for (Control* const target : over) {
        requireUsable(*target);
        form_.handle([&] {
            if (previous != nullptr) form_.dragOver(*previous, 0, 0, forms::DragState::leave);
            form_.dragOver(*target, 0, 0, forms::DragState::enter);
            form_.dragOver(*target, 0, 0, forms::DragState::over);
        });
        previous = target;
    }
}

void Driver::drop(Control* target) const {
    requireOpen();
    form_.handle([&] { form_.dropAt(target, 0, 0); });
}

void Driver::drag(const std::function<void()>& grab, const std::vector<Control*>& over) const {
    dragWithoutDrop(grab, over);
    drop(over.empty() ? nullptr : over.back());
}

void Driver::scrollTo(forms::VScrollBar& bar, std::int32_t value) const {
    requireUsable(bar);
    bar.scrollTo(value);
}

void Driver::resize(double width, double height) const {
    requireOpen();
    form_.handle([&] {
        form_.Width = width;
        form_.Height = height;
    });
}

void Driver::close() const {
    requireOpen();
    form_.handle([this] { form_.Unload(); });
}

Control& Driver::find(const std::string& name) const {
    Control* const found = findIn(form_, name);
    if (found == nullptr) throwImpossible(text("There is no control ", name));
    return *found;
}

std::string Driver::print() const {
    std::string out;
    printInto(form_, form_.focused(), 0, out);
    return out;
}

}  // namespace huebrush::memory
