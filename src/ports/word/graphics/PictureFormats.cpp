// SPDX-License-Identifier: MPL-2.0

#include "ports/word/graphics/PictureFormats.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

#include "base/Bitmap.h"
#include "base/Error.h"
#include "base/LittleEndian.h"
#include "base/PictureFile.h"

namespace huebrush::word {

namespace {

using base::PictureFormat;
using File = std::vector<std::uint8_t>;

constexpr std::size_t kBitmapFileHeader = 14;
constexpr std::size_t kOldHeader = 12;
constexpr std::size_t kInfoHeader = 40;

constexpr std::uint32_t kPlaceableKey = 0x9AC6CDD7;
constexpr std::size_t kPlaceableHeader = 22;
/// Units of our headers; hundredths of a millimetre are what the clipboard has.
constexpr int kTwipsOfInch = 1440;
constexpr int kHundredthsOfInch = 2540;

void append16(File& file, std::uint16_t number) {
    file.push_back(static_cast<std::uint8_t>(number & 0xFFU));
    file.push_back(static_cast<std::uint8_t>(number >> 8U));
}
void append32(File& file, std::uint32_t number) {
    append16(file, static_cast<std::uint16_t>(number & 0xFFFFU));
    append16(file, static_cast<std::uint16_t>(number >> 16U));
}

/// How many bytes stand before the pixels: the header, masks and the table of colours.
std::size_t sizeBeforePixels(Bytes bitmap) {
    if (bitmap.size() < kOldHeader) base::throwInvalidPicture();
    const std::size_t header = base::littleEndian32(bitmap, 0);
    if (header == kOldHeader) {
        const unsigned bits = base::littleEndian16(bitmap, 10);
        return header + (bits <= 8 ? std::size_t{3} << bits : 0);
    }
    if (header < kInfoHeader || bitmap.size() < header) base::throwInvalidPicture();
    const unsigned bits = base::littleEndian16(bitmap, 14);
    const std::uint32_t compression = base::littleEndian32(bitmap, 16);
    std::size_t colors = base::littleEndian32(bitmap, 32);
    if (colors == 0 && bits <= 8) colors = std::size_t{1} << bits;
    const std::size_t masks = header == kInfoHeader && compression == BI_BITFIELDS ? 12 : 0;
    return header + masks + 4 * colors;
}

std::uint16_t toTwips(LONG hundredths) {
    const LONG twips = ::MulDiv(static_cast<int>(hundredths), kTwipsOfInch, kHundredthsOfInch);
    return static_cast<std::uint16_t>(std::clamp<LONG>(twips, 1, 0x7FFF));
}

LONG toHundredths(int units, int unitsOfInch) {
    return ::MulDiv(units, kHundredthsOfInch, std::max(unitsOfInch, 1));
}

/// The header that a metafile's file has and a metafile in memory does not.
File placeableHeader(LONG width, LONG height) {
    File header;
    append32(header, kPlaceableKey);
    append16(header, 0);
    append16(header, 0);
    append16(header, 0);
    append16(header, toTwips(width));
    append16(header, toTwips(height));
    append16(header, kTwipsOfInch);
    append32(header, 0);
    std::uint16_t sum = 0;
    for (std::size_t at = 0; at < header.size(); at += 2) {
        sum = static_cast<std::uint16_t>(sum ^ base::littleEndian16(header, at));
    }
    append16(header, sum);
    return header;
}

}  // namespace

base::Picture fromBitmapInMemory(Bytes bitmap) {
    File file{'B', 'M'};
    append32(file, static_cast<std::uint32_t>(kBitmapFileHeader + bitmap.size()));
    append32(file, 0);
    append32(file, static_cast<std::uint32_t>(kBitmapFileHeader + sizeBeforePixels(bitmap)));
    file.insert(file.end(), bitmap.begin(), bitmap.end());
    return base::loadPicture(std::move(file));
}

HBITMAP toScreenBitmap(const base::Picture& picture) {
    const base::Pixels pixels = base::decodeBitmap(picture.bytes());
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = pixels.width;
    // From the upper left.
    info.bmiHeader.biHeight = -pixels.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const HDC screen = ::GetDC(nullptr);
    const HBITMAP bitmap = ::CreateDIBitmap(screen, &info.bmiHeader, CBM_INIT, pixels.bytes.data(),
                                            &info, DIB_RGB_COLORS);
    ::ReleaseDC(nullptr, screen);
    if (bitmap == nullptr) base::throwInvalidPicture();
    return bitmap;
}

base::Picture fromMetafile(const METAFILEPICT& metafile) {
    const UINT size = ::GetMetaFileBitsEx(metafile.hMF, 0, nullptr);
    if (size == 0) return {};
    // Negative ones only give the proportions.
    File file = placeableHeader(std::abs(metafile.xExt), std::abs(metafile.yExt));
    file.resize(kPlaceableHeader + size);
    ::GetMetaFileBitsEx(metafile.hMF, size, file.data() + kPlaceableHeader);
    return base::loadPicture(std::move(file));
}

METAFILEPICT toMetafile(const base::Picture& picture) {
    Bytes bytes = picture.bytes();
    METAFILEPICT metafile{MM_ANISOTROPIC, 0, 0, nullptr};
    if (bytes.size() > kPlaceableHeader && base::littleEndian32(bytes, 0) == kPlaceableKey) {
        const auto place = [&](std::size_t at) {
            return static_cast<std::int16_t>(base::littleEndian16(bytes, at));
        };
        const int unitsOfInch = base::littleEndian16(bytes, 14);
        metafile.xExt = toHundredths(place(10) - place(6), unitsOfInch);
        metafile.yExt = toHundredths(place(12) - place(8), unitsOfInch);
        bytes = bytes.subspan(kPlaceableHeader);
    }
    metafile.hMF = ::SetMetaFileBitsEx(static_cast<UINT>(bytes.size()), bytes.data());
    if (metafile.hMF == nullptr) base::throwInvalidPicture();
    return metafile;
}

EnhancedMetafile toEnhancedMetafile(const base::Picture& picture) {
    Bytes bytes = picture.bytes();
    const auto size = [&] { return static_cast<UINT>(bytes.size()); };
    EnhancedMetafile metafile(::SetEnhMetaFileBits(size(), bytes.data()));
    if (metafile) return metafile;
    METAFILEPICT plain = toMetafile(picture);
    ::DeleteMetaFile(plain.hMF);
    if (base::littleEndian32(bytes, 0) == kPlaceableKey) bytes = bytes.subspan(kPlaceableHeader);
    // Without a size it is that of the screen.
    const bool hasSize = plain.xExt > 0 && plain.yExt > 0;
    metafile.reset(::SetWinMetaFileBits(size(), bytes.data(), nullptr, hasSize ? &plain : nullptr));
    if (!metafile) base::throwInvalidPicture();
    return metafile;
}

}  // namespace huebrush::word
