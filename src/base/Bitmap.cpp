// SPDX-License-Identifier: MPL-2.0

#include "base/Bitmap.h"

#include <cstddef>

namespace huebrush::base {

namespace {

constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kInfoHeader = 40;
constexpr std::uint32_t kHeaders = kFileHeader + kInfoHeader;

void put(std::vector<std::uint8_t>& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

}  // namespace

std::vector<std::uint8_t> bitmapFile(std::int32_t width, std::int32_t height, int bytesOfPixel,
                                     const std::vector<std::uint8_t>& pixels) {
    const std::ptrdiff_t row = std::ptrdiff_t{width} * bytesOfPixel;
    const std::size_t padding = static_cast<std::size_t>(-row) % 4;
    const std::size_t size =
        (static_cast<std::size_t>(row) + padding) * static_cast<std::size_t>(height);
    std::vector<std::uint8_t> out{'B', 'M'};
    out.reserve(kHeaders + size);
    put(out, kHeaders + static_cast<std::uint32_t>(size), 4);
    put(out, 0, 4);
    put(out, kHeaders, 4);
    put(out, kInfoHeader, 4);
    put(out, static_cast<std::uint32_t>(width), 4);
    put(out, static_cast<std::uint32_t>(height), 4);
    put(out, 1, 2);
    put(out, static_cast<std::uint32_t>(8 * bytesOfPixel), 2);
    put(out, 0, 4);
    put(out, static_cast<std::uint32_t>(size), 4);
    out.resize(kHeaders);
    for (std::int32_t y = height; y-- > 0;) {
        const auto start = pixels.begin() + y * row;
        out.insert(out.end(), start, start + row);
        out.resize(out.size() + padding);
    }
    return out;
}

Picture bitmapOf(std::int32_t width, std::int32_t height, const std::vector<std::uint8_t>& pixels) {
    return {PictureFormat::bitmap, bitmapFile(width, height, 4, pixels)};
}

Picture bitmapOf(const Pixels& pixels) {
    return bitmapOf(pixels.width, pixels.height, pixels.bytes);
}

}  // namespace huebrush::base
