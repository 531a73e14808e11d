// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/graphic/XGraphic.hpp>

#include "base/Picture.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// A picture as the office holds it. An error for what is none.
com::sun::star::uno::Reference<com::sun::star::graphic::XGraphic> graphicOf(
    const ContextReference& context, const base::Picture& picture);

}  // namespace huebrush::libreoffice
