// SPDX-License-Identifier: MPL-2.0

#include "base/Bitmap.h"

#include <cstddef>

#include "base/BitmapHeader.h"

namespace huebrush::base {

namespace {

constexpr std::uint32_t kHeaders = kBitmapFileHeader + kBitmapInfoHeader;

void put(std::vector<std::uint8_t>& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

/// The headers of a file of that many bits a pixel, with the bytes of its table of colours, and of
/// its rows.
std::vector<std::uint8_t> headersOf(std::int32_t width, std::int32_t height, int bitsOfPixel,
                                    std::uint32_t table, std::size_t rows) {
    std::vector<std::uint8_t> out{'B', 'M'};
    const std::uint32_t start = kHeaders + table;
    out.reserve(start + rows);
    put(out, start + static_cast<std::uint32_t>(rows), 4);
    put(out, 0, 4);
    put(out, start, 4);
    put(out, kBitmapInfoHeader, 4);
    put(out, static_cast<std::uint32_t>(width), 4);
    put(out, static_cast<std::uint32_t>(height), 4);
    put(out, 1, 2);
    put(out, static_cast<std::uint32_t>(bitsOfPixel), 2);
    put(out, 0, 4);
    put(out, static_cast<std::uint32_t>(rows), 4);
    out.resize(kHeaders);
    return out;
}

}  // namespace

std::vector<std::uint8_t> bitmapFile(std::int32_t width, std::int32_t height, int bytesOfPixel,
                                     const std::vector<std::uint8_t>& pixels) {
    const std::ptrdiff_t row = std::ptrdiff_t{width} * bytesOfPixel;
    const std::size_t padding = static_cast<std::size_t>(-row) % 4;
    const std::size_t size =
        (static_cast<std::size_t>(row) + padding) * static_cast<std::size_t>(height);
    std::vector<std::uint8_t> out = headersOf(width, height, 8 * bytesOfPixel, 0, size);
    for (std::int32_t y = height; y-- > 0;) {
        const auto start = pixels.begin() + y * row;
        out.insert(out.end(), start, start + row);
        out.resize(out.size() + padding);
    }
    return out;
}

std::vector<std::uint8_t> bitmapOnWhite(const Pixels& pixels) {
    constexpr int kWhite = 255;
    constexpr int kColors = 3;
    std::vector<std::uint8_t> colors;
    colors.reserve(pixels.bytes.size() / Pixels::kBytes * kColors);
    for (std::size_t at = 0; at < pixels.bytes.size(); at += Pixels::kBytes) {
        const int alpha = pixels.bytes[at + kColors];
        for (std::size_t i = 0; i < kColors; ++i) {
            const int blended = pixels.bytes[at + i] * alpha + kWhite * (kWhite - alpha);
            colors.push_back(static_cast<std::uint8_t>((blended + kWhite / 2) / kWhite));
        }
    }
    return bitmapFile(pixels.width, pixels.height, kColors, colors);
}

std::vector<std::uint8_t> bitmapFileIn(Rgb color, std::int32_t width, std::int32_t height) {
    constexpr int kColors = 2;
    constexpr std::uint32_t kTable = 4 * kColors;
    // A row has whole groups of 32 pixels, with four bytes each.
    const std::size_t rows =
        4 * ((static_cast<std::size_t>(width) + 31) / 32) * static_cast<std::size_t>(height);
    std::vector<std::uint8_t> out = headersOf(width, height, 1, kTable, rows);
    for (int i = 0; i < kColors; ++i) {
        put(out, static_cast<std::uint32_t>(swapRedAndBlue(color)), 4);
    }
    out.resize(out.size() + rows);
    return out;
}

Picture bitmapOf(std::int32_t width, std::int32_t height, const std::vector<std::uint8_t>& pixels) {
    return {PictureFormat::bitmap, bitmapFile(width, height, 4, pixels)};
}

Picture bitmapOf(const Pixels& pixels) {
    return bitmapOf(pixels.width, pixels.height, pixels.bytes);
}

}  // namespace huebrush::base
