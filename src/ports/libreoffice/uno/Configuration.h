// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/uno/XInterface.hpp>
#include <string_view>

#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// A node of the office's configuration, for reading or for writing.
com::sun::star::uno::Reference<com::sun::star::uno::XInterface> openConfiguration(
    const ContextReference& context, std::string_view path, bool forWriting);

}  // namespace huebrush::libreoffice
