// SPDX-License-Identifier: MPL-2.0

#include "forms/DrawIcon.h"

#include <algorithm>
#include <optional>

#include "base/Bitmap.h"
#include "base/Error.h"

namespace huebrush::forms {

namespace {

/// The pixels of a bitmap; none of any other picture.
std::optional<base::Pixels> pixelsOf(const base::Picture& picture) {
    std::optional<base::Pixels> pixels;
    base::ignoring<base::Error>([&] { pixels = base::decodeBitmap(picture.bytes()); });
    return pixels;
}

/// Lays one pixel over another. Where both are transparent, the lower one stays as it is.
void blend(const std::uint8_t* over, std::uint8_t* under) {
    constexpr unsigned kOpaque = 255;
    // How much either counts, of 255 times 255.
    const unsigned upper = over[3] * kOpaque;
    const unsigned lower = under[3] * (kOpaque - over[3]);
    const unsigned both = upper + lower;
    if (both == 0) return;
    for (int channel = 0; channel < 3; ++channel) {
        const unsigned mixed = over[channel] * upper + under[channel] * lower;
        under[channel] = static_cast<std::uint8_t>((mixed + both / 2) / both);
    }
    under[3] = static_cast<std::uint8_t>((both + kOpaque / 2) / kOpaque);
}

}  // namespace

base::Picture drawIcon(const base::Picture& icon, const base::Picture& canvas) {
    const auto source = pixelsOf(icon);
    auto target = pixelsOf(canvas);
    if (!source || !target) return canvas;
    for (std::int32_t y = 0; y < std::min(source->height, target->height); ++y) {
        for (std::int32_t x = 0; x < std::min(source->width, target->width); ++x) {
            blend(source->bytes.data() + source->offset(x, y),
                  target->bytes.data() + target->offset(x, y));
        }
    }
    return base::bitmapOf(*target);
}

}  // namespace huebrush::forms
