#pragma once

#include <filesystem>

namespace huebrush::cli {

/// A new folder that only this user can enter, removed with all that is in it at the end.
class TemporaryFolder {
 public:
    /// Failure when it cannot be made.
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::filesystem::path& path() const { return path_; }

 private:
    std::filesystem::path path_;
};

}  // namespace huebrush::cli
