// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>
#include <string_view>

#include "documents/ooxml/Changes.h"
#include "documents/ooxml/Pictures.h"
#include "documents/xml/Outline.h"
#include "mapping/FillMapping.h"

namespace huebrush::documents::ooxml {

/// A shape of VML and the v:shapetype that it takes from; kNoElement without one.
struct VmlShape {
    ElementId element = kNoElement;
    ElementId type = kNoElement;
};

mapping::KnownFill vmlFill(const Outline& outline, const VmlShape& shape, Pictures& pictures);

/// The colour of a shape's line, 0xRRGGBB; nothing where it has none.
std::optional<std::int32_t> vmlLine(const Outline& outline, const VmlShape& shape);

/// Writes what there is of a fill and a line's colour (0xRRGGBB) as the shape's own, which override
/// those of its type, and drops the copy of the former ones in another format.
void writeVml(const PartChanges& part, const VmlShape& shape, const std::optional<FillChange>& fill,
              const std::optional<std::int32_t>& line);

/// 0xRRGGBB of a colour as VML writes it; nothing for what is none.
std::optional<std::int32_t> vmlColor(std::string_view value);

}  // namespace huebrush::documents::ooxml
