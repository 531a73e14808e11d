// SPDX-License-Identifier: MPL-2.0

#include "addin/ButtonFace.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "base/Bitmap.h"
#include "ports/memory/TestHost.h"

namespace huebrush::addin {
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

TEST(DrawIconOnPicture, DrawsAtTheTopLeftCornerAndShowsTheCanvasWhereTheIconIsClear) {
    const Picture canvas = bitmap(2, 2, {kBlue, kBlue, kBlue, kBlue});
    const Picture icon = bitmap(2, 1, {kRed, kClear});
    EXPECT_EQ(DrawIconOnPicture(icon, canvas), bitmap(2, 2, {kRed, kBlue, kBlue, kBlue}));
}

TEST(DrawIconOnPicture, TakesBitmapsOfOtherDepths) {
    const Picture canvas(PictureFormat::bitmap, base::bitmapFile(1, 2, 3, {255, 0, 0, 255, 0, 0}));
    const Picture icon = bitmap(1, 2, {kClear, kRed});
    EXPECT_EQ(DrawIconOnPicture(icon, canvas), bitmap(1, 2, {kBlue, kRed}));
}

TEST(DrawIconOnPicture, MixesByTheAlphaOfTheIcon) {
    const Picture canvas = bitmap(1, 1, {{0, 0, 0, 255}});
    const Picture icon = bitmap(1, 1, {{200, 100, 50, 128}});
    EXPECT_EQ(DrawIconOnPicture(icon, canvas), bitmap(1, 1, {{100, 50, 25, 255}}));
}

TEST(DrawIconOnPicture, RoundsWhatItMixesToTheNearest) {
    const Picture canvas = bitmap(1, 1, {{50, 50, 50, 255}});
    const Picture icon = bitmap(1, 1, {{100, 101, 102, 128}});
    // 75.098, 75.6 and 76.102
    EXPECT_EQ(DrawIconOnPicture(icon, canvas), bitmap(1, 1, {{75, 76, 76, 255}}));
}

TEST(DrawIconOnPicture, CutsAnIconThatIsLargerThanTheCanvas) {
    const Picture canvas = bitmap(1, 1, {kBlue});
    const Picture icon = bitmap(2, 2, {kRed, kRed, kRed, kRed});
    EXPECT_EQ(DrawIconOnPicture(icon, canvas), bitmap(1, 1, {kRed}));
}

TEST(DrawIconOnPicture, OnATransparentCanvasTheIconKeepsItsAlpha) {
    const std::vector<Pixel> pixels{kRed, {200, 100, 50, 128}, {9, 8, 7, 1}, {0, 0, 0, 0}};
    const Picture canvas = bitmap(2, 2, std::vector<Pixel>(4, {0, 0, 0, 0}));
    const Picture icon = bitmap(2, 2, pixels);
    EXPECT_EQ(DrawIconOnPicture(icon, canvas), icon);
}

TEST(DrawIconOnPicture, CoversAHalfTransparentCanvasByWhatEachOfThemShows) {
    const Picture canvas = bitmap(1, 1, {{0, 100, 200, 102}});
    const Picture icon = bitmap(1, 1, {{250, 100, 0, 51}});
    // The icon shows with 0.2, the canvas with 0.4 of the 0.8 that are left, both with 0.52.
    EXPECT_EQ(DrawIconOnPicture(icon, canvas), bitmap(1, 1, {{96, 100, 123, 133}}));
}

TEST(DrawIconOnPicture, AnEmptyCanvasStaysEmpty) {
    EXPECT_TRUE(DrawIconOnPicture(bitmap(1, 1, {kRed}), Picture()).empty());
}

TEST(DrawIconOnPicture, LeavesTheCanvasWhereEitherIsNoBitmap) {
    const Picture canvas = bitmap(1, 1, {kBlue});
    const Picture icon = bitmap(1, 1, {kRed});
    const Picture text(PictureFormat::icon, {'i', 'c', 'o', 'n'});
    EXPECT_EQ(DrawIconOnPicture(text, canvas), canvas);
    EXPECT_EQ(DrawIconOnPicture(icon, text), text);
    Bytes cut = icon.bytes();
    cut.pop_back();
    EXPECT_EQ(DrawIconOnPicture({PictureFormat::bitmap, cut}, canvas), canvas);
}

class SetButtonFaceTest : public ::testing::Test {
 protected:
    memory::TestHost test;
    std::shared_ptr<memory::MemoryBar> bar = test.application.bars.addExisting("Bar");
};

TEST_F(SetButtonFaceTest, WithoutAButtonDoesNothingAndLeavesTheClipboardAlone) {
    test.runtime.clipboard = bitmap(1, 1, {kRed});
    test.startLog();
    SetButtonFace(nullptr, 101);
    EXPECT_TRUE(test.calls().empty());
    EXPECT_EQ(test.runtime.clipboard, bitmap(1, 1, {kRed}));
}

TEST_F(SetButtonFaceTest, GivesTheButtonTheIconThroughTheClipboard) {
    const auto button = bar->addButton();
    test.startLog();
    SetButtonFace(button.get(), 102);
    EXPECT_EQ(bar->buttons[0]->face, test.runtime.Component().icon(102));
    EXPECT_EQ(test.runtime.clipboard, bar->buttons[0]->face);
    EXPECT_EQ(test.runtime.clipboardClears, 1U);
}

TEST_F(SetButtonFaceTest, DrawsOnTheButtonsOwnFace) {
    const auto button = bar->addButton();
    const Picture canvas = bitmap(2, 1, {kBlue, kBlue});
    bar->buttons[0]->face = canvas;
    SetButtonFace(button.get(), 102);
    EXPECT_EQ(bar->buttons[0]->face, DrawIconOnPicture(test.runtime.Component().icon(102), canvas));
    EXPECT_FALSE(bar->buttons[0]->face == canvas);
}

TEST_F(SetButtonFaceTest, AButtonWithoutAFaceGetsAnEmptyPicture) {
    const auto button = bar->addButton();
    bar->buttons[0]->face = {};
    test.runtime.clipboard = bitmap(1, 1, {kRed});
    SetButtonFace(button.get(), 102);
    EXPECT_TRUE(bar->buttons[0]->face.empty());
    EXPECT_TRUE(test.runtime.clipboard.empty());
}

}  // namespace
}  // namespace huebrush::addin
