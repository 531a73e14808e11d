// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "documents/ooxml/DrawingFill.h"
#include "documents/ooxml/VmlFill.h"
#include "documents/xml/Outline.h"

namespace huebrush::documents::ooxml {

/// Where the fill of one shape stands: in one of the two languages.
struct FillPlace {
    bool isVml = false;
    DrawingShape drawing;
    VmlShape vml;
};

/// A shape as the text has it, once for each program that may read it.
struct FoundShape {
    FillPlace place;
    /// The same shape, for programs that read another branch of the alternatives.
    std::vector<FillPlace> twins;
    std::string name;
    bool canHaveFill = true;
    bool isControl = false;
    bool isPicture = false;  ///< counted where branches are matched; no shape
};

/// A shape by its place in the list of all, or a group.
struct FoundNode {
    static constexpr std::size_t kGroup = static_cast<std::size_t>(-1);

    std::size_t shape = kGroup;
    std::vector<FoundNode> members;
    std::string name;
    double height = 0;  ///< the place on the way from back to front
};

struct FoundShapes {
    std::vector<FoundShape> shapes;
    /// The top-level shapes in the order of the text.
    std::vector<FoundNode> nodes;
};

/// Where shapes stand.
enum class Surface {
    text,  ///< at some place of a text; the place has the name of the shape
    page,  ///< a slide, or the drawing of a sheet
};

/// Finds the shapes of a part: those of text boxes, tables, fields and deletions, too. Pictures,
/// charts, diagrams and embedded objects are none. A placeholder without a fill of its own takes
/// the one of its layout, and can have no other.
FoundShapes findShapes(const Outline& outline, Surface surface);

}  // namespace huebrush::documents::ooxml
