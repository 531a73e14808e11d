// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/Units.h"

namespace huebrush::view {

/// A place in pixels, from the upper left corner of a window's inside.
struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;

    bool operator==(const Point&) const = default;
};

/// In pixels.
struct Size {
    std::int32_t width = 0;
    std::int32_t height = 0;

    bool operator==(const Size&) const = default;
};

/// A place and size in pixels.
struct Rectangle {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;

    bool contains(const Point& point) const {
        return point.x >= left && point.x < left + width && point.y >= top &&
               point.y < top + height;
    }
    bool operator==(const Rectangle&) const = default;
};

/// A place and size in twips.
struct Box {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    double right() const { return left + width; }
    double bottom() const { return top + height; }
    bool empty() const { return width <= 0 || height <= 0; }
    bool contains(double x, double y) const {
        return x >= left && x < right() && y >= top && y < bottom();
    }
};

/// The intersection of two boxes; an empty box where they share nothing.
inline Box intersection(const Box& a, const Box& b) {
    const double left = std::max(a.left, b.left);
    const double top = std::max(a.top, b.top);
    return {left, top, std::min(a.right(), b.right()) - left,
            std::min(a.bottom(), b.bottom()) - top};
}

/// Between the twips of the controls and the pixels of a screen.
class Scale {
 public:
    explicit Scale(double dotsPerInch = 96)
        : pixelsPerTwip_(dotsPerInch / base::kTwipsPerInch),
          twipsPerPixel_(base::kTwipsPerInch / dotsPerInch) {}

    std::int32_t toPixels(double twips) const {
        return static_cast<std::int32_t>(std::lround(twips * pixelsPerTwip_));
    }
    /// Exact at the usual resolutions, whatever the precision of the processor: what came from
    /// twips is the same number again.
    double toTwips(std::int32_t pixels) const { return pixels * twipsPerPixel_; }
    /// Boxes that meet in twips meet in pixels.
    Rectangle toPixels(const Box& box) const {
        const std::int32_t left = toPixels(box.left);
        const std::int32_t top = toPixels(box.top);
        return {left, top, std::max(0, toPixels(box.right()) - left),
                std::max(0, toPixels(box.bottom()) - top)};
    }

 private:
    double pixelsPerTwip_;
    double twipsPerPixel_;
};

}  // namespace huebrush::view
