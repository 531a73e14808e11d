// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/document/XUndoAction.hpp>
#include <functional>
#include <string>
#include <vector>

#include "ports/libreoffice/document/DrawPage.h"
#include "ports/libreoffice/document/ShapeFill.h"

namespace huebrush::libreoffice {

/// A change of one shape's fill, as the office's Undo list keeps it. The shape is known by its
/// place: when a step is undone or redone, all others after or before it are, so it is there again.
struct FillChange {
    /// The number on the draw page, and those in the groups down to the shape.
    std::vector<std::int32_t> place;
    host::MsoShapeType type = host::MsoShapeType::msoAutoShape;
    ShapeFill before;
    ShapeFill after;
};

/// One shape's fill to be restored.
struct FillStep {
    const FillChange* change;
    /// One of the two fills of the change.
    const ShapeFill* wanted;
};
using FillSteps = std::vector<FillStep>;

/// Restores fills, in the order of the steps, because a shape may be in several. A shape that is
/// not at its place any more is left out. The office's exceptions pass to the caller.
void restoreFills(const FillSteps& steps, const DrawPage& page, FillTables& tables);

/// One entry in the office's Undo list for changes in their order. It holds none of the office's
/// objects. An error of `restore` is the office's error of undoing.
com::sun::star::uno::Reference<com::sun::star::document::XUndoAction> makeUndoAction(
    const std::string& title, std::vector<FillChange> changes,
    std::function<void(const FillSteps&)> restore);

}  // namespace huebrush::libreoffice
