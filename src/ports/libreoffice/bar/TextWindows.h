// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/frame/XLayoutManager.hpp>
#include <vector>

#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

using LayoutManager = com::sun::star::uno::Reference<com::sun::star::frame::XLayoutManager>;

/// What lays out the tool bars in each of the office's open text windows.
std::vector<LayoutManager> layoutsOfTextWindows(const ContextReference& context);

}  // namespace huebrush::libreoffice
