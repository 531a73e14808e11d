// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <vector>

#include "base/Picture.h"

namespace huebrush::base {

/// The bytes of an uncompressed bitmap file. `pixels` holds blue, green and red of each pixel, and
/// alpha where a pixel has four bytes, row by row from the upper left, without gaps.
/// REQUIRES: `bytesOfPixel` bytes for each of `width` times `height` pixels.
std::vector<std::uint8_t> bitmapFile(std::int32_t width, std::int32_t height, int bytesOfPixel,
                                     const std::vector<std::uint8_t>& pixels);

/// The same as a picture of four bytes a pixel; the colours are not multiplied by the alpha.
Picture bitmapOf(std::int32_t width, std::int32_t height, const std::vector<std::uint8_t>& pixels);

}  // namespace huebrush::base
