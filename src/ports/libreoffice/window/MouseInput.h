#pragma once

#include <com/sun/star/awt/MouseEvent.hpp>
#include <com/sun/star/awt/XWindow.hpp>

#include "forms/Control.h"

namespace huebrush::libreoffice {

/// What the mouse did: in pixels of the window that heard of it.
struct MouseInput {
    enum class Kind { press, release, move, leave };

    Kind kind = Kind::move;
    com::sun::star::uno::Reference<com::sun::star::awt::XWindow> window;
    sal_Int32 x = 0;
    sal_Int32 y = 0;
    std::int16_t button = 0;
    std::int16_t shift = 0;
    bool twice = false;
};

/// The office's keys that are held as the forms runtime's shift state.
std::int16_t shiftState(sal_Int16 modifiers);

MouseInput mouseInput(MouseInput::Kind kind, const com::sun::star::awt::MouseEvent& event);

}  // namespace huebrush::libreoffice
