// SPDX-License-Identifier: MPL-2.0

#include "ports/word/testhost/PaintedFill.h"

#include <array>
#include <cstdint>

#include "base/Bitmap.h"

namespace huebrush::word {

namespace {

constexpr std::int32_t kWidth = 81;
constexpr std::int32_t kHeight = 25;
constexpr std::int32_t kSquare = 4;

/// Blue, green and red, from 0 to 255.
using Color = std::array<double, 3>;

/// Of a colour of the host, 0xBBGGRR.
Color colorOf(std::int32_t color) {
    return {static_cast<double>(color >> 16 & 0xFF), static_cast<double>(color >> 8 & 0xFF),
            static_cast<double>(color & 0xFF)};
}

Color mixed(const Color& first, const Color& second, double share) {
    Color result{};
    for (std::size_t i = 0; i < result.size(); ++i) {
        result[i] = first[i] + (second[i] - first[i]) * share;
    }
    return result;
}

Color colorAt(const memory::FillState& fill, std::int32_t x, std::int32_t y) {
    const Color fore = colorOf(fill.ForeColorRGB);
    const Color back = colorOf(fill.BackColorRGB);
    if (fill.Type == host::MsoFillType::msoFillGradient) {
        return mixed(fore, back, static_cast<double>(x) / (kWidth - 1));
    }
    const bool isOdd = (x / kSquare + y / kSquare) % 2 != 0;
    return fill.Type == host::MsoFillType::msoFillPatterned && isOdd ? back : fore;
}

}  // namespace

base::Picture paintedFill(const memory::FillState& fill) {
    const Color white = colorOf(0xFFFFFF);
    base::Pixels pixels{kWidth, kHeight, {}};
    for (std::int32_t y = 0; y < kHeight; ++y) {
        for (std::int32_t x = 0; x < kWidth; ++x) {
            for (const double part : mixed(colorAt(fill, x, y), white, fill.Transparency)) {
                pixels.bytes.push_back(static_cast<std::uint8_t>(part + 0.5));
            }
            pixels.bytes.push_back(0xFF);
        }
    }
    return {base::PictureFormat::bitmap, base::bitmapOnWhite(pixels)};
}

}  // namespace huebrush::word
