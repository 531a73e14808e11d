// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace huebrush::base {

/// The bytes of the two headers that nearly every bitmap file begins with.
inline constexpr std::uint32_t kBitmapFileHeader = 14;
inline constexpr std::uint32_t kBitmapInfoHeader = 40;

/// What the headers of a bitmap file say. Every place lies within the file.
struct BitmapHeader {
    enum class Encoding { plain, runs };

    std::int32_t width = 0;
    std::int32_t height = 0;
    bool topDown = false;
    unsigned bits = 0;  ///< of a pixel
    Encoding encoding = Encoding::plain;
    /// The bits of blue, green, red and alpha in a pixel of 16 or 32 bits; 0 without alpha.
    std::array<std::uint32_t, 4> masks{};
    /// The table of colours, where a pixel has up to 8 bits.
    std::size_t colors = 0;
    std::size_t colorCount = 0;
    std::size_t colorSize = 4;
    /// Where the pixels begin and end, and how many bytes a row has that is not encoded.
    std::size_t pixels = 0;
    std::size_t pixelsEnd = 0;
    std::size_t rowSize = 0;
};

/// An error (481) for what is no bitmap file or cut off, see decodeBitmap.
BitmapHeader readBitmapHeader(std::span<const std::uint8_t> file);

}  // namespace huebrush::base
