// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace huebrush::mapping {

/// A small picture in memory, 0xRRGGBB a pixel, rows from the top.
class Image {
 public:
    Image(std::int32_t width, std::int32_t height)
        : width_(width),
          height_(height),
          pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

    std::int32_t width() const { return width_; }
    std::int32_t height() const { return height_; }
    std::int32_t at(std::int32_t x, std::int32_t y) const { return pixels_[index(x, y)]; }
    void set(std::int32_t x, std::int32_t y, std::int32_t color) { pixels_[index(x, y)] = color; }

    friend bool operator==(const Image&, const Image&) = default;

 private:
    std::size_t index(std::int32_t x, std::int32_t y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
               static_cast<std::size_t>(x);
    }

    std::int32_t width_;
    std::int32_t height_;
    std::vector<std::int32_t> pixels_;
};

/// The bytes of a BMP file, 24 bits a pixel.
std::vector<std::uint8_t> bitmapFileOf(const Image& image);

/// Reads a BMP file; an image of width 0 from bytes that are none.
Image imageOfBitmapFile(const std::vector<std::uint8_t>& bytes);

}  // namespace huebrush::mapping
