// SPDX-License-Identifier: MPL-2.0

#include "view/FormKeys.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "forms/Controls.h"
#include "view/AccessKeys.h"

namespace huebrush::view {

namespace KeyCode = forms::KeyCode;
namespace Shift = forms::Shift;

namespace {

FormAction moveFocus(bool backwards) {
    return [backwards](forms::Form& form) { form.handle([&] { form.focusNext(backwards); }); };
}

/// Return is the form's, or else the field's: that of one with several lines is its own.
FormAction actionOfReturn(const forms::Form& form) {
    const auto* const field = dynamic_cast<const forms::TextBox*>(form.focused());
    if (field == nullptr || !field->keepsReturn()) {
        return [](forms::Form& at) { at.pressReturn(); };
    }
    if (field->MultiLine) return {};
    return [](forms::Form&) {};
}

/// Chooses the option beside the one that has the focus.
void chooseBeside(forms::OptionButton& option, bool backwards) {
    std::vector<forms::OptionButton*> options;
    for (forms::Control* const child : option.container()->children()) {
        auto* const other = dynamic_cast<forms::OptionButton*>(child);
        if (other != nullptr && other->isUsable()) options.push_back(other);
    }
    if (backwards) std::ranges::reverse(options);
    const auto at = std::ranges::find(options, &option);
    if (at == options.end()) return;
    (std::next(at) == options.end() ? options.front() : *std::next(at))->choose();
}

FormAction arrow(bool backwards) {
    return [backwards](forms::Form& form) {
        if (auto* const option = dynamic_cast<forms::OptionButton*>(form.focused())) {
            chooseBeside(*option, backwards);
        } else {
            moveFocus(backwards)(form);
        }
    };
}

/// Whether the arrow keys and some others have no meaning in the control itself.
bool isButtonLike(const forms::Control* control) {
    return dynamic_cast<const forms::CommandButton*>(control) != nullptr ||
           dynamic_cast<const forms::CheckBox*>(control) != nullptr ||
           dynamic_cast<const forms::OptionButton*>(control) != nullptr;
}

FormAction actionOfArrow(const forms::Form& form, const Key& key) {
    if (!isButtonLike(form.focused())) return {};
    if (key.shift != Shift::kNone) return [](forms::Form&) {};
    return arrow(key.code == KeyCode::kUp || key.code == KeyCode::kLeft);
}

FormAction actionOfLetter(forms::Form& form, char letter) {
    if (letter == '\0' || controlOfAccessKey(form, letter) == nullptr) return {};
    return [letter](forms::Form& called) {
        if (forms::Control* const control = controlOfAccessKey(called, letter)) {
            callByAccessKey(*control);
        }
    };
}

/// What the context-menu key does, for keyboards that have none.
FormAction openContextMenu(const forms::Form& form) {
    if (dynamic_cast<const forms::CheckBox*>(form.focused()) == nullptr) return {};
    return [](forms::Form& at) {
        if (auto* const box = dynamic_cast<forms::CheckBox*>(at.focused())) {
            box->keyUp(KeyCode::kContextMenu, Shift::kNone);
        }
    };
}

FormAction cancel(const forms::Form& form) {
    if (form.dragged() != nullptr) return [](forms::Form&) {};
    // A form that stays open uses up the key, too: it would close the office's dialog.
    return [](forms::Form& escaped) { escaped.pressEscape(); };
}

/// Whether check boxes get the release of a key.
bool isHeardByBoxes(std::int16_t code) {
    switch (code) {
        case KeyCode::kBack:
        case KeyCode::kAlt:
        case KeyCode::kUp:
        case KeyCode::kDown:
        case KeyCode::kDelete:
        case KeyCode::kContextMenu:
        case KeyCode::kSpace:
            return true;
        default:
            return false;
    }
}

}  // namespace

FormAction actionOfKey(forms::Form& form, const Key& key) {
    switch (key.code) {
        case KeyCode::kTab:
            if ((key.shift & ~Shift::kShift) != 0) return {};
            return moveFocus((key.shift & Shift::kShift) != 0);
        case KeyCode::kReturn:
            return actionOfReturn(form);
        case KeyCode::kEscape:
            return cancel(form);
        case KeyCode::kF10:
            if (key.shift != Shift::kShift) break;
            return openContextMenu(form);
        case KeyCode::kUp:
        case KeyCode::kDown:
        case KeyCode::kLeft:
        case KeyCode::kRight:
            return actionOfArrow(form, key);
        default:
            break;
    }
    if (key.shift == Shift::kAlt) return actionOfLetter(form, letterOf(key));
    // A key that a box or button has no use for would go to the windows around it.
    if (isButtonLike(form.focused()) && key.code != KeyCode::kSpace && key.shift == Shift::kNone) {
        return [](forms::Form&) {};
    }
    return {};
}

FormAction reportOfKey(const forms::Form& form, const Key& key) {
    const auto* const field = dynamic_cast<const forms::TextBox*>(form.focused());
    if (field == nullptr || (!field->KeyDown.connected() && !field->KeyPress.connected()))
        return {};
    return [key](forms::Form& at) {
        if (auto* const box = dynamic_cast<forms::TextBox*>(at.focused())) {
            box->keyDown(key.code, key.shift, key.character);
        }
    };
}

FormAction actionOfReleasedKey(const forms::Form& form, const Key& key) {
    const auto* const field = dynamic_cast<const forms::TextBox*>(form.focused());
    const bool isBoxes =
        dynamic_cast<const forms::CheckBox*>(form.focused()) != nullptr && isHeardByBoxes(key.code);
    if (!isBoxes && (field == nullptr || !field->KeyUp.connected())) return {};
    return [key](forms::Form& at) {
        if (auto* const box = dynamic_cast<forms::CheckBox*>(at.focused())) {
            box->keyUp(key.code, key.shift);
        }
        if (auto* const box = dynamic_cast<forms::TextBox*>(at.focused())) {
            box->keyUp(key.code, key.shift);
        }
    };
}

}  // namespace huebrush::view
