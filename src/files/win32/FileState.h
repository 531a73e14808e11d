// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>

#include "files/win32/System.h"

namespace huebrush::files {

/// Which file it is, how long, and when it was written: what shows that somebody has written it.
struct FileState {
    std::uint32_t volume = 0;
    std::uint64_t index = 0;
    std::uint64_t size = 0;
    std::uint64_t written = 0;  ///< in 100 ns since 1601
    /// Whether a later write is sure to show: the clock that stamps files moves in steps of some
    /// milliseconds, and two writes within one step leave the same time.
    bool settled = false;

    bool isSameFile(const FileState& other) const {
        return volume == other.volume && index == other.index;
    }
    /// Whether nothing has been written between the two looks. False, too, when this cannot be
    /// known.
    bool isUnchangedIn(const FileState& later) const {
        return settled && isSameFile(later) && size == later.size && written == later.written;
    }
};

/// The state of an open file. An Error of `name` when the system refuses, or it is not regular.
FileState stateOf(const Handle& file, const std::string& name);
/// The same, after waiting for the clock's next step when the file was written in the present one.
FileState settledStateOf(const Handle& file, const std::string& name);

/// Opens a file, or a folder, only to ask for its state, whoever else has it open.
Handle openToLook(const std::string& name);
/// Whether a name leads to a file.
bool leadsTo(const std::string& name, const FileState& file);

}  // namespace huebrush::files
