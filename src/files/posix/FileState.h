// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <sys/types.h>

#include <ctime>
#include <string>

namespace huebrush::files {

/// Which file it is, how long, and when it was written: what shows that somebody has written it.
struct FileState {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    timespec written = {};
    /// Whether a later write is sure to show: the clock that stamps files moves in steps of some
    /// milliseconds, and two writes within one step leave the same time.
    bool settled = false;

    bool isSameFile(const FileState& other) const {
        return device == other.device && inode == other.inode;
    }
    /// Whether nothing has been written between the two looks. False, too, when this cannot be
    /// known.
    bool isUnchangedIn(const FileState& later) const;
};

/// The state of an open file. An Error of `name` when the system refuses, or it is not regular.
FileState stateOf(int file, const std::string& name);
/// The same, after waiting for the clock's next step when the file was written in the present one.
FileState settledStateOf(int file, const std::string& name);

/// Whether a name leads to a file.
bool leadsTo(const std::string& name, const FileState& file);

}  // namespace huebrush::files
