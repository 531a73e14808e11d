#include "ports/libreoffice/window/FormKeys.h"

#include <algorithm>
#include <com/sun/star/awt/Key.hpp>
#include <com/sun/star/awt/KeyModifier.hpp>
#include <iterator>
#include <utility>

#include "forms/Controls.h"
#include "ports/libreoffice/window/AccessKeys.h"
#include "ports/libreoffice/window/MouseInput.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;
namespace Key = com::sun::star::awt::Key;

namespace {

using Deed = std::function<void(forms::Form&)>;

Deed moveFocus(bool backwards) {
    return [backwards](forms::Form& form) { form.handle([&] { form.focusNext(backwards); }); };
}

forms::CommandButton* defaultButton(const forms::Control& from) {
    for (forms::Control* const child : from.children()) {
        auto* const button = dynamic_cast<forms::CommandButton*>(child);
        if (button != nullptr && button->Default) return button;
        if (forms::CommandButton* const inside = defaultButton(*child)) return inside;
    }
    return nullptr;
}

/// The button that Return presses: the one that has the focus, or else the default one.
void pressByReturn(forms::Form& form) {
    auto* button = dynamic_cast<forms::CommandButton*>(form.focused());
    if (button == nullptr) button = defaultButton(form);
    if (button != nullptr) button->press();
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

Deed arrow(bool backwards) {
    return [backwards](forms::Form& form) {
        if (auto* const option = dynamic_cast<forms::OptionButton*>(form.focused())) {
            chooseBeside(*option, backwards);
        } else {
            moveFocus(backwards)(form);
        }
    };
}

/// Whether the arrow keys and others mean nothing in the control itself.
bool isButtonLike(const forms::Control* control) {
    return dynamic_cast<const forms::CommandButton*>(control) != nullptr ||
           dynamic_cast<const forms::CheckBox*>(control) != nullptr ||
           dynamic_cast<const forms::OptionButton*>(control) != nullptr;
}

Deed deedOfArrow(const forms::Form& form, sal_Int16 code, sal_Int16 modifiers) {
    if (!isButtonLike(form.focused())) return {};
    if (modifiers != 0) return [](forms::Form&) {};
    return arrow(code == Key::UP || code == Key::LEFT);
}

Deed deedOfLetter(forms::Form& form, sal_Int16 code) {
    if (code < Key::A || code > Key::Z) return {};
    const char letter = static_cast<char>('a' + (code - Key::A));
    if (controlOfAccessKey(form, letter) == nullptr) return {};
    return [letter](forms::Form& called) {
        if (forms::Control* const control = controlOfAccessKey(called, letter)) {
            callByAccessKey(*control);
        }
    };
}

/// What the keyboards that have a context-menu key do with it, for those that have none.
Deed openContextMenu(const forms::Form& form) {
    if (dynamic_cast<const forms::CheckBox*>(form.focused()) == nullptr) return {};
    return [](forms::Form& at) {
        if (auto* const box = dynamic_cast<forms::CheckBox*>(at.focused())) {
            box->keyUp(forms::KeyCode::kContextMenu, forms::Shift::kNone);
        }
    };
}

Deed cancel(const forms::Form& form) {
    if (form.dragged() != nullptr) return [](forms::Form&) {};
    // A form that stays has the key all the same: the office's dialog would end by it.
    return [](forms::Form& escaped) {
        escaped.handle([&] {
            if (escaped.endsByEscape()) escaped.Unload();
        });
    };
}

/// The classic number of a key; 0 for one that means nothing here.
std::int16_t classicCode(sal_Int16 code) {
    switch (code) {
        case Key::BACKSPACE:
            return forms::KeyCode::kBack;
        case Key::UP:
            return forms::KeyCode::kUp;
        case Key::DOWN:
            return forms::KeyCode::kDown;
        case Key::DELETE:
            return forms::KeyCode::kDelete;
        case Key::CONTEXTMENU:
            return forms::KeyCode::kContextMenu;
        case Key::SPACE:
            return forms::KeyCode::kSpace;
        default:
            return 0;
    }
}

}  // namespace

Deed deedOfKey(forms::Form& form, const css::awt::KeyEvent& key) {
    switch (key.KeyCode) {
        case Key::TAB:
            if ((key.Modifiers & ~css::awt::KeyModifier::SHIFT) != 0) return {};
            return moveFocus((key.Modifiers & css::awt::KeyModifier::SHIFT) != 0);
        case Key::RETURN:
            return pressByReturn;
        case Key::ESCAPE:
            return cancel(form);
        case Key::F10:
            if (key.Modifiers != css::awt::KeyModifier::SHIFT) break;
            return openContextMenu(form);
        case Key::UP:
        case Key::DOWN:
        case Key::LEFT:
        case Key::RIGHT:
            return deedOfArrow(form, key.KeyCode, key.Modifiers);
        default:
            break;
    }
    if (key.Modifiers == css::awt::KeyModifier::MOD2) return deedOfLetter(form, key.KeyCode);
    // What a box or button has no use for would go to the windows around it.
    if (isButtonLike(form.focused()) && key.KeyCode != Key::SPACE && key.Modifiers == 0) {
        return [](forms::Form&) {};
    }
    return {};
}

Deed deedOfReleasedKey(forms::Form& form, const css::awt::KeyEvent& key) {
    if (dynamic_cast<forms::CheckBox*>(form.focused()) == nullptr) return {};
    const std::int16_t code = classicCode(key.KeyCode);
    if (code == 0) return {};
    return [code, shift = shiftState(key.Modifiers)](forms::Form& at) {
        if (auto* const box = dynamic_cast<forms::CheckBox*>(at.focused())) box->keyUp(code, shift);
    };
}

}  // namespace huebrush::libreoffice
