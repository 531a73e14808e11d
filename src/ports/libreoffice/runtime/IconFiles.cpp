// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/runtime/IconFiles.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>

#include "base/Bitmap.h"
#include "base/Error.h"
#include "base/Text.h"
#include "ports/libreoffice/uno/PngFile.h"

namespace huebrush::libreoffice {

namespace {

constexpr std::array<std::int32_t, 3> kButtonSizes{16, 24, 32};
constexpr std::int32_t kLargestButton = kButtonSizes.back();
/// The size of the pictures in dialogs.
constexpr std::int32_t kDialogSize = 64;
constexpr std::int32_t kButtonIcons[] = {101, 102, 103};

/// A PNG as a 32-bit bitmap; no picture where there is none.
base::Picture bitmapOfPng(const base::Picture& png) {
    base::Picture bitmap;
    base::ignoring<base::Error>([&] { bitmap = base::bitmapOf(pixelsOfPng(png.bytes())); });
    return bitmap;
}

}  // namespace

base::Picture IconFiles::largest(std::int32_t number) const {
    const auto known = largest_.find(number);
    if (known != largest_.end()) return known->second;
    return largest_[number] = read(number);
}

base::Picture IconFiles::read(std::int32_t number) const {
    const bool ofButton = std::ranges::find(kButtonIcons, number) != std::end(kButtonIcons);
    return ofButton ? bitmapOfPng(picture(number, kLargestButton)) : picture(number, kDialogSize);
}

base::Picture IconFiles::blankFace() {
    constexpr std::size_t kPixels = std::size_t{kLargestButton} * kLargestButton;
    return base::bitmapOf(kLargestButton, kLargestButton, std::vector<std::uint8_t>(4 * kPixels));
}

std::vector<base::Picture> IconFiles::sizesOf(const base::Picture& wanted) const {
    for (const std::int32_t number : kButtonIcons) {
        if (largest(number) != wanted) continue;
        std::vector<base::Picture> sizes;
        sizes.reserve(kButtonSizes.size());
        for (const std::int32_t size : kButtonSizes) sizes.push_back(picture(number, size));
        return sizes;
    }
    return {wanted};
}

base::Picture IconFiles::picture(std::int32_t number, std::int32_t size) const {
    const std::string path = base::text(folder_, "/icons/", number, "_", size, ".png");
    std::ifstream file(path, std::ios::binary);
    if (!file) return {};
    return {base::PictureFormat::png,
            std::vector<std::uint8_t>(std::istreambuf_iterator<char>(file), {})};
}

}  // namespace huebrush::libreoffice
