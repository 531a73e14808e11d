// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <vector>

#include "base/Picture.h"

namespace huebrush::base {

/// The picture of a file that Windows' own programs write: a bitmap (see decodeBitmap), a metafile
/// with or without the header that gives its place, or an enhanced metafile. The picture has the
/// file's bytes as they are. An error (481) for any other bytes, and for a file that is cut off.
Picture loadPicture(std::vector<std::uint8_t> file);

/// The file of such a picture, which loadPicture reads. An error (481) for one of another format,
/// and for one whose bytes are not what its format says.
const std::vector<std::uint8_t>& savePicture(const Picture& picture);

}  // namespace huebrush::base
