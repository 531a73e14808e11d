// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <vector>

#include "base/Bitmap.h"

namespace huebrush::libreoffice {

/// The pixels of a PNG file. An error (481) for other bytes, and for more than base::kMostPixels.
base::Pixels pixelsOfPng(const std::vector<std::uint8_t>& file);

}  // namespace huebrush::libreoffice
