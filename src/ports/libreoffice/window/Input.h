// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/KeyEvent.hpp>
#include <com/sun/star/awt/MouseEvent.hpp>

#include "view/Key.h"
#include "view/MouseInput.h"

namespace huebrush::libreoffice {

view::Key keyOf(const com::sun::star::awt::KeyEvent& event);

/// What the mouse did in the native window of a control.
view::MouseInput mouseInput(view::MouseInput::Kind kind, const view::ControlReference& control,
                            const com::sun::star::awt::MouseEvent& event);

}  // namespace huebrush::libreoffice
