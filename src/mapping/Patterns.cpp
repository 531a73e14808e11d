// SPDX-License-Identifier: MPL-2.0

#include "mapping/Patterns.h"

#include <algorithm>
#include <array>

namespace huebrush::mapping {

namespace {

/// 64 bits, a byte a row from the top, the left pixel in a byte's high bit; set bits have the fore
/// colour.
using Tile = std::uint64_t;

constexpr Tile kTopLeft = Tile{1} << 63U;

constexpr Tile bitAt(std::int32_t x, std::int32_t y) {
    return kTopLeft >> static_cast<std::uint32_t>(y * kPatternSize + x);
}

template <class Set>
constexpr Tile tileWhere(Set isSet) {
    Tile tile = 0;
    for (std::int32_t y = 0; y < kPatternSize; ++y) {
        for (std::int32_t x = 0; x < kPatternSize; ++x) {
            if (isSet(x, y)) tile |= bitAt(x, y);
        }
    }
    return tile;
}

/// The rank of a pixel, 0 to 63, in an ordered dither: any first n of them lie evenly.
constexpr std::int32_t ditherRank(std::int32_t x, std::int32_t y) {
    std::int32_t rank = 0;
    for (std::int32_t bit = 0; bit < 3; ++bit) {
        const std::int32_t column = (x >> bit) & 1;
        const std::int32_t row = (y >> bit) & 1;
        rank = rank * 4 + (column ^ row) * 2 + row;
    }
    return rank;
}

constexpr Tile percent(std::int32_t share) {
    return tileWhere(
        [share](std::int32_t x, std::int32_t y) { return ditherRank(x, y) * 100 < share * 64; });
}

constexpr std::int32_t modulo(std::int32_t number, std::int32_t by) {
    return (number % by + by) % by;
}

/// Stripes of `width` pixels in every `period`, falling from left to right or rising.
constexpr Tile falling(std::int32_t period, std::int32_t width) {
    return tileWhere([=](std::int32_t x, std::int32_t y) { return modulo(x - y, period) < width; });
}
constexpr Tile rising(std::int32_t period, std::int32_t width) {
    return tileWhere([=](std::int32_t x, std::int32_t y) { return modulo(x + y, period) < width; });
}
constexpr Tile horizontal(std::int32_t period, std::int32_t width) {
    return tileWhere([=](std::int32_t, std::int32_t y) { return y % period < width; });
}
constexpr Tile vertical(std::int32_t period, std::int32_t width) {
    return tileWhere([=](std::int32_t x, std::int32_t) { return x % period < width; });
}
constexpr Tile checkers(std::int32_t side) {
    return tileWhere(
        [=](std::int32_t x, std::int32_t y) { return (x / side + y / side) % 2 == 0; });
}

constexpr Tile kUpperHalf = 0xFFFFFFFF00000000U;

constexpr std::array<Tile, kPatternCount> kTiles = {
    // 1 to 12: shares of the fore colour
    percent(5), percent(10), percent(20), percent(25), percent(30), percent(40), percent(50),
    percent(60), percent(70), percent(75), percent(80), percent(90),
    // 13 to 18: dark stripes, small checker board, trellis
    horizontal(4, 2), vertical(4, 2), falling(4, 2), rising(4, 2), checkers(2), 0xFF66FF99FF66FF99U,
    // 19 to 24: light stripes, small grid, dotted diamond
    horizontal(4, 1), vertical(4, 1), falling(4, 1), rising(4, 1),
    horizontal(4, 1) | vertical(4, 1), 0x8000220008002200U,
    // 25 to 32: wide, dashed and narrow stripes
    falling(8, 3), rising(8, 3), rising(4, 1) & kUpperHalf, falling(4, 1) & kUpperHalf,
    vertical(2, 1), horizontal(2, 1),
    tileWhere([](std::int32_t x, std::int32_t y) { return x == (y < 4 ? 1 : 5); }),
    tileWhere([](std::int32_t x, std::int32_t y) { return y == (x < 4 ? 1 : 5); }),
    // 33 to 38: confetti, large grid, bricks, large checker board, small confetti, zigzag
    0xB1300318D8C00C8DU, horizontal(8, 1) | vertical(8, 1), 0xFF808080FF080808U, checkers(4),
    0x8010022001084004U, 0x8142241881422418U,
    // 39 to 44: diamonds, diagonal brick, plaid, sphere, weave
    0x10387CFE7C381000U, 0x0102040818244281U, 0x8244281028448201U, 0xAA55AA55F0F0F0F0U,
    0x7789F8F87798F8F8U, 0x8854224588142251U,
    // 45 to 48: dotted grid, divot, shingle, wave
    0xAA00800080008000U, 0x0008100800018001U, 0x0384483C0C020101U, 0x001825C0001825C0U,
    // 49 to 54: single lines
    horizontal(8, 1), vertical(8, 1), horizontal(8, 1) | vertical(8, 1) | bitAt(4, 4),
    falling(8, 1), rising(8, 1), falling(8, 1) | rising(8, 1)};

std::optional<std::int32_t> patternWithTile(Tile tile) {
    const auto* const found = std::find(kTiles.begin(), kTiles.end(), tile);
    if (found == kTiles.end()) return {};
    return static_cast<std::int32_t>(found - kTiles.begin()) + 1;
}

}  // namespace

Image patternTile(const PatternFill& fill) {
    const Tile tile = kTiles.at(static_cast<std::size_t>(fill.pattern - 1));
    Image image(kPatternSize, kPatternSize);
    for (std::int32_t y = 0; y < kPatternSize; ++y) {
        for (std::int32_t x = 0; x < kPatternSize; ++x) {
            image.set(x, y, (tile & bitAt(x, y)) != 0 ? fill.foreColor : fill.backColor);
        }
    }
    return image;
}

std::optional<PatternFill> patternOf(const Image& tile) {
    if (tile.width() != kPatternSize || tile.height() != kPatternSize) return {};
    const std::int32_t first = tile.at(0, 0);
    std::int32_t second = first;
    Tile bits = 0;
    for (std::int32_t y = 0; y < kPatternSize; ++y) {
        for (std::int32_t x = 0; x < kPatternSize; ++x) {
            const std::int32_t color = tile.at(x, y);
            if (color == first) {
                bits |= bitAt(x, y);
            } else if (second == first || color == second) {
                second = color;
            } else {
                return {};
            }
        }
    }
    if (second == first) return {};
    if (const auto pattern = patternWithTile(bits)) return PatternFill{*pattern, first, second};
    if (const auto pattern = patternWithTile(~bits)) return PatternFill{*pattern, second, first};
    return {};
}

}  // namespace huebrush::mapping
