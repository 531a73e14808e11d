// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/PosSize.hpp>
#include <com/sun/star/awt/WindowDescriptor.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <string_view>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Text.h"
#include "view/Geometry.h"

namespace huebrush::libreoffice {

using NativeWindow = com::sun::star::uno::Reference<com::sun::star::awt::XWindow>;

/// A child window of one of the toolkit's kinds, hidden and without a size. The office's exceptions
/// pass to the caller.
inline NativeWindow makeNativeWindow(
    const com::sun::star::uno::Reference<com::sun::star::awt::XToolkit>& toolkit,
    const com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>& parent,
    std::string_view service, sal_Int32 attributes) {
    const com::sun::star::awt::WindowDescriptor descriptor(com::sun::star::awt::WindowClass_SIMPLE,
                                                           toOffice(service), parent, -1,
                                                           {0, 0, 0, 0}, attributes);
    return {toolkit->createWindow(descriptor), com::sun::star::uno::UNO_QUERY_THROW};
}

/// Moves a window to another place. Returns whether it was another one.
inline bool moveTo(const NativeWindow& window, view::Rectangle& now, const view::Rectangle& place) {
    if (place == now) return false;
    now = place;
    window->setPosSize(place.left, place.top, place.width, place.height,
                       com::sun::star::awt::PosSize::POSSIZE);
    return true;
}

/// Disposes a window that still exists.
inline void dispose(const NativeWindow& window) {
    ignoringOffice([&] {
        const com::sun::star::uno::Reference<com::sun::star::lang::XComponent> component(
            window, com::sun::star::uno::UNO_QUERY);
        if (component.is()) component->dispose();
    });
}

}  // namespace huebrush::libreoffice
