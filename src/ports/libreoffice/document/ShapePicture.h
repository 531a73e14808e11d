// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "base/Picture.h"
#include "ports/libreoffice/document/ShapeKind.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// A shape as it looks before a white ground, in its own size at 96 pixels an inch: a bitmap, which
/// palettes can keep.
base::Picture pictureOf(const ContextReference& context, const ShapeReference& shape);

}  // namespace huebrush::libreoffice
