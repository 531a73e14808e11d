// SPDX-License-Identifier: MPL-2.0

#include "files/NewFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cstdio>

#include "base/Text.h"
#include "files/Beside.h"
#include "files/Error.h"
#include "files/Names.h"
#include "files/posix/Attributes.h"
#include "files/posix/Lease.h"
#include "files/posix/NativeFiles.h"

namespace huebrush::files {

namespace {

constexpr mode_t kRightsOfNewFiles = 0666;
constexpr mode_t kOnlyForUs = 0600;

std::string linkTo(int file) {
    return base::text("/proc/self/fd/", file);
}

/// Locks a file that only its own maker and removeDead lock. Whether it is ours, also where there
/// are no locks.
bool lockAtOnce(int file) {
    return uninterrupted([&] { return ::flock(file, LOCK_EX | LOCK_NB); }) == 0 ||
           isWithoutLocks(errno);
}

/// Removes a file beside another one if the process that made it is gone. Whether it was.
bool removeDead(const std::string& beside) {
    const Descriptor file(beside, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    if (!file || uninterrupted([&] { return ::flock(file.get(), LOCK_EX | LOCK_NB); }) != 0) {
        return false;
    }
    struct stat status = {};
    return ::fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode) &&
           leadsTo(beside, {status.st_dev, status.st_ino, 0, {}, false}) &&
           ::unlink(beside.c_str()) == 0;
}

/// The folder's names on the medium.
void syncFolderOf(const std::string& name) {
    const Descriptor folder(folderOf(name), O_RDONLY | O_DIRECTORY);
    if (!folder) throw Error(Problem::write, name, errno);
    // Some file systems cannot sync a folder, and say so.
    if (uninterrupted([&] { return ::fsync(folder.get()); }) != 0 && errno != EINVAL) {
        throw Error(Problem::write, name, errno);
    }
}

/// Gives a file another name that is free. 0, or the system's error number.
int renameToNew(const char* from, const char* to) {
    if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return errno;
    // Some file systems know no such renaming; a second name does the same.
    if (::link(from, to) == 0) return ::unlink(from) == 0 ? 0 : errno;
    if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS) return errno;
    // And some know no second names.
    if (exists(to)) return EEXIST;
    return ::rename(from, to) == 0 ? 0 : errno;
}

}  // namespace

class NewFile::Native {
 public:
    explicit Native(std::string name);
    explicit Native(const Lock& replaced);
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
    ~Native();

    void write(std::uint64_t at, std::span<const std::uint8_t> bytes) const;
    void read(std::uint64_t at, std::span<std::uint8_t> out) const;
    OpenFile publish();

 private:
    void make(mode_t rights);
    bool makeWithoutName(mode_t rights);
    void makeBeside(mode_t rights);
    void linkBeside();
    void appear();
    void replace();
    bool tryToReplace();
    bool exchange();
    void takeBack();
    void removeBeside();

    std::string name_;
    const Lock::Native* replaced_ = nullptr;
    /// Its temporary name; empty while it has none.
    std::string beside_;
    Descriptor writing_;
    Descriptor reading_;
};

NewFile::NewFile(const std::string& name) : native_(std::make_unique<Native>(name)) {}
NewFile::NewFile(const Lock& replaced) : native_(std::make_unique<Native>(replaced)) {}
NewFile::~NewFile() = default;

void NewFile::write(std::uint64_t at, std::span<const std::uint8_t> bytes) const {
    native_->write(at, bytes);
}

void NewFile::read(std::uint64_t at, std::span<std::uint8_t> out) const {
    native_->read(at, out);
}

OpenFile NewFile::publish() {
    return native_->publish();
}

NewFile::Native::Native(std::string name) : name_(std::move(name)) {
    make(kRightsOfNewFiles);
}

NewFile::Native::Native(const Lock& replaced)
    : name_(replaced.name()), replaced_(&replaced.native()) {
    make(kOnlyForUs);
    copyAttributes(replaced_->file(), writing_.get());
}

NewFile::Native::~Native() {
    removeBeside();
}

void NewFile::Native::make(mode_t rights) {
    if (!makeWithoutName(rights)) makeBeside(rights);
}

bool NewFile::Native::makeWithoutName(mode_t rights) {
    writing_ = Descriptor(folderOf(name_), O_RDWR | O_TMPFILE, rights);
    if (!writing_) return false;
    reading_ = Descriptor(linkTo(writing_.get()), O_RDONLY);
    // Without the system's list of open files, the file could not be given a name.
    if (!reading_) writing_.close();
    return reading_ && lockAtOnce(reading_.get());
}

