// SPDX-License-Identifier: MPL-2.0

#include "base/BitmapHeader.h"

#include <algorithm>
#include <bit>

#include "base/Bitmap.h"
#include "base/Error.h"
#include "base/LittleEndian.h"

namespace huebrush::base {

namespace {

using File = std::span<const std::uint8_t>;
using Encoding = BitmapHeader::Encoding;

constexpr std::size_t kPixelsField = 10;

/// The headers that may follow, by their sizes.
constexpr std::size_t kCoreHeader = 12;
constexpr std::size_t kHeaderWithMasks = 52;
constexpr std::size_t kHeaderWithAlpha = 56;
constexpr std::size_t kHeaderOfOs2 = 64;
constexpr std::size_t kHeader4 = 108;
constexpr std::size_t kHeader5 = 124;

/// What the header says of how the pixels are stored.
enum class Compression : std::uint32_t {
    none = 0,
    runsOf8Bits = 1,
    runsOf4Bits = 2,
    bitFields = 3,
    bitFieldsWithAlpha = 6,
};

void require(bool condition) {
    if (!condition) throwInvalidPicture();
}

/// Reads the headers one field after the other.
class Reader {
 public:
    explicit Reader(File file) : file_(file) {}

    BitmapHeader read();

 private:
    std::uint32_t field(std::size_t at) const {
        return littleEndian32(file_, kBitmapFileHeader + at);
    }
    std::uint16_t shortField(std::size_t at) const {
        return littleEndian16(file_, kBitmapFileHeader + at);
    }
    bool hasBitFields() const {
        return compression_ == Compression::bitFields ||
               compression_ == Compression::bitFieldsWithAlpha;
    }

    void readHeaderSize();
    void readCore();
    void readInfo();
    void setSize(std::int64_t width, std::int64_t height);
    void requireKnownForm() const;
    void readMasks();
    void setUsualMasks();
    void placeColors(std::size_t end);
    void placePixels();

