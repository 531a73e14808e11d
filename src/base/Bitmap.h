// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/Color.h"
#include "base/Picture.h"

namespace huebrush::base {

/// Pixels in memory: blue, green, red and alpha of each, row by row from the upper left, without
/// gaps. The colours are not multiplied by the alpha.
struct Pixels {
    static constexpr std::size_t kBytes = 4;

    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::uint8_t> bytes;

    std::size_t offset(std::int32_t x, std::int32_t y) const {
        return kBytes * (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                         static_cast<std::size_t>(x));
    }
    friend bool operator==(const Pixels&, const Pixels&) = default;
};

/// The most pixels of a bitmap that is read: they take 64 MB.
inline constexpr std::uint64_t kMostPixels = 16'000'000;

/// The bytes of an uncompressed bitmap file. `pixels` holds blue, green and red of each pixel, and
/// alpha where a pixel has four bytes, row by row from the upper left, without gaps.
/// REQUIRES: `bytesOfPixel` bytes for each of `width` times `height` pixels.
std::vector<std::uint8_t> bitmapFile(std::int32_t width, std::int32_t height, int bytesOfPixel,
                                     const std::vector<std::uint8_t>& pixels);

/// The bytes of a bitmap file without alpha: the pixels before a white ground.
std::vector<std::uint8_t> bitmapOnWhite(const Pixels& pixels);

/// The bytes of a bitmap file of one colour throughout, as small as one can be without compression.
std::vector<std::uint8_t> bitmapFileIn(Rgb color, std::int32_t width, std::int32_t height);

/// A picture of four bytes a pixel; the colours are not multiplied by the alpha.
Picture bitmapOf(std::int32_t width, std::int32_t height, const std::vector<std::uint8_t>& pixels);
Picture bitmapOf(const Pixels& pixels);

/// Reads a bitmap file of Windows or of OS/2 1: 1, 4, 8, 16, 24 or 32 bits a pixel, plain,
/// run-length encoded or with bit fields, its rows from either end. An error (481) for bytes that
/// are none, for a file that is cut off, and for more than kMostPixels.
///
/// The alpha is 255 where the file has none. In files of 32 bits without bit fields it is the
/// fourth byte of each pixel, which most programs leave at 0 (see `ignoreUnusedAlpha`). Pixels that
/// a run-length encoded file skips have the first colour of its table, and colours that a table
/// lacks are black.
Pixels decodeBitmap(std::span<const std::uint8_t> file);

/// Fails like decodeBitmap, without decoding.
void requireBitmap(std::span<const std::uint8_t> file);

/// Makes pixels opaque when the alpha of all of them is 0.
void ignoreUnusedAlpha(Pixels& pixels);

}  // namespace huebrush::base
