// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/uno/Any.hxx>
#include <string>

#include "mapping/FillMapping.h"
#include "ports/libreoffice/document/FillOrigin.h"
#include "ports/libreoffice/document/FillTables.h"
#include "ports/libreoffice/document/ShapeKind.h"

namespace huebrush::libreoffice {

/// Everything about a shape's fill that a document holds.
struct ShapeFill {
    mapping::OfficeFill office;
    /// The line of text beside the shape; empty without one.
    std::string memory;
    /// Known only where a write needs it.
    FillOrigin origin;
    /// The gradients as the office gave them, with all colours that newer offices keep in them:
    /// what is restored. Known only where a write needs it.
    com::sun::star::uno::Any gradient;
    com::sun::star::uno::Any transparenceGradient;
};

/// Reads a shape's fill: its style first and then only what that style uses and what the shape has
/// values of its own for, because each property costs a call, and names are slow. The office's
/// exceptions pass to the caller.
ShapeFill readFill(const ShapeReference& shape);

/// Before the fill `now` of the shape is replaced: reads its origin into it, and keeps its bitmap
/// at hand where it is one, so that it can be restored.
void prepareWrite(ShapeFill& now, const ShapeReference& shape, FillTables& tables);

/// What a shape with this fill answers.
mapping::KnownFill knownFillOf(const ShapeFill& fill, const ShapeReference& shape,
                               FillTables& tables);

/// Changes the shape's fill from `now` to `wanted`, in one call: what is equal is not written.
/// REQUIRES: prepareWrite() of `now`. A bitmap that is missing in the table is put back there.
void writeFill(const ShapeReference& shape, const ShapeFill& now, const ShapeFill& wanted,
               FillTables& tables);

}  // namespace huebrush::libreoffice
