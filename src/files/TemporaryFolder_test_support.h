// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <filesystem>
#include <system_error>

#include "base/Text.h"

namespace huebrush::files {

/// A new folder among the system's temporary files, removed with its contents at the end.
class TemporaryFolder {
 public:
    TemporaryFolder() {
        const std::filesystem::path all = std::filesystem::temp_directory_path();
        for (int number = 0; path_.empty(); ++number) {
            const std::filesystem::path free = all / base::text("huebrush-test-", number);
            std::error_code error;
            if (std::filesystem::create_directory(free, error)) path_ = free;
            // It exists without any error, or with one when another test removes it meanwhile.
            if (error && error != std::errc::file_exists) {
                throw std::filesystem::filesystem_error("no temporary folder", free, error);
            }
        }
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }

    const std::filesystem::path& path() const { return path_; }

 private:
    std::filesystem::path path_;
};

}  // namespace huebrush::files
