#pragma once

#include <com/sun/star/awt/XWindowPeer.hpp>

#include "forms/PopupMenu.h"
#include "ports/libreoffice/uno/Services.h"
#include "ports/libreoffice/window/OfficeCanvas.h"
#include "view/Geometry.h"
#include "view/Menu.h"

namespace huebrush::libreoffice {

/// Opens a menu at a place of a window and lets events run until it has closed. The item that the
/// user has picked, or nothing.
forms::MenuItem* pickFromMenu(
    const ContextReference& context, view::Menu& state, const forms::PopupMenu& menu,
    const com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>& below, Look& look,
    const view::Scale& scale, const view::Point& place);

}  // namespace huebrush::libreoffice
