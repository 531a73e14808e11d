// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/frame/XModel.hpp>

namespace huebrush::libreoffice {

/// Whether any page of the document may have a header or footer.
bool hasHeadersOrFooters(
    const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& model);

}  // namespace huebrush::libreoffice