void NewFile::Native::makeBeside(mode_t rights) {
    beside_ = takeNameBeside(
        name_,
        [&](const std::string& beside) {
            writing_ = Descriptor(beside, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, rights);
            if (!writing_) return errno;
            reading_ = Descriptor(beside, O_RDONLY | O_NOFOLLOW);
            // Another process may have taken it for dead before it was locked.
            const bool ours = reading_ && lockAtOnce(reading_.get()) &&
                              leadsTo(beside, stateOf(writing_.get(), name_));
            return ours ? 0 : EEXIST;
        },
        removeDead);
}

void NewFile::Native::write(std::uint64_t at, std::span<const std::uint8_t> bytes) const {
    writeTo(writing_.get(), name_, at, bytes);
}

void NewFile::Native::read(std::uint64_t at, std::span<std::uint8_t> out) const {
    readFrom(reading_.get(), name_, at, out);
}

OpenFile NewFile::Native::publish() {
    if (uninterrupted([&] { return ::fsync(writing_.get()); }) != 0) {
        throw Error(Problem::write, name_, errno);
    }
    // The next writer would consider a file that is open for writing to be in use.
    writing_.close();
    // Now, since others may write to it as soon as it has appeared.
    auto published = std::make_unique<OpenFile::Native>(name_, reading_.duplicate());
    if (replaced_ == nullptr) {
        appear();
    } else {
        replace();
    }
    syncFolderOf(name_);
    ::flock(reading_.get(), LOCK_UN);
    return OpenFile(std::move(published));
}

void NewFile::Native::appear() {
    const int reason = !beside_.empty() ? renameToNew(beside_.c_str(), name_.c_str())
                       : ::linkat(AT_FDCWD, linkTo(reading_.get()).c_str(), AT_FDCWD, name_.c_str(),
                                  AT_SYMLINK_FOLLOW) == 0
                           ? 0
                           : errno;
    if (reason != 0) throw Error(Problem::write, name_, reason);
    beside_.clear();
}

/// What has no name yet gets one: only what has a name can take the place of another file.
void NewFile::Native::linkBeside() {
    if (!beside_.empty()) return;
    const std::string file = linkTo(reading_.get());
    beside_ = takeNameBeside(
        name_,
        [&](const std::string& beside) {
            return ::linkat(AT_FDCWD, file.c_str(), AT_FDCWD, beside.c_str(), AT_SYMLINK_FOLLOW) ==
                           0
                       ? 0
                       : errno;
        },
        removeDead);
}

void NewFile::Native::replace() {
    linkBeside();
    const Patience patience(kHoldersTime);
    while (replaced_->isLockedByOthers() || !tryToReplace()) {
        if (!patience.wait()) throw Error(Problem::inUse, name_);
    }
}

/// Takes the old file's place unless somebody has that open for writing. Anyone who opens it for
/// writing meanwhile has to wait for us, and finds either the old file as it was or the new one.
bool NewFile::Native::tryToReplace() {
    const Lease lease(replaced_->file());
    if (lease.isRefused()) return false;
    if (!replaced_->isUntouched()) throw Error(Problem::changed, name_);
    if (!exchange()) {
        // Without an exchange nothing can be undone: anyone who comes after this look is not
        // noticed.
        if (lease.isWanted()) return false;
        if (::rename(beside_.c_str(), name_.c_str()) != 0)
            throw Error(Problem::write, name_, errno);
        beside_.clear();
        return true;
    }
    const bool taken = leadsTo(beside_, replaced_->state()) && !lease.isWanted() &&
                       replaced_->state().isUnchangedIn(stateOf(replaced_->file(), name_));
    if (!taken) {
        takeBack();
        return false;
    }
    removeBeside();
    return true;
}

/// Lets the new and the old file change their names. Whether the file system can do that.
bool NewFile::Native::exchange() {
    if (::renameat2(AT_FDCWD, beside_.c_str(), AT_FDCWD, name_.c_str(), RENAME_EXCHANGE) == 0) {
        return true;
    }
    if (errno != EINVAL && errno != ENOSYS) throw Error(Problem::write, name_, errno);
    return false;
}

/// Undoes an exchange, unless another program has put its own file under the name by now. The
/// old file is never removed here.
void NewFile::Native::takeBack() {
    const std::string old = std::exchange(beside_, {});
    if (!leadsTo(name_, stateOf(reading_.get(), name_))) throw Error(Problem::changed, name_);
    if (::renameat2(AT_FDCWD, old.c_str(), AT_FDCWD, name_.c_str(), RENAME_EXCHANGE) != 0) {
        throw Error(Problem::write, name_, errno);
    }
    beside_ = old;
}

void NewFile::Native::removeBeside() {
    if (!beside_.empty()) ::unlink(beside_.c_str());
    beside_.clear();
}

void writeTo(int file, const std::string& name, std::uint64_t at,
             std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t put = uninterrupted(
            [&] { return ::pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(at)); });
        if (put < 0) throw Error(Problem::write, name, errno);
        bytes = bytes.subspan(static_cast<std::size_t>(put));
        at += static_cast<std::uint64_t>(put);
    }
}

}  // namespace huebrush::files
