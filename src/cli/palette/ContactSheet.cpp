// SPDX-License-Identifier: MPL-2.0

#include "cli/palette/ContactSheet.h"

#include <algorithm>
#include <array>

namespace huebrush::cli {

namespace {

/// In pixels; a place has the proportions of the previews that are made for palettes.
constexpr std::int32_t kWidth = 144;
constexpr std::int32_t kHeight = 45;
constexpr std::int32_t kGap = 8;
constexpr std::int32_t kMostColumns = 6;
constexpr std::size_t kColors = 3;

constexpr std::size_t kWhite = 255;

/// The average of a part of a picture, before white: blue, green, red.
std::array<std::uint8_t, kColors> averageOf(const base::Pixels& picture, std::int32_t left,
                                            std::int32_t top, std::int32_t right,
                                            std::int32_t bottom) {
    std::array<std::uint64_t, kColors> sums{};
    for (std::int32_t y = top; y < bottom; ++y) {
        for (std::int32_t x = left; x < right; ++x) {
            const std::size_t at = picture.offset(x, y);
            const std::size_t alpha = picture.bytes[at + kColors];
            for (std::size_t i = 0; i < kColors; ++i) {
                sums[i] += picture.bytes[at + i] * alpha + kWhite * (kWhite - alpha);
            }
        }
    }
    const auto pixels = static_cast<std::uint64_t>(right - left) *
                        static_cast<std::uint64_t>(bottom - top) * kWhite;
    std::array<std::uint8_t, kColors> average{};
    for (std::size_t i = 0; i < kColors; ++i) {
        average[i] = static_cast<std::uint8_t>((sums[i] + pixels / 2) / pixels);
    }
    return average;
}

/// The part of a length that a place of a reduced length shows.
std::int32_t scaled(std::int32_t place, std::int32_t length, std::int32_t reduced) {
    return static_cast<std::int32_t>(std::int64_t{place} * length / reduced);
}

}  // namespace

std::size_t ContactSheet::mostPlaces() {
    constexpr std::uint64_t kPixels = std::uint64_t{kWidth + kGap} * (kHeight + kGap);
    return static_cast<std::size_t>(base::kMostPixels / kPixels / 2);
}

ContactSheet::ContactSheet(std::size_t places)
    : columns_(static_cast<std::int32_t>(std::min<std::size_t>(places, kMostColumns))),
      width_(columns_ * (kWidth + kGap) + kGap) {
    const auto count = static_cast<std::int32_t>(places);
    height_ = (count + columns_ - 1) / columns_ * (kHeight + kGap) + kGap;
    colors_.assign(kColors * static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_),
                   kWhite);
}

ContactSheet::Corner ContactSheet::nextPlace() {
    const std::int32_t place = next_++;
    return {kGap + place % columns_ * (kWidth + kGap), kGap + place / columns_ * (kHeight + kGap)};
}

void ContactSheet::set(std::int32_t x, std::int32_t y, const Color& color) {
    const std::size_t at =
        kColors * (static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                   static_cast<std::size_t>(x));
    colors_[at] = color.red;
    colors_[at + 1] = color.green;
    colors_[at + 2] = color.blue;
}

void ContactSheet::add(const base::Pixels& picture) {
    const Corner corner = nextPlace();
    const double fit =
        std::min({1.0, double(kWidth) / picture.width, double(kHeight) / picture.height});
    const std::int32_t width = std::max(1, static_cast<std::int32_t>(picture.width * fit));
    const std::int32_t height = std::max(1, static_cast<std::int32_t>(picture.height * fit));
    for (std::int32_t y = 0; y < height; ++y) {
        for (std::int32_t x = 0; x < width; ++x) {
            const auto color = averageOf(
                picture, scaled(x, picture.width, width), scaled(y, picture.height, height),
                scaled(x + 1, picture.width, width), scaled(y + 1, picture.height, height));
            set(corner.x + x, corner.y + y, {color[2], color[1], color[0]});
        }
    }
}

void ContactSheet::addPlaceholder() {
    constexpr Color kGround{240, 240, 240};
    constexpr Color kFrame{160, 160, 160};
    const Corner corner = nextPlace();
    for (std::int32_t y = 0; y < kHeight; ++y) {
        for (std::int32_t x = 0; x < kWidth; ++x) {
            const bool isEdge = x == 0 || y == 0 || x == kWidth - 1 || y == kHeight - 1;
            set(corner.x + x, corner.y + y, isEdge ? kFrame : kGround);
        }
    }
}

}  // namespace huebrush::cli
