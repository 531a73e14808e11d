// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "files/Lock.h"
#include "files/OpenFile.h"
#include "files/win32/FileState.h"

namespace huebrush::files {

/// A file's content. It is read when the file is opened, and the file is closed again at once: this
/// system cannot replace a file that anybody has open.
class OpenFile::Native {
 public:
    Native(std::string name, const Handle& file);

    std::string name;
    FileState opened;
    std::vector<std::uint8_t> content;
};

/// The right to replace a file, which only one object in all processes has at a time. It is a mutex
/// named after the file, and belongs to whoever created it, not to whoever acquired it: a thread
/// may acquire a mutex again, but nobody can create one that exists. The system removes it with the
/// process, however that ends.
class Claim {
 public:
    Claim() = default;
    /// Empty when somebody else has it.
    explicit Claim(const FileState& file);

    explicit operator bool() const { return static_cast<bool>(mutex_); }
    bool isOn(const FileState& file) const { return file_.isSameFile(file); }

 private:
    FileState file_;
    Handle mutex_;
};

class Lock::Native {
 public:
    Native(const std::string& name, std::chrono::milliseconds wait);

    /// The state of the file at the time when it was locked.
    const FileState& state() const { return state_; }

 private:
    void take(const std::string& name, std::chrono::milliseconds wait);

    FileState state_;
    Claim claim_;
};

/// Fills `out` from an open file's place `at` on; the file's end before that is an Error.
void readFrom(const Handle& file, const std::string& name, std::uint64_t at,
              std::span<std::uint8_t> out);
/// Writes at an open file's place `at`.
void writeTo(const Handle& file, const std::string& name, std::uint64_t at,
             std::span<const std::uint8_t> bytes);

/// Opens a file for reading and keeps others from opening it for writing. The handle is empty when
/// somebody already has.
Handle openAgainstWriters(const std::string& name);

}  // namespace huebrush::files
