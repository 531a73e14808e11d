#pragma once

#include "base/Picture.h"
#include "ports/libreoffice/document/ShapeKind.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// A bitmap of a shape as it looks, in its own size at 96 pixels an inch.
base::Picture pictureOf(const ContextReference& context, const ShapeReference& shape);

}  // namespace huebrush::libreoffice
