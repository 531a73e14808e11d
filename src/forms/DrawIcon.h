// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "base/Picture.h"

namespace huebrush::forms {

/// Draws an icon at the upper left corner of a picture; the canvas shows where the icon is
/// transparent, and what is transparent in both stays so. Both are bitmaps, and so is the result,
/// with 32 bits a pixel; a canvas or icon that is none leaves the canvas as it is.
base::Picture drawIcon(const base::Picture& icon, const base::Picture& canvas);

}  // namespace huebrush::forms
