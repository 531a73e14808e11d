// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "files/Waiting.h"

namespace huebrush::files {

/// An exclusive lock on a regular file that is to be replaced (see NewFile), against other writers
/// in this process and others. It ends with the object. It is on the file, not on the name.
///
/// A program that has opened the file for writing, or has locked a part of it, counts as holding it
/// as well, as far as the system reveals that: where there are no locks at all, others are noticed
/// only by what they have written.
class Lock {
 public:
    /// Waits for another such lock to end, but no longer than `wait`. `lockFile` is a file beside
    /// this one that other programs lock instead of it, or empty. An Error when the file may not be
    /// written or is in use.
    explicit Lock(const std::string& name, const std::string& lockFile = {},
                  std::chrono::milliseconds wait = kWritersTime);
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock();

    const std::string& name() const { return name_; }

    /// The part of each system.
    class Native;
    const Native& native() const { return *native_; }

 private:
    std::string name_;
    std::unique_ptr<Native> native_;
};

}  // namespace huebrush::files
