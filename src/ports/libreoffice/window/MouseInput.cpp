#include "ports/libreoffice/window/MouseInput.h"

#include <com/sun/star/awt/KeyModifier.hpp>
#include <com/sun/star/awt/MouseButton.hpp>

namespace huebrush::libreoffice {

namespace css = com::sun::star;

std::int16_t shiftState(sal_Int16 modifiers) {
    int state = forms::Shift::kNone;
    if ((modifiers & css::awt::KeyModifier::SHIFT) != 0) state |= forms::Shift::kShift;
    if ((modifiers & css::awt::KeyModifier::MOD1) != 0) state |= forms::Shift::kCtrl;
    if ((modifiers & css::awt::KeyModifier::MOD2) != 0) state |= forms::Shift::kAlt;
    return static_cast<std::int16_t>(state);
}

MouseInput mouseInput(MouseInput::Kind kind, const css::awt::MouseEvent& event) {
    MouseInput input;
    input.kind = kind;
    input.window.set(event.Source, css::uno::UNO_QUERY);
    input.x = event.X;
    input.y = event.Y;
    if ((event.Buttons & css::awt::MouseButton::LEFT) != 0) input.button = 1;
    if ((event.Buttons & css::awt::MouseButton::RIGHT) != 0) input.button = 2;
    input.shift = shiftState(event.Modifiers);
    input.twice = event.ClickCount == 2;
    return input;
}

}  // namespace huebrush::libreoffice
