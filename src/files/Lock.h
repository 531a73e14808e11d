#pragma once

#include <string>

#include "files/Descriptor.h"
#include "files/FileState.h"

namespace huebrush::files {

/// An exclusive lock on a regular file that is to be replaced (see NewFile), against other writers
/// in this process and others. It ends with the object. It is on the file, not on the name.
///
/// A program that has opened the file for writing, or has locked a part of it, holds it, too, as
/// far as the system lets us see that: where it has no locks at all, others are noticed only by
/// what they have written.
class Lock {
 public:
    /// Waits for another such lock to end. `lockFile` is a file beside this one which other
    /// programs lock instead of it, or empty. An Error when the file may not be written or is in
    /// use.
    explicit Lock(std::string name, std::string lockFile = {});

    const std::string& name() const { return name_; }
    int file() const { return file_.get(); }
    /// The state of the file at the time when it was locked.
    const FileState& state() const { return state_; }

    /// Whether another program has locked a part of the file, or the file beside it.
    bool isLockedByOthers() const;
    /// Whether the name still leads to the file, and nobody has written it since it was locked.
    bool isUntouched() const;

 private:
    void take();

    std::string name_;
    std::string lockFile_;
    Descriptor file_;
    FileState state_;
};

/// Whether the system's error says that files cannot be locked where this one is.
bool isWithoutLocks(int reason);

}  // namespace huebrush::files
