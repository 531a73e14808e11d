// SPDX-License-Identifier: MPL-2.0

#include "addin/ButtonFace.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

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

void putNumber(Bytes& bytes, std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

/// A 32-bit bitmap file of the pixels, given from the top left on; `height` negative for one that
/// is stored from the top down.
Picture bitmap(std::int32_t width, std::int32_t height, const std::vector<Pixel>& pixels) {
    Bytes bytes(54, 0);
    bytes[0] = 'B';
    bytes[1] = 'M';
    putNumber(bytes, 10, 54);
    putNumber(bytes, 14, 40);
    putNumber(bytes, 18, static_cast<std::uint32_t>(width));
    putNumber(bytes, 22, static_cast<std::uint32_t>(height));
    bytes[26] = 1;
    bytes[28] = 32;
    const auto rows = static_cast<std::size_t>(height < 0 ? -height : height);
    for (std::size_t row = 0; row < rows; ++row) {
        const std::size_t from = height < 0 ? row : rows - 1 - row;
        for (std::size_t x = 0; x < static_cast<std::size_t>(width); ++x) {
            const Pixel& pixel = pixels[from * static_cast<std::size_t>(width) + x];
            bytes.insert(bytes.end(), {pixel.blue, pixel.green, pixel.red, pixel.alpha});
        }
    }
    return {PictureFormat::bitmap, bytes};
}

TEST(DrawIconOnPicture, DrawsAtTheTopLeftCornerAndShowsTheCanvasWhereTheIconIsClear) {
    const Picture canvas = bitmap(2, 2, {kBlue, kBlue, kBlue, kBlue});
    const Picture icon = bitmap(2, 1, {kRed, kClear});
    EXPECT_EQ(DrawIconOnPicture(icon, canvas), bitmap(2, 2, {kRed, kBlue, kBlue, kBlue}));
}

TEST(DrawIconOnPicture, ReadsBothWaysOfStoringRows) {
    const Picture canvas = bitmap(1, -2, {kBlue, kBlue});
    const Picture icon = bitmap(1, 2, {kClear, kRed});
    EXPECT_EQ(DrawIconOnPicture(icon, canvas), bitmap(1, -2, {kBlue, kRed}));
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

TEST(DrawIconOnPicture, LeavesTheCanvasWhereEitherIsNoBitmapOfThisForm) {
    const Picture canvas = bitmap(1, 1, {kBlue});
    const Picture icon = bitmap(1, 1, {kRed});
    const Picture text(PictureFormat::icon, {'i', 'c', 'o', 'n'});
    EXPECT_EQ(DrawIconOnPicture(text, canvas), canvas);
    EXPECT_EQ(DrawIconOnPicture(icon, text), text);
    Bytes wrong = icon.bytes();
    wrong[28] = 24;
    EXPECT_EQ(DrawIconOnPicture({PictureFormat::bitmap, wrong}, canvas), canvas);
}

TEST(DrawIconOnPicture, NoCutOrHostileBitmapIsReadBeyondItsEnd) {
    const Picture canvas = bitmap(2, 2, {kBlue, kBlue, kBlue, kBlue});
    const Bytes whole = bitmap(2, 2, {kRed, kRed, kRed, kRed}).bytes();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(DrawIconOnPicture({PictureFormat::bitmap, cut}, canvas), canvas) << size;
    }
    for (const std::size_t field : {10U, 18U, 22U}) {
        for (const std::uint32_t value : {0U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
            Bytes hostile = whole;
            putNumber(hostile, field, value);
            if (field == 22 && value == 0xFFFFFFFFU) continue;  // One row, stored top down.
            if (field == 10 && value == 0) continue;            // The headers read as pixels.
            EXPECT_EQ(DrawIconOnPicture({PictureFormat::bitmap, hostile}, canvas), canvas)
                << field << " " << value;
        }
    }
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
