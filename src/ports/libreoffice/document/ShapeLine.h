// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>

#include "ports/libreoffice/document/ShapeKind.h"

namespace huebrush::libreoffice {

/// What a shape answers of its line. The colour has red in the low byte.
struct ShapeLine {
    host::MsoTriState visible = host::MsoTriState::msoFalse;
    std::int32_t color = 0;
};

/// The office's exceptions pass to the caller.
ShapeLine readLine(const ShapeReference& shape);
void writeLineVisible(const ShapeReference& shape, bool visible);
void writeLineColor(const ShapeReference& shape, std::int32_t color);

/// The common answer of two: mixed where they differ.
ShapeLine commonLine(const ShapeLine& a, const ShapeLine& b);

}  // namespace huebrush::libreoffice
