// SPDX-License-Identifier: MPL-2.0

#include "base/Bitmap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>

#include "base/Allocations_test_support.h"
#include "base/Bitmaps_test_support.h"
#include "base/Error.h"
#include "base/PictureFile.h"

namespace huebrush::base {
namespace {

using Bytes = std::vector<std::uint8_t>;

const BitmapSample& sample(std::string_view name) {
    const auto& all = bitmapSamples();
    const auto found = std::ranges::find(all, name, &BitmapSample::name);
    if (found == all.end()) throw std::logic_error("no sample " + std::string(name));
    return *found;
}

Bytes with(Bytes file, std::size_t at, std::uint32_t value, std::size_t bytes = 4) {
    for (std::size_t i = 0; i < bytes; ++i) {
        file.at(at + i) = static_cast<std::uint8_t>(value >> (8 * i));
    }
    return file;
}

/// The number of the error that a body raises; 0 for none.
template <class Body>
std::int32_t errorOf(const Body& body) {
    try {
        body();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

/// Both ways of reading take the same files. Whether this is one.
bool isBitmap(const Bytes& file) {
    const std::int32_t decoding = errorOf([&] { decodeBitmap(file); });
    EXPECT_TRUE(decoding == 0 || decoding == ErrorNumber::kInvalidPicture) << decoding;
    EXPECT_EQ(errorOf([&] { requireBitmap(file); }), decoding);
    return decoding == 0;
}

TEST(Bitmaps, ShowTheSamePixelsInEveryForm) {
    EXPECT_GT(bitmapSamples().size(), 60U);
    for (const BitmapSample& each : bitmapSamples()) {
        EXPECT_TRUE(decodeBitmap(each.file) == each.pixels) << each.name;
    }
}

TEST(Bitmaps, WrittenOnesReadBack) {
    const Pixels pixels = sample("32-40").pixels;
    EXPECT_EQ(decodeBitmap(bitmapOf(pixels).bytes()), pixels);
    const Bytes colors{1, 2, 3, 4, 5, 6};
    const Pixels opaque{2, 1, {1, 2, 3, 255, 4, 5, 6, 255}};
    EXPECT_EQ(decodeBitmap(bitmapFile(2, 1, 3, colors)), opaque);
}

TEST(Bitmaps, BeforeAWhiteGroundHaveNoAlpha) {
    const Pixels given{3, 1, {10, 20, 30, 255, 10, 20, 30, 0, 0, 100, 255, 51}};
    EXPECT_EQ(decodeBitmap(bitmapOnWhite(given)),
              (Pixels{3, 1, {10, 20, 30, 255, 255, 255, 255, 255, 204, 224, 255, 255}}));
}

TEST(Bitmaps, OfOneColourReadBack) {
    const Bytes file = bitmapFileIn(rgb(3, 2, 1), 33, 2);
    EXPECT_EQ(file.size(), 14U + 40U + 8U + 2U * 8U);
    const Pixels read = decodeBitmap(file);
    EXPECT_EQ(read.width, 33);
    EXPECT_EQ(read.height, 2);
    Bytes expected;
    for (int i = 0; i < 66; ++i) expected.insert(expected.end(), {1, 2, 3, 255});
    EXPECT_EQ(read.bytes, expected);
}

TEST(Bitmaps, KeepTheFourthByteOfPixelsWithoutBitFields) {
    const Pixels clear{1, 1, {1, 2, 3, 0}};
    Pixels read = decodeBitmap(bitmapOf(clear).bytes());
    EXPECT_EQ(read, clear);
    ignoreUnusedAlpha(read);
    EXPECT_EQ(read, (Pixels{1, 1, {1, 2, 3, 255}}));
    Pixels partly{2, 1, {1, 2, 3, 0, 4, 5, 6, 1}};
    ignoreUnusedAlpha(partly);
    EXPECT_EQ(partly.bytes[3], 0);
}

TEST(Bitmaps, CutAnywhereAreRefused) {
    for (const BitmapSample& each : bitmapSamples()) {
        for (std::size_t size = 0; size < each.file.size(); ++size) {
            const Bytes cut(each.file.begin(),
                            each.file.begin() + static_cast<std::ptrdiff_t>(size));
            ASSERT_FALSE(isBitmap(cut)) << each.name << " " << size;
        }
    }
}

TEST(Bitmaps, MayBeLongerThanTheyNeed) {
    Bytes file = sample("8-40").file;
    file.resize(file.size() + 1000);
    EXPECT_EQ(decodeBitmap(file), sample("8-40").pixels);
}

TEST(Bitmaps, WithNumbersThatFitNowhereAreRefused) {
    const Bytes& file = sample("24-40").file;
    constexpr std::uint32_t kNumbers[] = {0, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    for (const std::size_t field : {10U, 14U, 18U, 22U, 30U}) {
        for (const std::uint32_t number : kNumbers) {
            // No compression; and one row, from the top.
            if ((field == 30 && number == 0) || (field == 22 && number == 0xFFFFFFFF)) continue;
            EXPECT_FALSE(isBitmap(with(file, field, number))) << field << " " << number;
        }
    }
    for (const std::uint32_t planes : {0U, 2U}) EXPECT_FALSE(isBitmap(with(file, 26, planes, 2)));
    for (const std::uint32_t bits : {0U, 2U, 3U, 15U, 48U, 64U, 65535U}) {
        EXPECT_FALSE(isBitmap(with(file, 28, bits, 2))) << bits;
    }
    for (const std::uint32_t header : {11U, 13U, 39U, 41U, 53U, 65U, 107U, 125U}) {
        EXPECT_FALSE(isBitmap(with(file, 14, header))) << header;
    }
    for (const std::uint32_t compression : {1U, 2U, 3U, 4U, 5U, 6U, 7U}) {
        EXPECT_FALSE(isBitmap(with(file, 30, compression))) << compression;
    }
}

TEST(Bitmaps, WithRunsDoNotBeginAtTheTop) {
    const Bytes& file = sample("rle8").file;
    const auto height = static_cast<std::uint32_t>(-sample("rle8").pixels.height);
    EXPECT_FALSE(isBitmap(with(file, 22, height)));
}

TEST(Bitmaps, HaveBitFieldsOfOneRunOfBitsEachThatDoNotOverlap) {
    const Bytes& file = sample("32-fields").file;
    EXPECT_TRUE(isBitmap(with(file, 54, 0x3F0000)));
    EXPECT_FALSE(isBitmap(with(file, 54, 0x510000)));
    EXPECT_FALSE(isBitmap(with(file, 54, 0xFF00)));
    EXPECT_TRUE(isBitmap(with(file, 54, 0)));
    EXPECT_FALSE(isBitmap(with(with(with(file, 54, 0), 58, 0), 62, 0)));
    EXPECT_FALSE(isBitmap(with(sample("16-565").file, 54, 0xFF0000)));
    EXPECT_TRUE(isBitmap(with(file, 54, 0xFF000000)));
}

TEST(Bitmaps, ShowBlackForColoursThatTheTableLacks) {
    const BitmapSample& full = sample("8-40");
    const Pixels pixels = decodeBitmap(with(full.file, 46, 1));
    const Bytes first(full.file.begin() + 54, full.file.begin() + 57);
    for (std::size_t at = 0; at < pixels.bytes.size(); at += 4) {
        const Bytes color(pixels.bytes.begin() + static_cast<std::ptrdiff_t>(at),
                          pixels.bytes.begin() + static_cast<std::ptrdiff_t>(at) + 3);
        EXPECT_TRUE(color == first || color == (Bytes{0, 0, 0}));
    }
    EXPECT_EQ(decodeBitmap(with(full.file, 46, 0xFFFFFFFF)), full.pixels);
}

/// A bitmap of 8 bits with a table of two colours, and these codes.
Bytes encoded(std::uint32_t width, std::uint32_t height, const Bytes& codes) {
    Bytes file{'B', 'M'};
    file.resize(54);
    file = with(with(with(with(file, 10, 62), 14, 40), 18, width), 22, height);
    file = with(with(with(with(file, 26, 1, 2), 28, 8, 2), 30, 1), 46, 2);
    file.insert(file.end(), {0, 0, 0, 0, 9, 9, 9, 0});
    file.insert(file.end(), codes.begin(), codes.end());
    return file;
}

/// The same, as one digit for each pixel.
std::string shown(std::uint32_t width, std::uint32_t height, const Bytes& codes) {
    const Pixels pixels = decodeBitmap(encoded(width, height, codes));
    std::string text;
    for (std::size_t at = 0; at < pixels.bytes.size(); at += 4) {
        text += pixels.bytes[at] == 0 ? '0' : '1';
    }
    return text;
}

TEST(Runs, DrawNothingOutsideOfThePicture) {
    EXPECT_EQ(shown(3, 2, {200, 1}), "000111");
    EXPECT_EQ(shown(3, 2, {0, 200}), "000000");
    EXPECT_EQ(shown(3, 2, {0, 4, 1, 1, 1, 1, 1, 1}), "000111");
    EXPECT_EQ(shown(3, 2, {0, 2, 255, 0, 1, 1}), "000000");
    EXPECT_EQ(shown(3, 2, {0, 2, 0, 255, 1, 1}), "000000");
    EXPECT_EQ(shown(3, 2, {0, 2, 1, 1, 1, 1}), "010000");
    EXPECT_EQ(shown(3, 2, {0, 0, 0, 0, 0, 0, 1, 1}), "000000");
}

TEST(Runs, EndWhereTheCodesEnd) {
    EXPECT_EQ(shown(3, 1, {}), "000");
    EXPECT_EQ(shown(3, 1, {1}), "000");
    EXPECT_EQ(shown(3, 1, {0, 2, 1}), "000");
    EXPECT_EQ(shown(3, 1, {1, 1, 0, 1, 1, 1}), "100");
    // A list without the byte that fills it up.
    EXPECT_EQ(shown(3, 1, {0, 3, 1, 0, 1}), "101");
}

constexpr std::size_t kMostMemory = 64U << 20U;

TEST(Bitmaps, TakeAsMuchMemoryAsTheirPixelsAndNoMore) {
    EXPECT_TRUE(isBitmap(encoded(4000, 4000, {})));
    EXPECT_FALSE(isBitmap(encoded(4000, 4001, {})));
    EXPECT_FALSE(isBitmap(encoded(65536, 65537, {})));
    EXPECT_FALSE(isBitmap(encoded(0x7FFFFFFF, 2, {})));
    EXPECT_TRUE(isBitmap(encoded(16'000'000, 1, {})));
    EXPECT_TRUE(isBitmap(encoded(1, 16'000'000, {})));
    if (!Allocations::kCounted) return;
    const Bytes file = encoded(4000, 4000, {200, 1});
    Allocations::restart();
    decodeBitmap(file);
    EXPECT_LE(Allocations::sinceRestart().most, kMostMemory);
    Allocations::restart();
    requireBitmap(file);
    EXPECT_EQ(Allocations::sinceRestart().count, 0U);
}

/// Puts other bytes and numbers over some of a file's, cuts it, or repeats a part of it.
Bytes mutated(Bytes file, std::mt19937& random) {
    const auto below = [&](std::size_t end) { return random() % end; };
    constexpr std::uint32_t kNumbers[] = {0,          1,          0x7F,   0x80,       0xFF,
                                          0x7FFF,     0x8000,     0xFFFF, 0x7FFFFFFF, 0x80000000,
                                          0xFFFFFFFF, 0x40000000, 4096,   65535 * 4};
    for (std::size_t left = 1 + below(6); left > 0 && !file.empty(); --left) {
        // Most of what can go wrong is in the headers.
        const std::size_t at = below(std::min<std::size_t>(file.size(), below(2) == 0 ? 70 : 2000));
        switch (below(8)) {
            case 0:
                file.resize(at);
                break;
            case 1:
                file.insert(file.end(), file.begin(),
                            file.begin() + static_cast<std::ptrdiff_t>(at));
                break;
            case 2:
            case 3:
                if (at + 4 > file.size()) break;
                file = with(std::move(file), at, kNumbers[below(std::size(kNumbers))]);
                break;
            default:
                file[at] = static_cast<std::uint8_t>(random());
        }
    }
    return file;
}

TEST(Bitmaps, TenThousandDamagedOnesEndByPixelsOrAnError) {
    std::mt19937 random(20011);
    const auto& samples = bitmapSamples();
    std::size_t decoded = 0;
    for (int i = 0; i < 10'000; ++i) {
        const BitmapSample& from = samples[random() % samples.size()];
        const Bytes file = mutated(from.file, random);
        Allocations::restart();
        Pixels pixels;
        const std::int32_t error = errorOf([&] { pixels = decodeBitmap(file); });
        ASSERT_TRUE(error == 0 || error == ErrorNumber::kInvalidPicture) << from.name << " " << i;
        ASSERT_LE(Allocations::sinceRestart().most, kMostMemory) << from.name << " " << i;
        if (error != 0) continue;
        ++decoded;
        ASSERT_EQ(pixels.bytes.size(), pixels.offset(0, pixels.height));
        EXPECT_EQ(loadPicture(file).bytes(), file);
    }
    // Neither are all of them refused, nor is none.
    EXPECT_GT(decoded, 1000U);
    EXPECT_LT(decoded, 9000U);
}

TEST(PictureFile, ABitmapIsKeptByteForByte) {
    for (const BitmapSample& each : bitmapSamples()) {
        const Picture picture = loadPicture(each.file);
        EXPECT_EQ(picture.format(), PictureFormat::bitmap);
        EXPECT_EQ(savePicture(picture), each.file) << each.name;
    }
}

TEST(PictureFile, AMetafileIsKeptByteForByte) {
    for (const Bytes& file : {plainMetafile(), placeableMetafile(), enhancedMetafile()}) {
        const Picture picture = loadPicture(file);
        EXPECT_EQ(picture.format(), PictureFormat::metafile);
        EXPECT_EQ(savePicture(picture), file);
    }
}

TEST(PictureFile, WhatIsNoPictureIsAnError) {
    const Bytes png{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13};
    for (const Bytes& file : {Bytes{}, Bytes{'B', 'M'}, Bytes(1000, 7), png}) {
        try {
            loadPicture(file);
            FAIL() << "no error";
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), 481);
            EXPECT_EQ(error.description(), "Obrázek je neplatný.");
        }
    }
}

TEST(PictureFile, ACutOrEndlessMetafileIsAnError) {
    for (const Bytes& file : {plainMetafile(), placeableMetafile(), enhancedMetafile()}) {
        for (std::size_t size = 0; size < file.size(); ++size) {
            const Bytes cut(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size));
            ASSERT_EQ(errorOf([&] { loadPicture(cut); }), 481) << size;
        }
    }
    // A record that has no size, or one beyond the end.
    for (const std::uint32_t size : {0U, 1U, 2U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        EXPECT_EQ(errorOf([&] { loadPicture(with(plainMetafile(), 18, size)); }), 481) << size;
        EXPECT_EQ(errorOf([&] { loadPicture(with(placeableMetafile(), 40, size)); }), 481) << size;
        EXPECT_EQ(errorOf([&] { loadPicture(with(enhancedMetafile(), 92, size)); }), 481) << size;
    }
}

TEST(PictureFile, APictureOfAnotherFormatIsNotSaved) {
    EXPECT_EQ(errorOf([] { savePicture(Picture()); }), 481);
    EXPECT_EQ(errorOf([] { savePicture(Picture(PictureFormat::png, {1, 2, 3})); }), 481);
    EXPECT_EQ(errorOf([] { savePicture(Picture(PictureFormat::bitmap, plainMetafile())); }), 481);
    EXPECT_EQ(errorOf([] { savePicture(Picture(PictureFormat::bitmap, {1, 2, 3})); }), 481);
}

}  // namespace
}  // namespace huebrush::base
