#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "files/Lock.h"
#include "files/OpenFile.h"
#include "files/win32/FileState.h"

namespace huebrush::files {

/// A file's content. It is read when the file is opened, which is closed again at once: a file that
/// anybody has open cannot be replaced by this system.
class OpenFile::Native {
 public:
    Native(std::string name, const Handle& file);

    std::string name;
    FileState opened;
    std::vector<std::uint8_t> content;
};

/// The right to write a file, which only one has at a time in all processes. It is a mutex that is
/// named after the file, and is had by who has made it, not by who has locked it: a mutex may be
/// locked again by the same thread, but not made again while it is there. The system takes it away
/// with the process, however that ends.
class Claim {
 public:
    Claim() = default;
    /// Without success it is nobody's.
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

/// Opens a file for reading, unless somebody has it open for writing: then it holds nothing. Nobody
/// can open it for writing before it is closed.
Handle openAgainstWriters(const std::string& name);

}  // namespace huebrush::files
