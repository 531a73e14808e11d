// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <vector>

namespace huebrush::cli {

/// The bytes of a PNG file. `colors` holds red, green and blue of each pixel, row by row from the
/// upper left.
std::vector<std::uint8_t> pngFile(std::int32_t width, std::int32_t height,
                                  const std::vector<std::uint8_t>& colors);

}  // namespace huebrush::cli
