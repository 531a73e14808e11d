// SPDX-License-Identifier: MPL-2.0

#include "forms/DrawIcon.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "base/Bitmap.h"

namespace huebrush::forms {
namespace {

using base::Picture;
using base::PictureFormat;
using Bytes = std::vector<std::uint8_t>;

/// One pixel: blue, green, red, alpha.
struct Pixel {
    std::uint8_t blue;
    std::uint8_t green;
    std::uint8_t red;
    std::uint8_t alpha;
};
constexpr Pixel kClear{9, 9, 9, 0};
constexpr Pixel kRed{0, 0, 255, 255};
constexpr Pixel kBlue{255, 0, 0, 255};

Picture bitmap(std::int32_t width, std::int32_t height, const std::vector<Pixel>& pixels) {
    Bytes bytes;
    for (const Pixel& pixel : pixels) {
        bytes.insert(bytes.end(), {pixel.blue, pixel.green, pixel.red, pixel.alpha});
    }
    return base::bitmapOf(width, height, bytes);
}

TEST(DrawIcon, DrawsAtTheTopLeftCornerAndShowsTheCanvasWhereTheIconIsClear) {
    const Picture canvas = bitmap(2, 2, {kBlue, kBlue, kBlue, kBlue});
    const Picture icon = bitmap(2, 1, {kRed, kClear});
    EXPECT_EQ(drawIcon(icon, canvas), bitmap(2, 2, {kRed, kBlue, kBlue, kBlue}));
}

TEST(DrawIcon, TakesBitmapsOfOtherDepths) {
    const Picture canvas(PictureFormat::bitmap, base::bitmapFile(1, 2, 3, {255, 0, 0, 255, 0, 0}));
    const Picture icon = bitmap(1, 2, {kClear, kRed});
    EXPECT_EQ(drawIcon(icon, canvas), bitmap(1, 2, {kBlue, kRed}));
}

TEST(DrawIcon, MixesByTheAlphaOfTheIcon) {
    const Picture canvas = bitmap(1, 1, {{0, 0, 0, 255}});
    const Picture icon = bitmap(1, 1, {{200, 100, 50, 128}});
    EXPECT_EQ(drawIcon(icon, canvas), bitmap(1, 1, {{100, 50, 25, 255}}));
}

TEST(DrawIcon, RoundsWhatItMixesToTheNearest) {
    const Picture canvas = bitmap(1, 1, {{50, 50, 50, 255}});
    const Picture icon = bitmap(1, 1, {{100, 101, 102, 128}});
    // 75.098, 75.6 and 76.102
    EXPECT_EQ(drawIcon(icon, canvas), bitmap(1, 1, {{75, 76, 76, 255}}));
}

TEST(DrawIcon, CutsAnIconThatIsLargerThanTheCanvas) {
    const Picture canvas = bitmap(1, 1, {kBlue});
    const Picture icon = bitmap(2, 2, {kRed, kRed, kRed, kRed});
    EXPECT_EQ(drawIcon(icon, canvas), bitmap(1, 1, {kRed}));
}

TEST(DrawIcon, OnATransparentCanvasTheIconKeepsItsAlpha) {
    const std::vector<Pixel> pixels{kRed, {200, 100, 50, 128}, {9, 8, 7, 1}, {0, 0, 0, 0}};
    const Picture canvas = bitmap(2, 2, std::vector<Pixel>(4, {0, 0, 0, 0}));
    const Picture icon = bitmap(2, 2, pixels);
    EXPECT_EQ(drawIcon(icon, canvas), icon);
}

TEST(DrawIcon, CoversAHalfTransparentCanvasByWhatEachOfThemShows) {
    const Picture canvas = bitmap(1, 1, {{0, 100, 200, 102}});
    const Picture icon = bitmap(1, 1, {{250, 100, 0, 51}});
    // The icon shows with 0.2, the canvas with 0.4 of the 0.8 that are left, both with 0.52.
    EXPECT_EQ(drawIcon(icon, canvas), bitmap(1, 1, {{96, 100, 123, 133}}));
}

TEST(DrawIcon, AnEmptyCanvasStaysEmpty) {
    EXPECT_TRUE(drawIcon(bitmap(1, 1, {kRed}), Picture()).empty());
}

TEST(DrawIcon, LeavesTheCanvasWhereEitherIsNoBitmap) {
    const Picture canvas = bitmap(1, 1, {kBlue});
    const Picture icon = bitmap(1, 1, {kRed});
    const Picture text(PictureFormat::icon, {'i', 'c', 'o', 'n'});
    EXPECT_EQ(drawIcon(text, canvas), canvas);
    EXPECT_EQ(drawIcon(icon, text), text);
    Bytes cut = icon.bytes();
    cut.pop_back();
    EXPECT_EQ(drawIcon({PictureFormat::bitmap, cut}, canvas), canvas);
}

}  // namespace
}  // namespace huebrush::forms
