// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/graphic/XGraphic.hpp>
#include <vector>

#include "base/Picture.h"
#include "ports/libreoffice/runtime/IconFiles.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Makes the office's button pictures from what is pasted as a button's face.
class Faces {
 public:
    using Graphic = com::sun::star::uno::Reference<com::sun::star::graphic::XGraphic>;

    Faces(const ContextReference& context, IconFiles icons);

    /// The picture in the sizes 16, 24 and 32: an icon of this component in its own drawing for
    /// each, any other picture in the one size it has. An error for what is no picture.
    std::vector<Graphic> sizesOf(const base::Picture& face) const;

 private:
    ContextReference context_;
    IconFiles icons_;
};

}  // namespace huebrush::libreoffice
