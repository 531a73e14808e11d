// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/fill/Image.h"

#include "base/Bitmap.h"

namespace huebrush::libreoffice {

namespace {

constexpr std::size_t kFileHeaderSize = 14;
constexpr std::size_t kInfoHeaderSize = 40;
constexpr std::size_t kPixelsAtField = 10;
constexpr std::size_t kWidthField = 18;
constexpr std::size_t kHeightField = 22;
constexpr std::size_t kBitsField = 28;
constexpr std::size_t kCompressionField = 30;
constexpr std::int32_t kLargestSide = 4096;
constexpr std::uint32_t kBitFields = 3;

std::uint32_t get(const std::vector<std::uint8_t>& bytes, std::size_t at, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = count; i-- > 0;) value = (value << 8U) | bytes[at + i];
    return value;
}

std::size_t rowSize(std::size_t width, std::size_t bits) {
    return (width * bits + 31) / 32 * 4;
}

/// Reads the pixels of one file whose headers have been checked.
struct PixelReader {
    const std::vector<std::uint8_t>& bytes;
    std::size_t palette;
    std::size_t pixels;
    std::size_t bits;

    std::int32_t colorAt(std::size_t row, std::size_t x) const {
        if (bits >= 24) {
            return static_cast<std::int32_t>(get(bytes, row + x * bits / 8, 3));
        }
        const std::size_t shift = 8 - bits - x * bits % 8;
        const std::size_t entry = (bytes[row + x * bits / 8] >> shift) & ((1U << bits) - 1);
        const std::size_t color = palette + entry * 4;
        // A palette may be shorter than the depth allows; its end is where the pixels begin.
        return color + 4 <= pixels ? static_cast<std::int32_t>(get(bytes, color, 3)) : 0;
    }
};

}  // namespace

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
    if (bytes.size() < kFileHeaderSize + kInfoHeaderSize || bytes[0] != 'B' || bytes[1] != 'M') {
        return {0, 0};
    }
    const auto width = static_cast<std::int32_t>(get(bytes, kWidthField, 4));
    const auto height = static_cast<std::int32_t>(get(bytes, kHeightField, 4));
    const std::uint32_t compression = get(bytes, kCompressionField, 4);
    if (width < 1 || width > kLargestSide || height < 1 || height > kLargestSide) return {0, 0};
    PixelReader reader{bytes, kFileHeaderSize + get(bytes, kFileHeaderSize, 4),
                       get(bytes, kPixelsAtField, 4), get(bytes, kBitsField, 2)};
    const bool known = reader.bits == 1 || reader.bits == 4 || reader.bits == 8 ||
                       reader.bits == 24 || reader.bits == 32;
    const bool plain = compression == 0 || (compression == kBitFields && reader.bits == 32);
    if (!known || !plain) return {0, 0};
    const std::size_t row = rowSize(static_cast<std::size_t>(width), reader.bits);
    if (reader.pixels + row * static_cast<std::size_t>(height) > bytes.size()) return {0, 0};

    Image image(width, height);
    for (std::int32_t y = 0; y < height; ++y) {
        const std::size_t start = reader.pixels + row * static_cast<std::size_t>(height - 1 - y);
        for (std::int32_t x = 0; x < width; ++x) {
            image.set(x, y, reader.colorAt(start, static_cast<std::size_t>(x)));
        }
    }
    return image;
}

}  // namespace huebrush::libreoffice
