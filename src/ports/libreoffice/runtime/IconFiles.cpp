#include "ports/libreoffice/runtime/IconFiles.h"

#include <fstream>
#include <iterator>

#include "base/Text.h"

namespace huebrush::libreoffice {

namespace {

constexpr std::int32_t kSizes[] = {16, 24, 32};
/// The size of the pictures in dialogs.
constexpr std::int32_t kDialogSize = 64;
constexpr std::int32_t kIcons[] = {101, 102, 103};

}  // namespace

base::Picture IconFiles::largest(std::int32_t number) const {
    const auto known = largest_.find(number);
    if (known != largest_.end()) return known->second;
    base::Picture found = picture(number, kDialogSize);
    if (found.empty()) found = picture(number, *std::rbegin(kSizes));
    return largest_[number] = found;
}

std::vector<base::Picture> IconFiles::sizesOf(const base::Picture& wanted) const {
    for (const std::int32_t number : kIcons) {
        if (largest(number) != wanted) continue;
        std::vector<base::Picture> sizes;
        for (const std::int32_t size : kSizes) sizes.push_back(picture(number, size));
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
