// SPDX-License-Identifier: MPL-2.0

// Bytes that claim to be a picture file are loaded, decoded and written again: that ends by the
// same pixels or by the error of an invalid picture.

#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "base/Bitmap.h"
#include "base/BitmapHeader.h"
#include "base/Error.h"
#include "base/PictureFile.h"

namespace {

using namespace huebrush::base;
using Bytes = std::vector<std::uint8_t>;

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

/// Whether a body comes to its end; any error but that of an invalid picture is a finding.
template <class Body>
bool accepted(const Body& body) {
    try {
        body();
        return true;
    } catch (const Error& error) {
        if (error.number() != ErrorNumber::kInvalidPicture) fail(error.what());
        return false;
    }
}

/// Most inputs are to be small pictures: a large one takes as long as thousands of them.
bool isWorthDecoding(const Bytes& file) {
    constexpr std::int64_t kSmall = 1 << 16;
    constexpr std::uint8_t kRarely = 0x5A;
    const BitmapHeader header = readBitmapHeader(file);
    return std::int64_t{header.width} * header.height <= kSmall || file.back() == kRarely;
}

void decode(const Bytes& file) {
    if (!isWorthDecoding(file)) return;
    Pixels pixels;
    if (!accepted([&] { pixels = decodeBitmap(file); })) fail("what was loaded is not decoded");
    if (pixels.bytes.size() != pixels.offset(0, pixels.height)) fail("pixels are missing");
    constexpr std::size_t kSmall = 1U << 20U;
    if (pixels.bytes.size() > kSmall) return;
    if (decodeBitmap(bitmapOf(pixels).bytes()) != pixels) fail("other pixels when written again");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Bytes file(data, data + size);
    Picture picture;
    const bool isPicture = accepted([&] { picture = loadPicture(file); });
    if (!isPicture) {
        if (accepted([&] { decodeBitmap(file); })) fail("what is decoded was not loaded");
        return 0;
    }
    if (savePicture(picture) != file) fail("the file is not kept");
    if (picture.format() == PictureFormat::bitmap) decode(file);
    return 0;
}