    File file_;
    std::size_t headerSize_ = 0;
    Compression compression_ = Compression::none;
    /// As the header has them, 0 for unknown.
    std::uint32_t colorsUsed_ = 0;
    std::uint32_t imageSize_ = 0;
    BitmapHeader header_;
};

BitmapHeader Reader::read() {
    readHeaderSize();
    if (headerSize_ == kCoreHeader) {
        readCore();
    } else {
        readInfo();
    }
    requireKnownForm();
    std::size_t end = kBitmapFileHeader + headerSize_;
    if (hasBitFields()) {
        readMasks();
        const std::size_t masks = compression_ == Compression::bitFields ? 12 : 16;
        if (headerSize_ == kBitmapInfoHeader) end += masks;
    } else {
        setUsualMasks();
    }
    header_.pixels = littleEndian32(file_, kPixelsField);
    require(end <= header_.pixels && header_.pixels <= file_.size());
    placeColors(end);
    placePixels();
    return header_;
}

void Reader::readHeaderSize() {
    require(file_.size() >= kBitmapFileHeader + kCoreHeader && file_[0] == 'B' && file_[1] == 'M');
    headerSize_ = field(0);
    constexpr std::array<std::size_t, 7> kSizes{
        kCoreHeader,  kBitmapInfoHeader, kHeaderWithMasks, kHeaderWithAlpha,
        kHeaderOfOs2, kHeader4,          kHeader5};
    require(std::ranges::find(kSizes, headerSize_) != kSizes.end());
    require(file_.size() >= kBitmapFileHeader + headerSize_);
}

void Reader::readCore() {
    setSize(shortField(4), shortField(6));
    require(shortField(8) == 1);
    header_.bits = shortField(10);
    header_.colorSize = 3;
}

void Reader::readInfo() {
    setSize(static_cast<std::int32_t>(field(4)), static_cast<std::int32_t>(field(8)));
    require(shortField(12) == 1);
    header_.bits = shortField(14);
    compression_ = static_cast<Compression>(field(16));
    imageSize_ = field(20);
    colorsUsed_ = field(32);
}

void Reader::setSize(std::int64_t width, std::int64_t height) {
    header_.topDown = height < 0;
    if (height < 0) height = -height;
    require(width > 0 && height > 0 &&
            static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height) <= kMostPixels);
    header_.width = static_cast<std::int32_t>(width);
    header_.height = static_cast<std::int32_t>(height);
}

void Reader::requireKnownForm() const {
    const unsigned bits = header_.bits;
    const bool isDeep = bits == 16 || bits == 32;
    switch (compression_) {
        case Compression::none:
            require(bits == 1 || bits == 4 || bits == 8 || bits == 24 ||
                    (isDeep && headerSize_ != kCoreHeader));
            break;
        case Compression::runsOf8Bits:
            require(bits == 8 && !header_.topDown);
            break;
        case Compression::runsOf4Bits:
            require(bits == 4 && !header_.topDown);
            break;
        case Compression::bitFields:
        case Compression::bitFieldsWithAlpha:
            // OS/2 means another compression by the first of these numbers.
            require(isDeep && headerSize_ != kHeaderOfOs2);
            break;
        default:
            throwInvalidPicture();
    }
}

/// Red, green, blue and perhaps alpha stand after the first 40 bytes, be it within the header or
/// after it.
void Reader::readMasks() {
    const bool hasAlpha =
        headerSize_ >= kHeaderWithAlpha || compression_ == Compression::bitFieldsWithAlpha;
    const std::size_t count = hasAlpha ? 4 : 3;
    require(file_.size() >= kBitmapFileHeader + kBitmapInfoHeader + 4 * count);
    auto& [blue, green, red, alpha] = header_.masks;
    red = field(kBitmapInfoHeader);
    green = field(kBitmapInfoHeader + 4);
    blue = field(kBitmapInfoHeader + 8);
    if (hasAlpha) alpha = field(kBitmapInfoHeader + 12);
    const std::uint32_t all = header_.bits == 16 ? 0xFFFF : 0xFFFFFFFF;
    // Some programs leave the alpha of 32 bits in a file of 16.
    if ((alpha & ~all) != 0) alpha = 0;
    std::uint32_t taken = 0;
    for (const std::uint32_t mask : header_.masks) {
        const std::uint32_t atTheBottom = mask == 0 ? 0 : mask >> std::countr_zero(mask);
        const bool isOneRun = (atTheBottom & (atTheBottom + 1)) == 0;
        require(isOneRun && (mask & ~all) == 0 && (mask & taken) == 0);
        taken |= mask;
    }
    require((red | green | blue) != 0);
}

void Reader::setUsualMasks() {
    if (header_.bits == 16) header_.masks = {0x1F, 0x3E0, 0x7C00, 0};
    if (header_.bits == 32) header_.masks = {0xFF, 0xFF00, 0xFF0000, 0xFF000000};
}

void Reader::placeColors(std::size_t end) {
    if (header_.bits > 8) return;
    header_.colors = end;
    const std::size_t possible = std::size_t{1} << header_.bits;
    const std::size_t room = (header_.pixels - end) / header_.colorSize;
    header_.colorCount =
        std::min(room, colorsUsed_ == 0 ? possible : std::min<std::size_t>(colorsUsed_, possible));
}

void Reader::placePixels() {
    const std::size_t there = file_.size() - header_.pixels;
    std::size_t size = imageSize_;
    if (compression_ == Compression::runsOf8Bits || compression_ == Compression::runsOf4Bits) {
        header_.encoding = Encoding::runs;
        if (size == 0) size = there;
    } else {
        header_.rowSize = (static_cast<std::size_t>(header_.width) * header_.bits + 31) / 32 * 4;
        size = header_.rowSize * static_cast<std::size_t>(header_.height);
    }
    require(size <= there);
    header_.pixelsEnd = header_.pixels + size;
}

}  // namespace

BitmapHeader readBitmapHeader(File file) {
    return Reader(file).read();
}

}  // namespace huebrush::base
