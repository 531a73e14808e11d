#pragma once

#include <cstdint>
#include <vector>

#include "base/Picture.h"

namespace huebrush::base {

/// An uncompressed bitmap file of 32 bits a pixel. `pixels` holds blue, green, red and alpha of
/// each, from the upper left on; the colours are not multiplied by the alpha.
/// REQUIRES: four bytes for each of `width` times `height` pixels.
Picture bitmapOf(std::int32_t width, std::int32_t height, const std::vector<std::uint8_t>& pixels);

}  // namespace huebrush::base
