// SPDX-License-Identifier: MPL-2.0

#include "files/posix/FileState.h"

#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <tuple>

#include "files/Error.h"
#include "files/Waiting.h"

namespace huebrush::files {

namespace {

constexpr auto kStepOfClock = std::chrono::milliseconds(1);
/// The clock's steps take 10 ms at most. A file that is written in each of them stays unsettled.
constexpr int kLongestWait = 25;
/// A time this far ahead comes from another clock, for which waiting is of no use.
constexpr std::time_t kOtherClock = 1;

bool isEarlier(const timespec& a, const timespec& b) {
    return std::tie(a.tv_sec, a.tv_nsec) < std::tie(b.tv_sec, b.tv_nsec);
}

}  // namespace

bool FileState::isUnchangedIn(const FileState& later) const {
    return settled && isSameFile(later) && size == later.size &&
           written.tv_sec == later.written.tv_sec && written.tv_nsec == later.written.tv_nsec;
}

FileState stateOf(int file, const std::string& name) {
    timespec now = {};
    // The clock of the file systems; read first, so that no step is missed.
    ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
    struct stat status = {};
    if (::fstat(file, &status) != 0) throw Error(Problem::read, name, errno);
    if (!S_ISREG(status.st_mode)) throw Error(Problem::notRegular, name);
    const bool settled =
        isEarlier(status.st_mtim, now) || status.st_mtim.tv_sec > now.tv_sec + kOtherClock;
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim, settled};
}

FileState settledStateOf(int file, const std::string& name) {
    FileState state = stateOf(file, name);
    for (int i = 0; i < kLongestWait && !state.settled; ++i) {
        rest(kStepOfClock);
        state = stateOf(file, name);
    }
    return state;
}

bool leadsTo(const std::string& name, const FileState& file) {
    struct stat status = {};
    return ::stat(name.c_str(), &status) == 0 && status.st_dev == file.device &&
           status.st_ino == file.inode;
}

}  // namespace huebrush::files
