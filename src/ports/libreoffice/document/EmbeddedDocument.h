// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/XWindowPeer.hpp>

#include "ports/libreoffice/document/DocumentModel.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Opens a new text document in a frame of its own inside a window, where nobody sees it. A dialog
/// that the office opens for it is modal to that window, which none for a document without a window
/// is. The document is closed as any other, at the latest when the window is disposed: an office
/// crashes soon after a document was disposed along with its window.
ModelReference openInside(
    const ContextReference& context,
    const com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>& window);

}  // namespace huebrush::libreoffice
