// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/frame/XModel.hpp>

#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Has the user edit the fill of the shape that is selected in a document, in the office's own
/// dialog of areas, and returns when it has closed: whether by OK, also where nothing was changed.
/// The office's events run meanwhile. An error when the dialog does not open, or when the document
/// ends under it.
bool runAreaDialog(const ContextReference& context,
                   const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& model);

}  // namespace huebrush::libreoffice
