#pragma once

#include <com/sun/star/awt/Rectangle.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>

#include "forms/PopupMenu.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Opens a menu under a place of a window, in its pixels, and waits until it has closed. The item
/// that the user has picked; nothing when it was closed without.
forms::MenuItem* pickFromMenu(
    const ContextReference& context, const forms::PopupMenu& menu,
    const com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>& window,
    const com::sun::star::awt::Rectangle& place);

}  // namespace huebrush::libreoffice
