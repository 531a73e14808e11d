// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>
#include <vector>

#include "documents/odf/OdfWords.h"
#include "documents/xml/Outline.h"
#include "host/Enumerations.h"

namespace huebrush::documents::odf {

/// A shape, or a group of them, where it stands in the text.
struct FoundShape {
    ElementId element = kNoElement;
    host::MsoShapeType type = host::MsoShapeType::msoAutoShape;
    bool canHaveFill = true;
    std::vector<FoundShape> members;
};

/// The top-level shapes of a document from back to front.
///
/// Of a text: those of the text, its tables, frames, notes and deletions. Frames are none
/// themselves, nor is what stands in the text of a shape, in comments, headers and footers, and in
/// embedded objects.
///
/// Of a drawing or a presentation: those of the pages, in the order of the pages, text frames among
/// them; what stands on master pages and on pages of notes is none. A placeholder of a presentation
/// takes its fill from the master page, and can have no other.
std::vector<FoundShape> findShapes(const Outline& content);

}  // namespace huebrush::documents::odf
