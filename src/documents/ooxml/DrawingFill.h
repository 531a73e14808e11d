// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "documents/ooxml/Changes.h"
#include "documents/ooxml/Pictures.h"
#include "documents/ooxml/Theme.h"
#include "documents/xml/Outline.h"
#include "mapping/FillMapping.h"

namespace huebrush::documents::ooxml {

/// The elements of a shape of DrawingML that its fill depends on; kNoElement for those that it does
/// not have.
struct DrawingShape {
    ElementId properties = kNoElement;  ///< a:spPr
    ElementId style = kNoElement;       ///< its references to the theme
    /// The fill of the nearest group that has one.
    ElementId groupFill = kNoElement;
};

/// The fill element among the children of shape or group properties; kNoElement without one.
ElementId fillElementIn(const Outline& outline, ElementId properties);

mapping::KnownFill drawingFill(const Outline& outline, const DrawingShape& shape,
                               const Theme& theme, Pictures& pictures);

/// The colour of a shape's line; nothing where it has none.
std::optional<Color> drawingLine(const Outline& outline, const DrawingShape& shape,
                                 const Theme& theme);

/// Writes what there is of a fill and a line's colour as the shape's own, which override its style.
void writeDrawing(const PartChanges& part, const DrawingShape& shape,
                  const std::optional<FillChange>& fill, const std::optional<Color>& line);

}  // namespace huebrush::documents::ooxml
