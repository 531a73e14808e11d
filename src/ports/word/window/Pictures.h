// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <map>
#include <optional>

#include "base/Bitmap.h"
#include "base/Picture.h"
#include "ports/word/graphics/Gdi.h"
#include "view/Geometry.h"

namespace huebrush::word {

/// The pictures of controls as the system draws them, each read once.
class Pictures {
 public:
    /// In pixels, or in other units with the same proportions; nothing for no picture, and for one
    /// that cannot be read.
    std::optional<view::Size> sizeOf(const base::Picture& picture);
    /// Fills a place with a picture; one that cannot be read leaves it as it is.
    void draw(HDC context, const view::Rectangle& place, const base::Picture& picture);

 private:
    /// One of the three, or none.
    struct Drawable {
        base::Pixels pixels;
        /// The pixels in the size that was drawn last.
        Bitmap bitmap;
        view::Size drawnSize;
        EnhancedMetafile metafile;
        Icon icon;
        view::Size size;
    };
    struct Entry {
        base::Picture picture;
        Drawable drawable;
    };

    static Drawable read(const base::Picture& picture);
    static void drawBitmap(HDC context, const view::Rectangle& place, Drawable& drawn);
    Drawable& drawable(const base::Picture& picture);

    /// By the address of the bytes, which the entry keeps.
    std::map<const void*, Entry> known_;
};

}  // namespace huebrush::word
