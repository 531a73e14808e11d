#pragma once

#include <com/sun/star/awt/FontDescriptor.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>

#include "forms/Font.h"

namespace huebrush::libreoffice {

/// The colours and the font of the user's desktop, as the office draws its own dialogs with them.
/// Colours are 0xRRGGBB.
struct Theme {
    sal_Int32 dialog = 0xF0F0F0;
    sal_Int32 dialogText = 0;
    sal_Int32 field = 0xFFFFFF;
    sal_Int32 fieldText = 0;
    sal_Int32 face = 0xE0E0E0;
    sal_Int32 buttonText = 0;
    sal_Int32 shadow = 0x808080;
    sal_Int32 highlight = 0x3584E4;
    sal_Int32 highlightText = 0xFFFFFF;
    sal_Int32 menu = 0xF0F0F0;
    sal_Int32 menuText = 0;
    sal_Int32 workspace = 0x808080;
    sal_Int32 info = 0xFFFFE1;
    /// Its height is in pixels, as what is drawn by oneself takes it.
    com::sun::star::awt::FontDescriptor font;

    /// The colour with a number of the forms runtime.
    sal_Int32 colour(unsigned number) const;
    /// What is written on a background with such a number.
    sal_Int32 textOn(unsigned background) const;
    /// A font of the forms runtime: its weight, and its size beside that of the common font.
    com::sun::star::awt::FontDescriptor fontFor(const forms::Font& wanted) const;
};

/// The colour between two, the first one at 0 and the second one at 1.
sal_Int32 mixed(sal_Int32 first, sal_Int32 second, double share);

/// The theme of a window's screen; the default one where the office does not tell.
Theme themeOf(const com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>& window);

}  // namespace huebrush::libreoffice
