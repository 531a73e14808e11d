// SPDX-License-Identifier: MPL-2.0

#include "ports/word/runtime/WindowsClipboard.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "base/Bitmap.h"
#include "base/Error.h"
#include "base/LittleEndian.h"

namespace huebrush::word {
namespace {

using base::Picture;
using base::PictureFormat;
using base::Pixels;

/// Two pixels beside each other: red and blue.
const std::vector<std::uint8_t> kRedAndBlue{0, 0, 255, 255, 255, 0, 0, 255};

/// What other programs put onto the clipboard.
void put(UINT format, HANDLE data) {
    ASSERT_TRUE(::OpenClipboard(nullptr));
    ASSERT_NE(::SetClipboardData(format, data), nullptr);
    ::CloseClipboard();
}

HGLOBAL blockOf(const void* bytes, std::size_t size) {
    const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(::GlobalLock(block), bytes, size);
    ::GlobalUnlock(block);
    return block;
}

HMETAFILE drawMetafile() {
    const HDC context = ::CreateMetaFileW(nullptr);
    ::SetWindowExtEx(context, 100, 50, nullptr);
    ::Rectangle(context, 0, 0, 100, 50);
    return ::CloseMetaFile(context);
}

class WindowsClipboardTest : public testing::Test {
 protected:
    WindowsClipboardTest() { clipboard.Clear(); }

    Pixels pixels() { return base::decodeBitmap(clipboard.GetData().bytes()); }
    void expectRedAndBlue() {
        Pixels read = pixels();
        base::ignoreUnusedAlpha(read);
        EXPECT_EQ(read, (Pixels{2, 1, kRedAndBlue}));
    }

    WindowsClipboard clipboard;
};

TEST_F(WindowsClipboardTest, AClearedClipboardHasNoPicture) {
    EXPECT_TRUE(clipboard.GetData().empty());
    clipboard.SetData({});
    EXPECT_TRUE(clipboard.GetData().empty());
}

TEST_F(WindowsClipboardTest, ABitmapComesBackPixelByPixel) {
    clipboard.SetData(base::bitmapOf(2, 1, kRedAndBlue));
    EXPECT_EQ(clipboard.GetData().format(), PictureFormat::bitmap);
    expectRedAndBlue();
}

TEST_F(WindowsClipboardTest, ABitmapIsThereForOtherProgramsInTheScreensFormat) {
    clipboard.SetData(base::bitmapOf(2, 1, kRedAndBlue));
    EXPECT_TRUE(::IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_TRUE(::IsClipboardFormatAvailable(CF_DIB));
}

TEST_F(WindowsClipboardTest, ABitmapWithoutAFileHeaderIsRead) {
    const std::vector<std::uint8_t> file = base::bitmapFile(2, 1, 3, {0, 0, 255, 255, 0, 0});
    put(CF_DIB, blockOf(file.data() + 14, file.size() - 14));
    expectRedAndBlue();
}

TEST_F(WindowsClipboardTest, ABitmapOfAFewColoursIsRead) {
    struct {
        BITMAPINFOHEADER header{sizeof(BITMAPINFOHEADER), 2, 1, 1, 1, BI_RGB, 0, 0, 0, 0, 0};
        RGBQUAD colors[2]{{0, 0, 255, 0}, {255, 0, 0, 0}};
        std::uint8_t row[4]{0x40, 0, 0, 0};
    } bitmap;
    put(CF_DIB, blockOf(&bitmap, sizeof(bitmap)));
    expectRedAndBlue();
}

TEST_F(WindowsClipboardTest, WhatIsNoBitmapIsAnError) {
    put(CF_DIB, blockOf("broken", 7));
    try {
        clipboard.GetData();
        FAIL();
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), 481);
    }
}

TEST_F(WindowsClipboardTest, AMetafileComesWithTheHeaderThatGivesItsSize) {
    // 60.7 by 19 points.
    const METAFILEPICT metafile{MM_ANISOTROPIC, 2141, 670, drawMetafile()};
    put(CF_METAFILEPICT, blockOf(&metafile, sizeof(metafile)));
    const Picture picture = clipboard.GetData();
    ASSERT_EQ(picture.format(), PictureFormat::metafile);
    const auto& bytes = picture.bytes();
    EXPECT_EQ(base::littleEndian32(bytes, 0), 0x9AC6CDD7U);
    EXPECT_EQ(base::littleEndian16(bytes, 6), 0U);
    EXPECT_EQ(base::littleEndian16(bytes, 10), 1214U);
    EXPECT_EQ(base::littleEndian16(bytes, 12), 380U);
    EXPECT_EQ(base::littleEndian16(bytes, 14), 1440U);
    unsigned sum = 0;
    for (std::size_t at = 0; at < 22; at += 2) sum ^= base::littleEndian16(bytes, at);
    EXPECT_EQ(sum, 0U);
}

TEST_F(WindowsClipboardTest, AMetafileComesBackAsItIs) {
    const METAFILEPICT metafile{MM_ANISOTROPIC, 2141, 670, drawMetafile()};
    put(CF_METAFILEPICT, blockOf(&metafile, sizeof(metafile)));
    const Picture first = clipboard.GetData();
    clipboard.SetData(first);
    EXPECT_EQ(clipboard.GetData(), first);
}

TEST_F(WindowsClipboardTest, AnEnhancedMetafileBecomesAMetafile) {
    const RECT frame{0, 0, 2141, 670};
    const HDC context = ::CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
    ASSERT_NE(context, nullptr);
    ::Rectangle(context, 0, 0, 50, 20);
    put(CF_ENHMETAFILE, ::CloseEnhMetaFile(context));
    const Picture picture = clipboard.GetData();
    EXPECT_EQ(picture.format(), PictureFormat::metafile);
    EXPECT_FALSE(picture.empty());
}

TEST_F(WindowsClipboardTest, TextIsNoPicture) {
    put(CF_UNICODETEXT, blockOf(L"text", 10));
    EXPECT_TRUE(clipboard.GetData().empty());
}

}  // namespace
}  // namespace huebrush::word
