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

/// Finds the shapes of a part of a text: those of text boxes, tables, fields and deletions, too.
/// Pictures, charts, diagrams and embedded objects are none.
FoundShapes findShapes(const Outline& outline);

}  // namespace huebrush::documents::ooxml
