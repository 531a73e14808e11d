#pragma once

#include <algorithm>
#include <cmath>
#include <com/sun/star/awt/Rectangle.hpp>

#include "base/Units.h"

namespace huebrush::libreoffice {

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

/// What two boxes share; an empty box where they share nothing.
inline Box intersection(const Box& a, const Box& b) {
    const double left = std::max(a.left, b.left);
    const double top = std::max(a.top, b.top);
    return {left, top, std::min(a.right(), b.right()) - left,
            std::min(a.bottom(), b.bottom()) - top};
}

/// Between the twips of the controls and the pixels of a screen.
class Scale {
 public:
    explicit Scale(double dotsPerInch = 96) : pixelsPerTwip_(dotsPerInch / base::kTwipsPerInch) {}

    sal_Int32 toPixels(double twips) const {
        return static_cast<sal_Int32>(std::lround(twips * pixelsPerTwip_));
    }
    double toTwips(sal_Int32 pixels) const { return pixels / pixelsPerTwip_; }
    /// Boxes that meet in twips meet in pixels.
    com::sun::star::awt::Rectangle toPixels(const Box& box) const {
        const sal_Int32 left = toPixels(box.left);
        const sal_Int32 top = toPixels(box.top);
        return {left, top, std::max(0, toPixels(box.right()) - left),
                std::max(0, toPixels(box.bottom()) - top)};
    }

 private:
    double pixelsPerTwip_;
};

}  // namespace huebrush::libreoffice
