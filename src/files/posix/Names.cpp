// SPDX-License-Identifier: MPL-2.0

#include "files/Names.h"

#include <sys/stat.h>

#include <filesystem>

namespace huebrush::files {

namespace fs = std::filesystem;

std::string_view lastPartOf(std::string_view name) {
    return name.substr(name.rfind('/') + 1);
}

std::string folderOf(std::string_view name) {
    const std::string_view folder = name.substr(0, name.rfind('/') + 1);
    return folder.empty() ? "./" : std::string(folder);
}

std::string resolve(const std::string& name) {
    constexpr int kMostLinks = 40;
    fs::path path = name;
    std::error_code error;
    for (int i = 0; i < kMostLinks && fs::is_symlink(path, error); ++i) {
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    const fs::path folder = fs::canonical(path.has_parent_path() ? path.parent_path() : ".", error);
    return error ? name : (folder / path.filename()).string();
}

bool exists(const std::string& name) {
    struct stat status = {};
    return ::lstat(name.c_str(), &status) == 0;
}

}  // namespace huebrush::files
