// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Picture.h"
#include "forms/Font.h"
#include "view/Geometry.h"

namespace huebrush::view {

/// What a toolkit draws with, in pixels of one window. Colours are 0xRRGGBB.
class Canvas {
 public:
    using Colour = std::optional<std::int32_t>;

    Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    virtual ~Canvas() = default;

    /// A rectangle, its inside and its edge each drawn where it has a colour.
    virtual void rectangle(const Rectangle& place, Colour inside, Colour edge) = 0;
    virtual void line(const Point& from, const Point& to, std::int32_t colour) = 0;
    virtual void polygon(const std::vector<Point>& corners, std::int32_t colour) = 0;
    /// Text with its upper left corner at a place.
    virtual void text(const Point& at, const std::string& text, const forms::Font& font,
                      std::int32_t colour) = 0;
    /// Fills a place with a picture.
    virtual void picture(const Rectangle& place, const base::Picture& picture) = 0;

    virtual Size textSize(const std::string& text, const forms::Font& font) = 0;
    /// How far the font's baseline lies below its upper edge.
    virtual std::int32_t ascent(const forms::Font& font) = 0;
    /// Nothing for no picture, and for one that cannot be drawn.
    virtual std::optional<Size> pictureSize(const base::Picture& picture) = 0;
};

}  // namespace huebrush::view
