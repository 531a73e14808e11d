// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/Pictures.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/Bitmap.h"
#include "base/Error.h"
#include "ports/word/graphics/PictureFormats.h"

namespace huebrush::word {
namespace {

/// A green ground of 20 × 20 pixels to draw on.
class PicturesTest : public testing::Test {
 protected:
    PicturesTest() {
        const RECT all{0, 0, 20, 20};
        const Brush green(::CreateSolidBrush(RGB(0, 255, 0)));
        ::FillRect(memory.get(), &all, green.get());
    }
    COLORREF at(int x, int y) const { return ::GetPixel(memory.get(), x, y); }
    void draw(const base::Picture& picture) { pictures.draw(memory.get(), {4, 4, 8, 8}, picture); }

    WindowContext screen;
    Context memory{::CreateCompatibleDC(screen.get())};
    Bitmap bitmap{::CreateCompatibleBitmap(screen.get(), 20, 20)};
    Selected selected{memory.get(), bitmap.get()};
    Pictures pictures;
};

base::Picture metafileOf(COLORREF colour) {
    const HDC recording = ::CreateMetaFileW(nullptr);
    const Brush brush(::CreateSolidBrush(colour));
    ::SetMapMode(recording, MM_ANISOTROPIC);
    ::SetWindowExtEx(recording, 100, 50, nullptr);
    {
        const Selected inside(recording, brush.get());
        ::Rectangle(recording, 0, 0, 100, 50);
    }
    const METAFILEPICT metafile{MM_ANISOTROPIC, 2000, 1000, ::CloseMetaFile(recording)};
    const base::Picture picture = fromMetafile(metafile);
    ::DeleteMetaFile(metafile.hMF);
    return picture;
}

base::Picture enhancedMetafileOf(COLORREF colour) {
    const RECT frame{0, 0, 2000, 1000};
    const HDC recording = ::CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
    const Brush brush(::CreateSolidBrush(colour));
    {
        const Selected inside(recording, brush.get());
        ::Rectangle(recording, -10, -10, 1000, 1000);
    }
    const EnhancedMetafile metafile(::CloseEnhMetaFile(recording));
    std::vector<std::uint8_t> bytes(::GetEnhMetaFileBits(metafile.get(), 0, nullptr));
    ::GetEnhMetaFileBits(metafile.get(), static_cast<UINT>(bytes.size()), bytes.data());
    return {base::PictureFormat::metafile, bytes};
}

TEST_F(PicturesTest, ABitmapFillsItsPlaceAndNothingElse) {
    const base::Picture picture(base::PictureFormat::bitmap,
                                base::bitmapFileIn(base::rgb(10, 20, 30), 2, 2));
    EXPECT_EQ(pictures.sizeOf(picture), (view::Size{2, 2}));
    draw(picture);
    EXPECT_EQ(at(4, 4), RGB(10, 20, 30));
    EXPECT_EQ(at(11, 11), RGB(10, 20, 30));
    EXPECT_EQ(at(3, 3), RGB(0, 255, 0));
    EXPECT_EQ(at(12, 12), RGB(0, 255, 0));
}

TEST_F(PicturesTest, WhereABitmapIsTransparentItIsWhite) {
    base::Pixels pixels{2, 1, {0, 0, 255, 255, 0, 0, 255, 0}};
    draw(base::bitmapOf(pixels));
    EXPECT_EQ(at(5, 8), RGB(255, 0, 0));
    EXPECT_EQ(at(10, 8), RGB(255, 255, 255));
}

TEST_F(PicturesTest, WhereAnIconIsTransparentItShowsWhatIsBelow) {
    std::vector<std::uint8_t> file{0, 0,  1, 0,  1, 0, 2, 1,  0, 0, 1,
                                   0, 32, 0, 52, 0, 0, 0, 22, 0, 0, 0};
    const std::vector<std::uint8_t> header{40, 0, 0, 0, 2, 0, 0, 0, 2, 0, 0, 0, 1, 0, 32, 0};
    file.insert(file.end(), header.begin(), header.end());
    file.resize(22 + 40);
    const std::vector<std::uint8_t> pixels{0, 0, 255, 255, 0, 0, 255, 0, 0, 0, 0, 0};
    file.insert(file.end(), pixels.begin(), pixels.end());
    const base::Picture icon(base::PictureFormat::icon, file);
    EXPECT_EQ(pictures.sizeOf(icon), (view::Size{2, 1}));
    draw(icon);
    EXPECT_EQ(at(5, 8), RGB(255, 0, 0));
    EXPECT_EQ(at(10, 8), RGB(0, 255, 0));
}

TEST_F(PicturesTest, MetafilesOfBothKindsHaveTheirProportionsAndFillTheirPlace) {
    for (const base::Picture& picture :
         {metafileOf(RGB(0, 0, 255)), enhancedMetafileOf(RGB(0, 0, 255))}) {
        const auto size = pictures.sizeOf(picture);
        ASSERT_TRUE(size);
        EXPECT_NEAR(double(size->width) / size->height, 2, 0.1);
        draw(picture);
        EXPECT_EQ(at(8, 8), RGB(0, 0, 255));
        EXPECT_EQ(at(2, 2), RGB(0, 255, 0));
        EXPECT_EQ(at(14, 14), RGB(0, 255, 0));
    }
}

TEST_F(PicturesTest, WhatIsNoPictureHasNoSizeAndIsNotDrawn) {
    const base::Picture broken(base::PictureFormat::bitmap, {'B', 'M', 1, 2, 3});
    for (const base::Picture& picture : {broken, base::Picture()}) {
        EXPECT_FALSE(pictures.sizeOf(picture));
        draw(picture);
        EXPECT_EQ(at(8, 8), RGB(0, 255, 0));
    }
}

}  // namespace
}  // namespace huebrush::word
