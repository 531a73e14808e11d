// SPDX-License-Identifier: MPL-2.0

#include "mapping/Image.h"

#include "base/Bitmap.h"
#include "base/Error.h"

namespace huebrush::mapping {

std::vector<std::uint8_t> bitmapFileOf(const Image& image) {
    constexpr int kBytesOfPixel = 3;
    std::vector<std::uint8_t> pixels;
    for (std::int32_t y = 0; y < image.height(); ++y) {
        for (std::int32_t x = 0; x < image.width(); ++x) {
            const std::int32_t color = image.at(x, y);
            for (int i = 0; i < kBytesOfPixel; ++i) {
                pixels.push_back(static_cast<std::uint8_t>(color >> (8 * i)));
            }
        }
    }
    return base::bitmapFile(image.width(), image.height(), kBytesOfPixel, pixels);
}

Image imageOfBitmapFile(const std::vector<std::uint8_t>& bytes) {
    Image image(0, 0);
    base::ignoring<base::Error>([&] {
        const base::Pixels pixels = base::decodeBitmap(bytes);
        image = Image(pixels.width, pixels.height);
        for (std::int32_t y = 0; y < pixels.height; ++y) {
            for (std::int32_t x = 0; x < pixels.width; ++x) {
                const std::uint8_t* const pixel = pixels.bytes.data() + pixels.offset(x, y);
                image.set(x, y, pixel[0] | pixel[1] << 8 | pixel[2] << 16);
            }
        }
    });
    return image;
}

}  // namespace huebrush::mapping
