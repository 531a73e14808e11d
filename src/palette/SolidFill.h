// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "base/Color.h"
#include "fill/FillProperties.h"
#include "jet/table/Value.h"

namespace huebrush::palette {

/// Fills of one colour where no host makes them or draws their previews.

/// What a host answers for a visible, opaque fill of this colour: properties that it does not use
/// have fixed values.
fill::FillProperties solidFill(base::Rgb color);

/// The FillPreview of a fill as a palette stores it: a bitmap of its colour, as wide and high as
/// the previews of rows. Null for a fill that only a host can draw.
jet::Value previewOf(const fill::FillProperties& fill);

}  // namespace huebrush::palette
