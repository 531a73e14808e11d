// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/window/Input.h"

#include <com/sun/star/awt/Key.hpp>
#include <com/sun/star/awt/KeyModifier.hpp>
#include <com/sun/star/awt/MouseButton.hpp>

namespace huebrush::libreoffice {

namespace css = com::sun::star;
namespace Key = com::sun::star::awt::Key;
namespace KeyCode = forms::KeyCode;

namespace {

std::int16_t shiftState(sal_Int16 modifiers) {
    int state = forms::Shift::kNone;
    if ((modifiers & css::awt::KeyModifier::SHIFT) != 0) state |= forms::Shift::kShift;
    if ((modifiers & css::awt::KeyModifier::MOD1) != 0) state |= forms::Shift::kCtrl;
    if ((modifiers & css::awt::KeyModifier::MOD2) != 0) state |= forms::Shift::kAlt;
    return static_cast<std::int16_t>(state);
}

std::int16_t classicCode(sal_Int16 code) {
    if (code >= Key::A && code <= Key::Z) return static_cast<std::int16_t>('A' + (code - Key::A));
    if (code >= Key::NUM0 && code <= Key::NUM9) {
        return static_cast<std::int16_t>('0' + (code - Key::NUM0));
    }
    switch (code) {
        case Key::BACKSPACE:
            return KeyCode::kBack;
        case Key::TAB:
            return KeyCode::kTab;
        case Key::RETURN:
            return KeyCode::kReturn;
        case Key::ESCAPE:
            return KeyCode::kEscape;
        case Key::SPACE:
            return KeyCode::kSpace;
        case Key::END:
            return KeyCode::kEnd;
        case Key::HOME:
            return KeyCode::kHome;
        case Key::LEFT:
            return KeyCode::kLeft;
        case Key::UP:
            return KeyCode::kUp;
        case Key::RIGHT:
            return KeyCode::kRight;
        case Key::DOWN:
            return KeyCode::kDown;
        case Key::DELETE:
            return KeyCode::kDelete;
        case Key::CONTEXTMENU:
            return KeyCode::kContextMenu;
        case Key::F10:
            return KeyCode::kF10;
        default:
            return 0;
    }
}

/// The toolkit gives some keys without a character the one of a control code.
char16_t characterOf(const css::awt::KeyEvent& event) {
    constexpr sal_Unicode kRubOut = 0x7F;
    const sal_Unicode character = event.KeyChar;
    if (character >= ' ' && character != kRubOut) return static_cast<char16_t>(character);
    const std::int16_t code = classicCode(event.KeyCode);
    const bool isControl =
        code == KeyCode::kBack || code == KeyCode::kReturn || code == KeyCode::kEscape;
    return isControl ? static_cast<char16_t>(code) : u'\0';
}

}  // namespace

view::Key keyOf(const css::awt::KeyEvent& event) {
    return {classicCode(event.KeyCode), shiftState(event.Modifiers), characterOf(event)};
}

view::MouseInput mouseInput(view::MouseInput::Kind kind, const view::ControlReference& control,
                            const css::awt::MouseEvent& event) {
    view::MouseInput input;
    input.kind = kind;
    input.control = control;
    input.at = {event.X, event.Y};
    if ((event.Buttons & css::awt::MouseButton::LEFT) != 0) input.button = 1;
    if ((event.Buttons & css::awt::MouseButton::RIGHT) != 0) input.button = 2;
    input.shift = shiftState(event.Modifiers);
    input.twice = event.ClickCount == 2;
    return input;
}

}  // namespace huebrush::libreoffice
