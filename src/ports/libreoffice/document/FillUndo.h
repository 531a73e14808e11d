#pragma once

#include <com/sun/star/document/XUndoAction.hpp>
#include <memory>
#include <string>
#include <vector>

#include "ports/libreoffice/document/ShapeFill.h"

namespace huebrush::libreoffice {

class OpenDocument;

/// A change of one shape's fill, as the office's Undo list keeps it. The shape is known by its
/// place: when a step is undone or redone, all others after or before it are, so it is there again.
struct FillChange {
    /// The number on the draw page, and those in the groups down to the shape.
    std::vector<std::int32_t> place;
    host::MsoShapeType type = host::MsoShapeType::msoAutoShape;
    ShapeFill before;
    ShapeFill after;
};

/// One step in the office's Undo list for changes in their order. It holds none of the office's
/// objects; a shape that is not at its place any more is left out.
com::sun::star::uno::Reference<com::sun::star::document::XUndoAction> makeUndoAction(
    std::weak_ptr<OpenDocument> document, const std::string& title,
    std::vector<FillChange> changes);

}  // namespace huebrush::libreoffice
