// SPDX-License-Identifier: MPL-2.0

#include "files/Folder.h"

#include <filesystem>
#include <system_error>

#include "files/Error.h"

namespace huebrush::files {

void removeFile(const std::string& name) {
    std::error_code reason;
    if (!std::filesystem::remove(name, reason)) throw Error(Problem::write, name, reason.value());
}

void makeFolder(const std::string& name) {
    std::error_code reason;
    std::filesystem::create_directories(name, reason);
    if (reason) throw Error(Problem::write, name, reason.value());
}

}  // namespace huebrush::files
