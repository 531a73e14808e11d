// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "base/Picture.h"
#include "ports/libreoffice/document/ShapeKind.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// A shape as it looks, in its own size at 96 pixels an inch. Where it is transparent, the picture
/// is so, too, or has the colours blended with white.
base::Picture pictureOf(const ContextReference& context, const ShapeReference& shape);

}  // namespace huebrush::libreoffice
