// SPDX-License-Identifier: MPL-2.0

#include "files/Lock.h"

#include <sys/file.h>
#include <sys/stat.h>

#include "files/Error.h"
#include "files/posix/Lease.h"
#include "files/posix/NativeFiles.h"

namespace huebrush::files {

namespace {

/// Whether another process has locked any part of an open file.
bool hasLockedParts(int file) {
    struct flock range = {};
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    return ::fcntl(file, F_GETLK, &range) == 0 && range.l_type != F_UNLCK;
}

/// Looked at before it is opened: with some devices the opening alone has an effect.
void requireRegular(const std::string& name) {
    struct stat status = {};
    if (::stat(name.c_str(), &status) != 0) throw Error(Problem::read, name, errno);
    if (!S_ISREG(status.st_mode)) throw Error(Problem::notRegular, name);
}

bool isOpenForWriting(int file) {
    return Lease(file).isRefused();
}

}  // namespace

bool isWithoutLocks(int reason) {
    // The last one comes from network file systems, whose locks need a file that is open for
    // writing.
    return reason == ENOLCK || reason == ENOSYS || reason == EOPNOTSUPP || reason == EINVAL ||
           reason == EBADF;
}

Lock::Lock(const std::string& name, const std::string& lockFile, std::chrono::milliseconds wait)
    : name_(name), native_(std::make_unique<Native>(name, lockFile, wait)) {}
Lock::~Lock() = default;

Lock::Native::Native(std::string name, std::string lockFile, std::chrono::milliseconds wait)
    : name_(std::move(name)), lockFile_(std::move(lockFile)) {
    requireRegular(name_);
    if (::access(name_.c_str(), W_OK) != 0) throw Error(Problem::write, name_, errno);
    do {
        // Only ever for reading: otherwise it would be in use by ourselves.
        file_ = Descriptor(name_, O_RDONLY | O_NONBLOCK);
        if (!file_) throw Error(Problem::read, name_, errno);
        stateOf(file_.get(), name_);
        take(wait);
        state_ = settledStateOf(file_.get(), name_);
        // Who has waited for the lock may find another file under the name.
    } while (!leadsTo(name_, state_));
    const Patience patience(kHoldersTime);
    while (isLockedByOthers() || isOpenForWriting(file_.get())) {
        if (!patience.wait()) throw Error(Problem::inUse, name_);
    }
}

void Lock::Native::take(std::chrono::milliseconds wait) {
    const Patience patience(wait);
    while (uninterrupted([&] { return ::flock(file_.get(), LOCK_EX | LOCK_NB); }) != 0) {
        if (isWithoutLocks(errno)) return;
        if (errno != EWOULDBLOCK) throw Error(Problem::lock, name_, errno);
        if (!patience.wait()) throw Error(Problem::inUse, name_);
    }
}

bool Lock::Native::isLockedByOthers() const {
    if (hasLockedParts(file_.get())) return true;
    if (lockFile_.empty()) return false;
    const Descriptor beside(lockFile_, O_RDONLY | O_NONBLOCK);
    return beside && hasLockedParts(beside.get());
}

bool Lock::Native::isUntouched() const {
    return leadsTo(name_, state_) && state_.isUnchangedIn(stateOf(file_.get(), name_));
}

}  // namespace huebrush::files
