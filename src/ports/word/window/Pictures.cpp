// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/Pictures.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "base/Error.h"
#include "ports/word/graphics/Icons.h"
#include "ports/word/graphics/PictureFormats.h"

namespace huebrush::word {

namespace {

/// Beyond this many, some are likely not to be shown any more.
constexpr std::size_t kMostKept = 1024;

view::Size sizeOf(HBITMAP bitmap) {
    BITMAP measured{};
    ::GetObjectW(bitmap, sizeof(measured), &measured);
    return {static_cast<std::int32_t>(measured.bmWidth),
            static_cast<std::int32_t>(measured.bmHeight)};
}

view::Size sizeOf(HENHMETAFILE metafile) {
    ENHMETAHEADER header{};
    ::GetEnhMetaFileHeader(metafile, sizeof(header), &header);
    return {static_cast<std::int32_t>(header.rclFrame.right - header.rclFrame.left),
            static_cast<std::int32_t>(header.rclFrame.bottom - header.rclFrame.top)};
}

view::Size sizeOf(HICON icon) {
    ICONINFO info{};
    if (::GetIconInfo(icon, &info) == FALSE) return {};
    const Bitmap mask(info.hbmMask);
    const Bitmap colours(info.hbmColor);
    view::Size size = sizeOf(colours ? colours.get() : mask.get());
    // One without colours has its two masks below each other.
    if (!colours) size.height /= 2;
    return size;
}

/// What shows through where a bitmap is not opaque is white, as in the document's pictures.
base::Pixels readBitmap(const base::Picture& picture) {
    base::Pixels pixels = base::decodeBitmap(picture.bytes());
    base::ignoreUnusedAlpha(pixels);
    return base::decodeBitmap(base::bitmapOnWhite(pixels));
}

/// The part of a row or column of `from` pixels that becomes one of `to`: at least one.
struct Part {
    std::int32_t begin;
    std::int32_t end;
};
Part partOf(std::int32_t at, std::int32_t from, std::int32_t to) {
    const auto place = [&](std::int32_t edge) {
        return static_cast<std::int32_t>(std::int64_t{edge} * from / to);
    };
    const std::int32_t begin = place(at);
    return {begin, std::max(begin + 1, place(at + 1))};
}

/// The mean of a part of the pixels, its colours multiplied by the alpha.
void putMean(const base::Pixels& pixels, const Part& columns, const Part& rows,
             std::uint8_t* mean) {
    constexpr std::uint64_t kOpaque = 255;
    std::uint64_t sums[base::Pixels::kBytes]{};
    for (std::int32_t y = rows.begin; y < rows.end; ++y) {
        for (std::int32_t x = columns.begin; x < columns.end; ++x) {
            const std::uint8_t* const pixel = pixels.bytes.data() + pixels.offset(x, y);
            for (int each = 0; each < 3; ++each)
                sums[each] += std::uint64_t{pixel[each]} * pixel[3];
            sums[3] += kOpaque * pixel[3];
        }
    }
    const auto count = static_cast<std::uint64_t>(columns.end - columns.begin) *
                       static_cast<std::uint64_t>(rows.end - rows.begin) * kOpaque;
    for (const std::uint64_t sum : sums) *mean++ = static_cast<std::uint8_t>(sum / count);
}

/// The pixels in another size, as the system mixes them with what is below.
Bitmap scaled(const base::Pixels& pixels, const view::Size& size) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = size.width;
    // From the upper left.
    info.bmiHeader.biHeight = -size.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bytes = nullptr;
    Bitmap bitmap(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bytes, nullptr, 0));
    if (!bitmap) return bitmap;
    auto* mean = static_cast<std::uint8_t*>(bytes);
    for (std::int32_t y = 0; y < size.height; ++y) {
        const Part rows = partOf(y, pixels.height, size.height);
        for (std::int32_t x = 0; x < size.width; ++x, mean += base::Pixels::kBytes) {
            putMean(pixels, partOf(x, pixels.width, size.width), rows, mean);
        }
    }
    return bitmap;
}

}  // namespace

Pictures::Drawable Pictures::read(const base::Picture& picture) {
    Drawable drawable;
    base::ignoring([&] {
        switch (picture.format()) {
            case base::PictureFormat::bitmap:
                drawable.pixels = readBitmap(picture);
                drawable.size = {drawable.pixels.width, drawable.pixels.height};
                break;
            case base::PictureFormat::metafile:
                drawable.metafile = toEnhancedMetafile(picture);
                drawable.size = word::sizeOf(drawable.metafile.get());
                break;
            case base::PictureFormat::icon:
                if (auto pixels = pixelsOf(picture)) {
                    drawable.pixels = std::move(*pixels);
                    drawable.size = {drawable.pixels.width, drawable.pixels.height};
                } else {
                    drawable.icon = makeIcon(picture);
                    drawable.size = word::sizeOf(drawable.icon.get());
                }
                break;
            case base::PictureFormat::png:
                break;
        }
    });
    return drawable;
}

Pictures::Drawable& Pictures::drawable(const base::Picture& picture) {
    const void* const key = picture.bytes().data();
    const auto found = known_.find(key);
    if (found != known_.end()) return found->second.drawable;
    if (known_.size() >= kMostKept) known_.clear();
    return known_.emplace(key, Entry{picture, read(picture)}).first->second.drawable;
}

std::optional<view::Size> Pictures::sizeOf(const base::Picture& picture) {
    if (picture.empty()) return std::nullopt;
    const view::Size size = drawable(picture).size;
    if (size.width <= 0 || size.height <= 0) return std::nullopt;
    return size;
}

void Pictures::drawBitmap(HDC context, const view::Rectangle& place, Drawable& drawn) {
    const view::Size size{place.width, place.height};
    if (size.width <= 0 || size.height <= 0) return;
    if (!drawn.bitmap || !(drawn.drawnSize == size)) {
        drawn.bitmap = scaled(drawn.pixels, size);
        drawn.drawnSize = size;
    }
    const Context memory(::CreateCompatibleDC(context));
    const Selected selected(memory.get(), drawn.bitmap.get());
    ::AlphaBlend(context, place.left, place.top, size.width, size.height, memory.get(), 0, 0,
                 size.width, size.height, {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
}

void Pictures::draw(HDC context, const view::Rectangle& place, const base::Picture& picture) {
    if (picture.empty()) return;
    Drawable& drawn = drawable(picture);
    if (!drawn.pixels.bytes.empty()) {
        drawBitmap(context, place, drawn);
    } else if (drawn.metafile) {
        const RECT room{place.left, place.top, place.left + place.width, place.top + place.height};
        // What it draws may lie beyond what it says is its place.
        const int before = ::SaveDC(context);
        ::IntersectClipRect(context, room.left, room.top, room.right, room.bottom);
        ::PlayEnhMetaFile(context, drawn.metafile.get(), &room);
        ::RestoreDC(context, before);
    } else if (drawn.icon) {
        ::DrawIconEx(context, place.left, place.top, drawn.icon.get(), place.width, place.height, 0,
                     nullptr, DI_NORMAL);
    }
}

}  // namespace huebrush::word
