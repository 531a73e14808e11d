// SPDX-License-Identifier: MPL-2.0

#include "base/PictureFile.h"

#include <span>
#include <utility>

#include "base/Bitmap.h"
#include "base/Error.h"
#include "base/LittleEndian.h"

namespace huebrush::base {

namespace {

using File = std::span<const std::uint8_t>;

/// A metafile as it is in memory or on the disk: a header and records, sizes in words of 16 bits.
bool isPlainMetafile(File file) {
    constexpr std::size_t kHeader = 18;
    constexpr std::size_t kHeaderWords = kHeader / 2;
    constexpr std::size_t kRecordHeader = 6;
    constexpr std::uint16_t kEnd = 0;
    if (file.size() < kHeader) return false;
    const std::uint16_t kind = littleEndian16(file, 0);
    const std::uint16_t version = littleEndian16(file, 4);
    if (kind != 1 && kind != 2) return false;
    if (littleEndian16(file, 2) != kHeaderWords) return false;
    if (version != 0x100 && version != 0x300) return false;
    File records = file.subspan(kHeader);
    while (records.size() >= kRecordHeader) {
        const std::size_t words = littleEndian32(records, 0);
        if (words < kRecordHeader / 2 || words > records.size() / 2) return false;
        if (littleEndian16(records, 4) == kEnd) return true;
        records = records.subspan(2 * words);
    }
    return false;
}

/// The same after a header that gives the metafile's place and unit.
bool isPlaceableMetafile(File file) {
    constexpr std::size_t kHeader = 22;
    constexpr std::uint32_t kKey = 0x9AC6CDD7;
    return file.size() >= kHeader && littleEndian32(file, 0) == kKey &&
           isPlainMetafile(file.subspan(kHeader));
}

/// Records throughout, the first of which is the header, sizes in bytes.
bool isEnhancedMetafile(File file) {
    constexpr std::size_t kHeader = 88;
    constexpr std::size_t kRecordHeader = 8;
    constexpr std::uint32_t kHeaderRecord = 1;
    constexpr std::uint32_t kSignature = 0x464D4520;
    constexpr std::uint32_t kEnd = 14;
    if (file.size() < kHeader || littleEndian32(file, 0) != kHeaderRecord ||
        littleEndian32(file, 4) < kHeader || littleEndian32(file, 40) != kSignature) {
        return false;
    }
    for (File records = file; records.size() >= kRecordHeader;) {
        const std::size_t size = littleEndian32(records, 4);
        if (size < kRecordHeader || size % 4 != 0 || size > records.size()) return false;
        if (littleEndian32(records, 0) == kEnd) return true;
        records = records.subspan(size);
    }
    return false;
}

bool isMetafile(File file) {
    return isPlaceableMetafile(file) || isPlainMetafile(file) || isEnhancedMetafile(file);
}

PictureFormat formatOf(File file) {
    if (isMetafile(file)) return PictureFormat::metafile;
    requireBitmap(file);
    return PictureFormat::bitmap;
}

}  // namespace

Picture loadPicture(std::vector<std::uint8_t> file) {
    const PictureFormat format = formatOf(file);
    return {format, std::move(file)};
}

const std::vector<std::uint8_t>& savePicture(const Picture& picture) {
    if (formatOf(picture.bytes()) != picture.format()) throwInvalidPicture();
    return picture.bytes();
}

}  // namespace huebrush::base
