// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/Bitmap.h"

namespace huebrush::cli {

/// Small pictures in a grid on white, from the upper left, row by row. A picture that is larger
/// than its place is shown reduced.
class ContactSheet {
 public:
    /// The most places that a sheet has room for.
    static std::size_t mostPlaces();

    /// REQUIRES: 1 to mostPlaces().
    explicit ContactSheet(std::size_t places);

    /// Put a picture, or a frame that stands for one, at the next place.
    void add(const base::Pixels& picture);
    void addPlaceholder();

    std::int32_t width() const { return width_; }
    std::int32_t height() const { return height_; }
    /// Red, green and blue of each pixel, row by row from the upper left.
    const std::vector<std::uint8_t>& colors() const { return colors_; }

 private:
    struct Corner {
        std::int32_t x;
        std::int32_t y;
    };
    struct Color {
        std::uint8_t red;
        std::uint8_t green;
        std::uint8_t blue;
    };

    Corner nextPlace();
    void set(std::int32_t x, std::int32_t y, const Color& color);

    std::int32_t columns_;
    std::int32_t width_;
    std::int32_t height_;
    std::int32_t next_ = 0;
    std::vector<std::uint8_t> colors_;
};

}  // namespace huebrush::cli
