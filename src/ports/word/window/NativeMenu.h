// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include "forms/PopupMenu.h"
#include "view/Geometry.h"
#include "view/Menu.h"

namespace huebrush::word {

/// Opens a menu over a window, at a place of the screen in pixels, and waits until it has closed.
/// The item that the user has picked, or nothing. `state` notes the menu while it is open.
forms::MenuItem* pickFromMenu(view::Menu& state, const forms::PopupMenu& menu, HWND below,
                              const view::Point& place);

}  // namespace huebrush::word
