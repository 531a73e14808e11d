#include "base/Bitmap.h"

#include <cstddef>
#include <utility>

namespace huebrush::base {

namespace {

constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kInfoHeader = 40;
constexpr int kBytesOfPixel = 4;

void put(std::vector<std::uint8_t>& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

}  // namespace

Picture bitmapOf(std::int32_t width, std::int32_t height, const std::vector<std::uint8_t>& pixels) {
    const auto size = static_cast<std::uint32_t>(pixels.size());
    std::vector<std::uint8_t> out{'B', 'M'};
    put(out, kFileHeader + kInfoHeader + size, 4);
    put(out, 0, 4);
    put(out, kFileHeader + kInfoHeader, 4);
    put(out, kInfoHeader, 4);
    put(out, static_cast<std::uint32_t>(width), 4);
    put(out, static_cast<std::uint32_t>(height), 4);
    put(out, 1, 2);
    put(out, 8 * kBytesOfPixel, 2);
    put(out, 0, 4);
    put(out, size, 4);
    out.resize(kFileHeader + kInfoHeader);
    const std::ptrdiff_t row = std::ptrdiff_t{width} * kBytesOfPixel;
    for (std::int32_t y = height; y-- > 0;) {
        const auto start = pixels.begin() + y * row;
        out.insert(out.end(), start, start + row);
    }
    return {PictureFormat::bitmap, std::move(out)};
}

}  // namespace huebrush::base
