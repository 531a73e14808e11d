// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/XWindowPeer.hpp>

#include "forms/PopupMenu.h"
#include "ports/libreoffice/window/OfficeCanvas.h"
#include "view/Geometry.h"
#include "view/Menu.h"

namespace huebrush::libreoffice {

/// Opens a pop-up menu over a window and lets events run until it has closed. Its upper left corner
/// is at a place of that window, in its pixels, or near it where the screen has no room there. The
/// item that the user has picked, or nothing; nothing, too, where no menu may open now. (The
/// office's own pop-up menus leave out disabled items.)
forms::MenuItem* pickFromMenu(
    const ContextReference& context, view::Menu& state, const forms::PopupMenu& menu,
    const com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>& below, Look& look,
    const view::Scale& scale, const view::Point& place);

}  // namespace huebrush::libreoffice
