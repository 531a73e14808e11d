// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "files/Lock.h"
#include "files/OpenFile.h"
#include "files/posix/Descriptor.h"
#include "files/posix/FileState.h"

namespace huebrush::files {

class OpenFile::Native {
 public:
    Native(std::string name, Descriptor file);

    std::string name;
    Descriptor file;
    FileState opened;
};

class Lock::Native {
 public:
    Native(std::string name, std::string lockFile, std::chrono::milliseconds wait);

    int file() const { return file_.get(); }
    /// The state of the file at the time when it was locked.
    const FileState& state() const { return state_; }
    /// Whether another program has locked a part of the file, or the file beside it.
    bool isLockedByOthers() const;
    /// Whether the name still leads to the file, and nobody has written it since it was locked.
    bool isUntouched() const;

 private:
    void take(std::chrono::milliseconds wait);

    std::string name_;
    std::string lockFile_;
    Descriptor file_;
    FileState state_;
};

/// Fills `out` from an open file's place `at` on; the file's end before that is an Error.
void readFrom(int file, const std::string& name, std::uint64_t at, std::span<std::uint8_t> out);
/// Writes at an open file's place `at`.
void writeTo(int file, const std::string& name, std::uint64_t at,
             std::span<const std::uint8_t> bytes);

/// Whether the system's error says that files cannot be locked where this one is.
bool isWithoutLocks(int reason);

}  // namespace huebrush::files
