// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

#include "files/posix/Descriptor.h"

namespace huebrush::cli {

/// A new folder that only this user can enter, and a program that works in it with all processes it
/// starts. Both are gone when this object ends, and also, moments later, when this process is
/// killed: they belong to a second process of ours, the keeper, which cleans up as soon as this one
/// is gone, for whatever reason.
class Keeper {
 public:
    /// Failure when the folder cannot be created.
    Keeper();
    Keeper(const Keeper&) = delete;
    Keeper& operator=(const Keeper&) = delete;
    /// Returns when nothing is left.
    ~Keeper();

    const std::filesystem::path& folder() const { return folder_; }

    /// Starts a program, without a terminal or a screen, in a process group of its own. Its
    /// temporary files are in the folder, too. To be called once.
    void start(const std::vector<std::string>& command);
    /// A file that the program is to store elsewhere: it is removed with the folder, and so is what
    /// an office keeps beside it while it stores. REQUIRES: the name is not in use.
    void removeAtEnd(const std::filesystem::path& file);
    /// Whether the program that was started has ended.
    bool hasEnded();

 private:
    void letGo();

    pid_t process_ = -1;
    files::Descriptor link_;
    std::filesystem::path folder_;
    bool ended_ = false;
};

}  // namespace huebrush::cli
