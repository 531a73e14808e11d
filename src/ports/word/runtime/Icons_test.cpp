// SPDX-License-Identifier: MPL-2.0

#include "ports/word/graphics/Icons.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "base/Bitmap.h"
#include "base/Error.h"
#include "base/LittleEndian.h"
#include "ports/word/runtime/WindowsRuntime.h"
#include "ports/word/window/Pictures.h"

namespace huebrush::word {
namespace {

using base::Picture;
using base::PictureFormat;
using base::Pixels;
using Pixel = std::array<std::uint8_t, 3>;

constexpr Pixel kRed{0, 0, 255};
constexpr Pixel kBlue{255, 0, 0};

Pixel at(const Pixels& pixels, std::int32_t x, std::int32_t y) {
    const auto* const pixel = pixels.bytes.data() + pixels.offset(x, y);
    return {pixel[0], pixel[1], pixel[2]};
}

Picture blue(std::int32_t width, std::int32_t height) {
    std::vector<std::uint8_t> bytes;
    for (std::int32_t i = 0; i < width * height; ++i) {
        bytes.insert(bytes.end(), kBlue.begin(), kBlue.end());
    }
    return {PictureFormat::bitmap, base::bitmapFile(width, height, 3, bytes)};
}

/// An icon of 32 by 32 pixels that is red in its left half, and transparent in the other.
Picture halfRedIcon() {
    constexpr std::uint32_t kImage = 40 + 32 * 32 * 3 + 32 * 4;
    std::vector<std::uint8_t> file{0, 0, 1, 0, 1, 0, 32, 32, 0, 0, 1, 0, 24, 0};
    const auto append32 = [&](std::uint32_t number) {
        for (int shift = 0; shift < 32; shift += 8) {
            file.push_back(static_cast<std::uint8_t>(number >> shift & 0xFFU));
        }
    };
    append32(kImage);
    append32(22);
    for (const std::uint32_t field : {40U, 32U, 64U, 1U | 24U << 16U, 0U, 0U, 0U, 0U, 0U, 0U}) {
        append32(field);
    }
    for (int row = 0; row < 32; ++row) {
        for (int x = 0; x < 32; ++x) {
            file.insert(file.end(), {0, 0, static_cast<std::uint8_t>(x < 16 ? 255 : 0)});
        }
    }
    for (int row = 0; row < 32; ++row) file.insert(file.end(), {0, 0, 255, 255});
    return {PictureFormat::icon, file};
}

TEST(IconsTest, AnIconIsDrawnAtTheCornerByItsMask) {
    const Pixels drawn = base::decodeBitmap(drawIconOn(halfRedIcon(), blue(40, 40)).bytes());
    ASSERT_EQ(drawn.width, 40);
    ASSERT_EQ(drawn.height, 40);
    EXPECT_EQ(at(drawn, 0, 0), kRed);
    EXPECT_EQ(at(drawn, 15, 31), kRed);
    EXPECT_EQ(at(drawn, 16, 0), kBlue);
    EXPECT_EQ(at(drawn, 31, 31), kBlue);
    EXPECT_EQ(at(drawn, 0, 32), kBlue);
    EXPECT_EQ(at(drawn, 39, 39), kBlue);
}

TEST(IconsTest, ASmallCanvasShowsTheCornerOfTheIcon) {
    const Pixels drawn = base::decodeBitmap(drawIconOn(halfRedIcon(), blue(20, 10)).bytes());
    ASSERT_EQ(drawn.width, 20);
    ASSERT_EQ(drawn.height, 10);
    EXPECT_EQ(at(drawn, 15, 9), kRed);
    EXPECT_EQ(at(drawn, 16, 9), kBlue);
}

TEST(IconsTest, WhatCannotBeDrawnLeavesTheCanvasAsItIs) {
    WindowsRuntime runtime;
    const Picture canvas = blue(2, 2);
    EXPECT_EQ(runtime.DrawIcon({}, canvas), canvas);
    EXPECT_EQ(runtime.DrawIcon(canvas, canvas), canvas);
    EXPECT_EQ(runtime.DrawIcon(halfRedIcon(), {}), Picture());
    Picture cut = halfRedIcon();
    EXPECT_EQ(runtime.DrawIcon(
                  {PictureFormat::icon, {cut.bytes().begin(), cut.bytes().begin() + 99}}, canvas),
              canvas);
    EXPECT_FALSE(runtime.DrawIcon(halfRedIcon(), canvas) == canvas);
}

TEST(IconsTest, TheModuleHasTheIconsOfTheButtonsInTheUpperLeftCorner) {
    WindowsRuntime runtime;
    const Pixels plain = base::decodeBitmap(blue(32, 32).bytes());
    std::vector<Pixels> faces;
    for (const std::int32_t number : {101, 102, 103}) {
        SCOPED_TRACE(number);
        const Picture icon = runtime.Component().icon(number);
        ASSERT_EQ(icon.format(), PictureFormat::icon);
        faces.push_back(base::decodeBitmap(runtime.DrawIcon(icon, blue(32, 32)).bytes()));
        int drawn = 0;
        for (std::int32_t y = 0; y < 32; ++y) {
            for (std::int32_t x = 0; x < 32; ++x) {
                if (at(faces.back(), x, y) == at(plain, x, y)) continue;
                ++drawn;
                EXPECT_LT(x, 16);
                EXPECT_LT(y, 16);
            }
        }
        EXPECT_GT(drawn, 60);
        EXPECT_LT(drawn, 230);
    }
    EXPECT_FALSE(faces[0] == faces[1]);
    EXPECT_FALSE(faces[1] == faces[2]);
}

TEST(IconsTest, TheModuleHasTheIconsOfTheDialog) {
    WindowsRuntime runtime;
    for (const std::int32_t number : {200, 201, 300, 301}) {
        SCOPED_TRACE(number);
        const Picture icon = runtime.Component().icon(number);
        EXPECT_EQ(icon.format(), PictureFormat::icon);
        EXPECT_FALSE(runtime.DrawIcon(icon, blue(32, 32)) == runtime.DrawIcon({}, blue(32, 32)));
    }
    EXPECT_TRUE(runtime.Component().icon(104).empty());
}

TEST(IconPictures, APictureOfTheDialogsShowsWhatIsBelowWhereItIsTransparent) {
    constexpr std::int32_t kLogo = 401;
    const base::Picture logo = WindowsComponent().icon(kLogo);
    const WindowContext screen;
    const Context memory(::CreateCompatibleDC(screen.get()));
    const Bitmap bitmap(::CreateCompatibleBitmap(screen.get(), 130, 56));
    const Selected selected(memory.get(), bitmap.get());
    const RECT all{0, 0, 130, 56};
    const Brush green(::CreateSolidBrush(RGB(0, 255, 0)));
    ::FillRect(memory.get(), &all, green.get());
    Pictures pictures;
    EXPECT_EQ(pictures.sizeOf(logo), (view::Size{130, 56}));
    pictures.draw(memory.get(), {0, 0, 130, 56}, logo);
    int drawn = 0;
    for (int x = 0; x < 130; ++x) {
        for (int y = 0; y < 56; ++y) {
            if (::GetPixel(memory.get(), x, y) != RGB(0, 255, 0)) ++drawn;
        }
    }
    EXPECT_GT(drawn, 100);
    EXPECT_LT(drawn, 130 * 56 / 2);
    EXPECT_EQ(::GetPixel(memory.get(), 0, 0), RGB(0, 255, 0));
}

}  // namespace
}  // namespace huebrush::word
