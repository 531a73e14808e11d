#pragma once

#include "host/Enumerations.h"
#include "ports/libreoffice/app/ActiveWindow.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Gives a window the mouse pointer that the object model names: the wait pointer, or else the
/// window's own.
void setPointer(const ContextReference& context, const ActiveWindow::Frame& frame,
                host::WdCursorType cursor);

}  // namespace huebrush::libreoffice
