// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/uno/PngFile.h"

#include <png.h>

#include "base/Error.h"

namespace huebrush::libreoffice {

base::Pixels pixelsOfPng(const std::vector<std::uint8_t>& file) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, file.data(), file.size()) == 0) {
        base::throwInvalidPicture();
    }
    if (std::uint64_t{image.width} * image.height > base::kMostPixels) {
        png_image_free(&image);
        base::throwInvalidPicture();
    }
    image.format = PNG_FORMAT_BGRA;
    base::Pixels pixels{static_cast<std::int32_t>(image.width),
                        static_cast<std::int32_t>(image.height),
                        std::vector<std::uint8_t>(PNG_IMAGE_SIZE(image))};
    if (png_image_finish_read(&image, nullptr, pixels.bytes.data(), 0, nullptr) == 0) {
        base::throwInvalidPicture();
    }
    return pixels;
}

}  // namespace huebrush::libreoffice
