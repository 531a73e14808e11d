// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/FontDescriptor.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>

#include "forms/Font.h"
#include "view/Theme.h"

namespace huebrush::libreoffice {

/// What the user's desktop looks like, as the office draws its own dialogs.
struct Theme {
    view::Theme colours;
    /// Its height is in pixels, as what is drawn by oneself takes it.
    com::sun::star::awt::FontDescriptor font;

    /// A font of the forms runtime: its weight, and its size beside that of the common font.
    com::sun::star::awt::FontDescriptor fontFor(const forms::Font& wanted) const;
};

/// The theme of a window's screen; the default one where the office does not say.
Theme themeOf(const com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>& window);

}  // namespace huebrush::libreoffice
