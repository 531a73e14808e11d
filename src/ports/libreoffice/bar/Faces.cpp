// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/bar/Faces.h"

#include <utility>

#include "ports/libreoffice/uno/Graphics.h"

namespace huebrush::libreoffice {

Faces::Faces(const ContextReference& context, IconFiles icons)
    : context_(context), icons_(std::move(icons)) {}

std::vector<Faces::Graphic> Faces::sizesOf(const base::Picture& face) const {
    std::vector<Graphic> graphics;
    for (const base::Picture& size : icons_.sizesOf(face)) {
        graphics.push_back(graphicOf(context_, size));
    }
    return graphics;
}

}  // namespace huebrush::libreoffice
