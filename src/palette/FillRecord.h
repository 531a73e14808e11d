// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "fill/FillProperties.h"
#include "palette/PaletteFile.h"

namespace huebrush::palette {

/// A fill as the columns of its row: all but the keys, with the preview that `previewOf` gives.
/// Transparency and degree become whole numbers; overflow error (6) where they have none. Whether
/// the texture is unknown has no column.
jet::Table::Values valuesOf(const jet::Table& elements, const fill::FillProperties& fill);

/// The fill in a row; a text that is null is empty. Error 94 for a number that is null.
fill::FillProperties fillOf(const Record& row);

}  // namespace huebrush::palette
