// SPDX-License-Identifier: MPL-2.0

#include "ports/word/graphics/Icons.h"

#include <cstddef>
#include <span>
#include <utility>
#include <vector>

#include "base/Bitmap.h"
#include "base/Error.h"
#include "base/LittleEndian.h"
#include "ports/word/graphics/Gdi.h"
#include "ports/word/graphics/PictureFormats.h"

namespace huebrush::word {

namespace {

using File = std::vector<std::uint8_t>;

/// An icon's file has a directory of pictures: six bytes, and sixteen for each, of which the last
/// four are its place in the file. In resources an entry is two bytes shorter, since it ends with a
/// number instead.
constexpr std::size_t kDirectory = 6;
constexpr std::size_t kFileEntry = 16;
constexpr std::size_t kSizeInEntry = 8;
constexpr std::size_t kPlaceInEntry = 12;
constexpr std::size_t kOneImage = kDirectory + kFileEntry;
/// The version of icons, as the system wants it.
constexpr DWORD kIconVersion = 0x00030000;

/// The bytes of a resource, which live as long as the module; none where there is none.
Bytes resourceOf(HMODULE module, LPCWSTR name, LPCWSTR type) {
    const HRSRC found = ::FindResourceW(module, name, type);
    if (found == nullptr) return {};
    const HGLOBAL loaded = ::LoadResource(module, found);
    if (loaded == nullptr) return {};
    return {static_cast<const std::uint8_t*>(::LockResource(loaded)),
            ::SizeofResource(module, found)};
}

LPCWSTR numbered(std::int32_t number) {
    return MAKEINTRESOURCEW(number);
}

void append32(File& file, std::uint32_t number) {
    for (int shift = 0; shift < 32; shift += 8) {
        file.push_back(static_cast<std::uint8_t>((number >> shift) & 0xFFU));
    }
}

/// The first picture of an icon's file.
Bytes imageIn(const base::Picture& icon) {
    const Bytes file = icon.bytes();
    if (icon.format() != base::PictureFormat::icon || file.size() < kOneImage) {
        base::throwInvalidPicture();
    }
    const std::size_t size = base::littleEndian32(file, kDirectory + kSizeInEntry);
    const std::size_t place = base::littleEndian32(file, kDirectory + kPlaceInEntry);
    if (place > file.size() || size > file.size() - place) base::throwInvalidPicture();
    return file.subspan(place, size);
}

/// The bitmap as a file with three bytes a pixel.
base::Picture fileOf(HDC context, HBITMAP bitmap) {
    BITMAP size{};
    ::GetObjectW(bitmap, sizeof(size), &size);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = size.bmWidth;
    // From the upper left.
    info.bmiHeader.biHeight = -size.bmHeight;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    base::Pixels pixels{
        static_cast<std::int32_t>(size.bmWidth), static_cast<std::int32_t>(size.bmHeight), {}};
    pixels.bytes.resize(pixels.offset(0, pixels.height));
    if (::GetDIBits(context, bitmap, 0, static_cast<UINT>(size.bmHeight), pixels.bytes.data(),
                    &info, DIB_RGB_COLORS) == 0) {
        base::throwInvalidPicture();
    }
    File colors;
    colors.reserve(pixels.bytes.size() / base::Pixels::kBytes * 3);
    for (std::size_t at = 0; at < pixels.bytes.size(); at += base::Pixels::kBytes) {
        const auto pixel = pixels.bytes.begin() + static_cast<std::ptrdiff_t>(at);
        colors.insert(colors.end(), pixel, pixel + 3);
    }
    return {base::PictureFormat::bitmap, base::bitmapFile(pixels.width, pixels.height, 3, colors)};
}

}  // namespace

base::Picture iconOf(HMODULE module, std::int32_t number) {
    const Bytes group = resourceOf(module, numbered(number), RT_GROUP_ICON);
    if (group.size() < kOneImage - 2) {
        const Bytes bitmap = resourceOf(module, numbered(number), RT_RCDATA);
        if (bitmap.empty()) return {};
        return {base::PictureFormat::bitmap, File(bitmap.begin(), bitmap.end())};
    }
    const std::int32_t best = ::LookupIconIdFromDirectory(const_cast<PBYTE>(group.data()), TRUE);
    const Bytes image = resourceOf(module, numbered(best), RT_ICON);
    if (best == 0 || image.empty()) return {};
    // As the only one of a file.
    File file{0, 0, 1, 0, 1, 0};
    file.insert(file.end(), group.begin() + kDirectory, group.begin() + kDirectory + kPlaceInEntry);
    file.insert(file.end(), {static_cast<std::uint8_t>(kOneImage), 0, 0, 0});
    file.insert(file.end(), image.begin(), image.end());
    return {base::PictureFormat::icon, std::move(file)};
}

base::Picture asIcon(const base::Picture& bitmap) {
    constexpr std::size_t kBitmapFileHeader = 14;
    constexpr std::size_t kHeight = 8;
    const Bytes file = bitmap.bytes();
    if (file.size() < kBitmapFileHeader + kHeight + 4) base::throwInvalidPicture();
    const Bytes image = file.subspan(kBitmapFileHeader);
    // Its size in pixels is that of the image.
    File icon{0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 1, 0, 32, 0};
    append32(icon, static_cast<std::uint32_t>(image.size()));
    append32(icon, static_cast<std::uint32_t>(kOneImage));
    icon.insert(icon.end(), image.begin(), image.begin() + kHeight);
    // The mask, which is counted here, is left out.
    append32(icon, 2 * base::littleEndian32(image, kHeight));
    icon.insert(icon.end(), image.begin() + kHeight + 4, image.end());
    return {base::PictureFormat::icon, std::move(icon)};
}

Icon makeIcon(const base::Picture& icon) {
    const Bytes image = imageIn(icon);
    // It is only read, whatever the type says.
    Icon made(::CreateIconFromResource(const_cast<PBYTE>(image.data()),
                                       static_cast<DWORD>(image.size()), TRUE, kIconVersion));
    if (!made) base::throwInvalidPicture();
    return made;
}

std::optional<base::Pixels> pixelsOf(const base::Picture& icon) {
    constexpr std::size_t kHeight = 8;
    constexpr std::size_t kBits = 14;
    const Bytes image = imageIn(icon);
    File bitmap(image.begin(), image.end());
    if (bitmap.size() <= kBits || base::littleEndian16(bitmap, kBits) != 32) return std::nullopt;
    // The header counts the rows of the mask as well.
    const std::uint32_t height = base::littleEndian32(bitmap, kHeight) / 2;
    for (std::size_t each = 0; each < 4; ++each) {
        bitmap[kHeight + each] = static_cast<std::uint8_t>((height >> (8 * each)) & 0xFFU);
    }
    return base::decodeBitmap(fromBitmapInMemory(bitmap).bytes());
}

base::Picture drawIconOn(const base::Picture& icon, const base::Picture& canvas) {
    const Icon drawn = makeIcon(icon);
    const Bitmap bitmap(toScreenBitmap(canvas));
    const Context screen(::CreateICW(L"DISPLAY", nullptr, nullptr, nullptr));
    const Context memory(::CreateCompatibleDC(screen.get()));
    {
        const Selected selected(memory.get(), bitmap.get());
        ::DrawIcon(memory.get(), 0, 0, drawn.get());
    }
    return fileOf(memory.get(), bitmap.get());
}

}  // namespace huebrush::word
