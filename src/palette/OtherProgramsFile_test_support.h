// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "jet/file/Bytes.h"

namespace huebrush::palette {

/// Has the 30 characters that a name may have.
inline constexpr const char* kLongestName = "Příšerně žluťoučký kůň úpěl óď";

/// A palette file as another program makes it with the same schema. Its numbers are kept in columns
/// of variable size, its texts compressed, and its map of free pages begins at the end of the file.
/// The palette 1, with the longest name, has fills in the colours 11, 12, 13 and 14, of which the
/// previews are a placeable metafile, none, an enhanced metafile and a bitmap. The palette 2, "b",
/// has a fill in the colour 21, and nothing in its other columns that may be empty.
jet::Bytes fileOfAnotherProgram();

}  // namespace huebrush::palette
