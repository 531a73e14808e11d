// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <cstdint>
#include <span>

#include "base/Picture.h"
#include "ports/word/graphics/Gdi.h"

namespace huebrush::word {

using Bytes = std::span<const std::uint8_t>;

/// The file of a bitmap that is in memory, headers and pixels behind each other (CF_DIB).
base::Picture fromBitmapInMemory(Bytes bitmap);
/// The bitmap of a file in the format of the screen; the caller deletes it. An error (481) for a
/// picture that is no bitmap.
HBITMAP toScreenBitmap(const base::Picture& picture);

/// The file of a metafile with a header that gives its size. No picture where it has none.
base::Picture fromMetafile(const METAFILEPICT& metafile);
/// The metafile of such a file, with its size in hundredths of a millimetre; the caller deletes it.
METAFILEPICT toMetafile(const base::Picture& picture);

/// The same, and one whose file is that of an enhanced metafile, as such a one. An error (481) for
/// any other picture.
EnhancedMetafile toEnhancedMetafile(const base::Picture& picture);

}  // namespace huebrush::word
