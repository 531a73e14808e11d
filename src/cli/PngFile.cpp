// SPDX-License-Identifier: MPL-2.0

#include "cli/PngFile.h"

#include <png.h>

#include <string>

#include "cli/Failure.h"

namespace huebrush::cli {

std::vector<std::uint8_t> pngFile(std::int32_t width, std::int32_t height,
                                  const std::vector<std::uint8_t>& colors) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGB;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::vector<std::uint8_t> file(size);
    if (png_image_write_to_memory(&image, file.data(), &size, 0, colors.data(), 0, nullptr) == 0) {
        throw Failure(std::string("cannot make a PNG file: ") + image.message);
    }
    file.resize(size);
    return file;
}

}  // namespace huebrush::cli
