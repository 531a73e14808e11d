// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/XWindowPeer.hpp>

#include "host/Enumerations.h"
#include "ports/libreoffice/app/ActiveWindow.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Gives a window the mouse pointer that the object model names: the wait pointer, or else the
/// window's own.
void setPointer(const ContextReference& context, const ActiveWindow::Frame& frame,
                host::WdCursorType cursor);

/// Gives a window and all inside it the wait pointer, or the common one back.
void setPointerInside(
    const ContextReference& context,
    const com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>& window, bool wait);

}  // namespace huebrush::libreoffice
