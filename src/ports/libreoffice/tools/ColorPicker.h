// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/XWindowPeer.hpp>
#include <cstdint>
#include <optional>

#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Has the user choose a colour in the office's own dialog, above a window (or above none). Colours
/// are the host's, red in the low byte. Nothing when the user cancels. REQUIRES: called on the main
/// thread from a posted callback, not from a listener of a window: without the office's own lock
/// the dialog crashes LibreOffice.
std::optional<std::int32_t> pickColor(
    const ContextReference& context,
    const com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>& owner,
    std::int32_t color);

}  // namespace huebrush::libreoffice
