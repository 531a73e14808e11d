// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Bitmap.h"

namespace huebrush::base {

/// A bitmap file, and the pixels that it shows.
struct BitmapSample {
    std::string name;
    std::vector<std::uint8_t> file;
    Pixels pixels;
};

/// A small picture in every form that a bitmap file may have: each depth, encoding, header and
/// order of rows.
const std::vector<BitmapSample>& bitmapSamples();

/// A metafile of Windows with one record beside its end: plain, placeable, enhanced.
std::vector<std::uint8_t> plainMetafile();
std::vector<std::uint8_t> placeableMetafile();
std::vector<std::uint8_t> enhancedMetafile();

}  // namespace huebrush::base
