// SPDX-License-Identifier: MPL-2.0

#include "files/win32/FileState.h"

#include "files/Error.h"
#include "files/Waiting.h"

namespace huebrush::files {

namespace {

/// In 100 ns: the longest step of the system's clock, and a time so far ahead that it comes from
/// another clock, for which waiting is of no use.
constexpr std::uint64_t kStepOfClock = 160000;
constexpr std::uint64_t kOtherClock = 10000000;
/// A file that is written all this time, in milliseconds, stays unsettled.
constexpr int kLongestWait = 40;

std::uint64_t joined(DWORD high, DWORD low) {
    return (std::uint64_t{high} << 32U) | low;
}

std::uint64_t numberOf(const FILETIME& time) {
    return joined(time.dwHighDateTime, time.dwLowDateTime);
}

}  // namespace

FileState stateOf(const Handle& file, const std::string& name) {
    FILETIME time = {};
    // Read first, so that no step of the clock is missed.
    ::GetSystemTimeAsFileTime(&time);
    if (::GetFileType(file.get()) != FILE_TYPE_DISK) throw Error(Problem::notRegular, name);
    BY_HANDLE_FILE_INFORMATION found = {};
    if (::GetFileInformationByHandle(file.get(), &found) == 0) {
        throw Error(Problem::read, name, lastReason());
    }
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        throw Error(Problem::notRegular, name);
    }
    const std::uint64_t now = numberOf(time);
    const std::uint64_t written = numberOf(found.ftLastWriteTime);
    const bool settled = written + kStepOfClock <= now || written > now + kOtherClock;
    return {found.dwVolumeSerialNumber, joined(found.nFileIndexHigh, found.nFileIndexLow),
            joined(found.nFileSizeHigh, found.nFileSizeLow), written, settled};
}

FileState settledStateOf(const Handle& file, const std::string& name) {
    FileState state = stateOf(file, name);
    for (int i = 0; i < kLongestWait && !state.settled; ++i) {
        rest(std::chrono::milliseconds(1));
        state = stateOf(file, name);
    }
    return state;
}

Handle openToLook(const std::string& name) {
    // The flag is what opens a folder, too; stateOf then reports it.
    Handle file = openExisting(name, 0, kShareAll, FILE_FLAG_BACKUP_SEMANTICS);
    if (!file) throw Error(Problem::read, name, lastReason());
    return file;
}

bool leadsTo(const std::string& name, const FileState& file) {
    try {
        return stateOf(openToLook(name), name).isSameFile(file);
    } catch (const Error&) {
        return false;
    }
}

}  // namespace huebrush::files
