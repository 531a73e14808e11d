// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/drawing/XShape.hpp>

#include "host/Enumerations.h"

namespace huebrush::libreoffice {

using ShapeReference = com::sun::star::uno::Reference<com::sun::star::drawing::XShape>;

/// What an object on the office's draw page is to us.
struct ShapeKind {
    /// Text frames, pictures and embedded objects are not shapes.
    bool isShape = false;
    /// Lines, connectors and form controls have none.
    bool canHaveFill = false;
    bool canHaveLine = false;
    host::MsoShapeType type = host::MsoShapeType::msoAutoShape;

    bool isGroup() const { return type == host::MsoShapeType::msoGroup; }
};

ShapeKind kindOf(const ShapeReference& shape);

}  // namespace huebrush::libreoffice
