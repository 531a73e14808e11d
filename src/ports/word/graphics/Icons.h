// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

#include "base/Bitmap.h"
#include "base/Picture.h"
#include "ports/word/graphics/Gdi.h"

namespace huebrush::word {

/// The icon with this number in a module's resources, as an icon's file, or else the bitmap that
/// the module has the whole file of; no picture where there is neither.
base::Picture iconOf(HMODULE module, std::int32_t number);

/// The file of an icon that has a bitmap's pixels and their alpha, and no mask: for drawing by its
/// pixels only. An error (481) for a picture that is no bitmap.
base::Picture asIcon(const base::Picture& bitmap);

/// The first icon of an icon's file. An error (481) for a picture that is none.
Icon makeIcon(const base::Picture& icon);

/// The pixels of the first icon of an icon's file, from the upper left; nothing where it has no
/// alpha. An error (481) for a picture that is none.
std::optional<base::Pixels> pixelsOf(const base::Picture& icon);

/// Draws an icon at the upper left corner of a bitmap, in 32 by 32 pixels, as the system draws
/// every icon there; the canvas shows where its mask says so. The result is a bitmap of the canvas'
/// size, without alpha. An error (481) where either is no such picture.
base::Picture drawIconOn(const base::Picture& icon, const base::Picture& canvas);

}  // namespace huebrush::word
