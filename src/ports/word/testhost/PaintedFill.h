// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "base/Picture.h"
#include "ports/memory/MemoryShapes.h"

namespace huebrush::word {

/// What a rectangle with a fill looks like, in the size of the dialog's previews: a bitmap, for
/// people to see. A gradient goes from its first colour to the second, a pattern shows both in
/// squares, and a transparent fill lies on white.
base::Picture paintedFill(const memory::FillState& fill);

}  // namespace huebrush::word
