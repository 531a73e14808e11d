// The files of a POSIX system.
//
// Who writes holds flock on the file that its name leads to. The file is never written in place but
// replaced, so whoever waited for the lock finds another file under the name, and takes the lock of
// that one. The file itself is only ever opened for reading: so a read lease tells whether any
// program has it open for writing, where the system has leases and gives us one.

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

#include "base/Text.h"
#include "jet/file/FileSystem.h"

namespace huebrush::jet {

namespace {

constexpr auto kLongestWait = std::chrono::seconds(20);
constexpr auto kBetweenTries = std::chrono::milliseconds(2);

[[noreturn]] void throwSystem(const std::string& what, const std::string& name, int reason) {
    std::int32_t number = ErrorNumber::kFileSystem;
    if (reason == ENOENT || reason == ENOTDIR) number = ErrorNumber::kFileNotFound;
    if (reason == ENOSPC || reason == EDQUOT || reason == EFBIG) number = ErrorNumber::kOutOfSpace;
    if (reason == EACCES || reason == EROFS || reason == EPERM) number = ErrorNumber::kReadOnly;
    if (reason == EEXIST) number = ErrorNumber::kAlreadyExists;
    throw base::Error(number, base::text(what, " „", name, "“: ", std::strerror(reason), "."));
}

[[noreturn]] void throwInUse(const std::string& name) {
    throw base::Error(ErrorNumber::kInUse,
                      base::text("Databázi „", name, "“ má otevřenou jiný program."));
}

std::string folderOf(const std::string& name) {
    const std::size_t slash = name.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : name.substr(0, slash);
}

/// An open file descriptor.
class Descriptor {
 public:
    Descriptor(const std::string& name, int flags, mode_t rights = 0)
        : value_(::open(name.c_str(), flags | O_CLOEXEC | O_NOFOLLOW * ((flags & O_CREAT) != 0),
                        rights)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (value_ >= 0) ::close(value_);
    }
    int get() const { return value_; }

 private:
    int value_;
};

/// Whether a name leads to the very file that is open.
bool leadsTo(const std::string& name, int file) {
    struct stat named = {};
    struct stat open = {};
    return ::stat(name.c_str(), &named) == 0 && ::fstat(file, &open) == 0 &&
           named.st_dev == open.st_dev && named.st_ino == open.st_ino;
}

class PosixFile final : public File {
 public:
    PosixFile(std::string name, int flags, mode_t rights = 0)
        : name_(std::move(name)), file_(name_, flags, rights) {
        if (file_.get() < 0) throwSystem("Nelze otevřít soubor", name_, errno);
        struct stat status = {};
        if (::fstat(file_.get(), &status) != 0) throwSystem("Nelze číst soubor", name_, errno);
        if (!S_ISREG(status.st_mode)) throwSystem("Nelze otevřít soubor", name_, EINVAL);
        opened_ = status;
    }

    std::uint64_t size() override {
        struct stat status = {};
        if (::fstat(file_.get(), &status) != 0) throwSystem("Nelze číst soubor", name_, errno);
        return static_cast<std::uint64_t>(status.st_size);
    }
    void read(std::uint64_t at, std::span<std::uint8_t> out) override {
        while (!out.empty()) {
            const ssize_t got =
                ::pread(file_.get(), out.data(), out.size(), static_cast<off_t>(at));
            if (got < 0 && errno == EINTR) continue;
            if (got < 0) throwSystem("Nelze číst soubor", name_, errno);
            if (got == 0) {
                throw base::Error(ErrorNumber::kFileSystem,
                                  base::text("Soubor „", name_, "“ byl během čtení zkrácen."));
            }
            out = out.subspan(static_cast<std::size_t>(got));
            at += static_cast<std::uint64_t>(got);
        }
    }
    void write(std::uint64_t at, ByteView bytes) override {
        while (!bytes.empty()) {
            const ssize_t put =
                ::pwrite(file_.get(), bytes.data(), bytes.size(), static_cast<off_t>(at));
            if (put < 0 && errno == EINTR) continue;
            if (put < 0) throwSystem("Nelze zapsat soubor", name_, errno);
            bytes = bytes.subspan(static_cast<std::size_t>(put));
            at += static_cast<std::uint64_t>(put);
        }
    }
    void sync() override {
        if (::fsync(file_.get()) != 0) throwSystem("Nelze zapsat soubor", name_, errno);
    }
    bool isCurrent() override {
        struct stat now = {};
        return leadsTo(name_, file_.get()) && ::fstat(file_.get(), &now) == 0 &&
               now.st_mtim.tv_sec == opened_.st_mtim.tv_sec &&
               now.st_mtim.tv_nsec == opened_.st_mtim.tv_nsec && now.st_size == opened_.st_size;
    }
    /// Gives a new file the owner and the rights of another one, as far as the system allows.
    void takeRightsFrom(const std::string& other) {
        struct stat status = {};
        if (::stat(other.c_str(), &status) != 0) throwSystem("Nelze číst soubor", other, errno);
        // Another owner is refused to everybody but root; the rights matter more.
        if (::fchown(file_.get(), status.st_uid, status.st_gid) != 0 &&
            ::fchown(file_.get(), static_cast<uid_t>(-1), status.st_gid) != 0) {
            status.st_mode &= 0777U;
        }
        if (::fchmod(file_.get(), status.st_mode & 07777U) != 0) {
            throwSystem("Nelze zapsat soubor", name_, errno);
        }
    }

 private:
    std::string name_;
    Descriptor file_;
    struct stat opened_ = {};
};

class PosixLock final : public Lock {
 public:
    explicit PosixLock(const std::string& name) : file_(name, O_RDONLY) {
        if (file_.get() < 0) throwSystem("Nelze otevřít soubor", name, errno);
    }
    bool take(const std::string& name) {
        if (::flock(file_.get(), LOCK_EX | LOCK_NB) == 0) return true;
        if (errno == EINTR || errno == EWOULDBLOCK) return false;
        throwSystem("Nelze zamknout soubor", name, errno);
    }
    bool leadsHere(const std::string& name) const { return leadsTo(name, file_.get()); }
    /// Whether some program has the file open for writing or holds one of its bytes locked.
    bool heldByOthers() const {
        struct flock range = {};
        range.l_type = F_WRLCK;
        range.l_whence = SEEK_SET;
        if (::fcntl(file_.get(), F_GETLK, &range) == 0 && range.l_type != F_UNLCK) return true;
#ifdef F_SETLEASE
        if (::fcntl(file_.get(), F_SETLEASE, F_RDLCK) == 0) {
            ::fcntl(file_.get(), F_SETLEASE, F_UNLCK);
        } else if (errno == EAGAIN) {
            return true;
        }
#endif
        return false;
    }

 private:
    Descriptor file_;
};

/// Whether a session of the database platform holds the lock file beside the database.
bool lockFileHeld(const std::string& name) {
    if (name.size() < 4) return false;
    const Descriptor file(name.substr(0, name.size() - 4) + ".ldb", O_RDONLY);
    if (file.get() < 0) return false;
    struct flock range = {};
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    return ::fcntl(file.get(), F_GETLK, &range) == 0 && range.l_type != F_UNLCK;
}

class PosixFiles final : public FileSystem {
 public:
    std::string resolve(const std::string& name) override {
        char* const real = ::realpath(name.c_str(), nullptr);
        if (real == nullptr) return name;
        std::string resolved = real;
        ::free(real);  // NOLINT(cppcoreguidelines-no-malloc): realpath allocates it so
        return resolved;
    }
    bool exists(const std::string& name) override {
        struct stat status = {};
        return ::lstat(name.c_str(), &status) == 0;
    }
    std::unique_ptr<File> open(const std::string& name) override {
        // Without O_NONBLOCK the opening of a pipe would wait for its other end.
        return std::make_unique<PosixFile>(name, O_RDONLY | O_NONBLOCK);
    }
    std::unique_ptr<File> create(const std::string& name, const std::string& like) override {
        auto file = std::make_unique<PosixFile>(name, O_RDWR | O_CREAT | O_EXCL,
                                                like.empty() ? 0666 : 0600);
        if (!like.empty()) file->takeRightsFrom(like);
        return file;
    }
    void replace(const std::string& from, const std::string& to) override {
        if (::rename(from.c_str(), to.c_str()) != 0)
            throwSystem("Nelze nahradit soubor", to, errno);
    }
    void moveNew(const std::string& from, const std::string& to) override {
        if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
            return;
        // Some file systems know no such renaming; there a second name does the same.
        if (errno != EINVAL && errno != ENOSYS) throwSystem("Nelze založit soubor", to, errno);
        if (::link(from.c_str(), to.c_str()) != 0) throwSystem("Nelze založit soubor", to, errno);
        ::unlink(from.c_str());
    }
    void remove(const std::string& name) override {
        if (::unlink(name.c_str()) != 0) throwSystem("Nelze odstranit soubor", name, errno);
    }
    void syncFolder(const std::string& name) override {
        const std::string folder = folderOf(name);
        const Descriptor file(folder, O_RDONLY | O_DIRECTORY);
        if (file.get() < 0) throwSystem("Nelze otevřít složku", folder, errno);
        // Some file systems cannot sync a folder, and say so.
        if (::fsync(file.get()) != 0 && errno != EINVAL) {
            throwSystem("Nelze zapsat složku", folder, errno);
        }
    }
    std::unique_ptr<Lock> lock(const std::string& name) override {
        if (::access(name.c_str(), W_OK) != 0) throwSystem("Nelze zapsat soubor", name, errno);
        const auto end = std::chrono::steady_clock::now() + kLongestWait;
        for (;;) {
            auto lock = std::make_unique<PosixLock>(name);
            bool taken = lock->take(name);
            while (!taken && std::chrono::steady_clock::now() < end) {
                std::this_thread::sleep_for(kBetweenTries);
                taken = lock->take(name);
            }
            if (!taken) throwInUse(name);
            if (!lock->leadsHere(name)) continue;
            if (lock->heldByOthers() || lockFileHeld(name)) throwInUse(name);
            return lock;
        }
    }
};

}  // namespace

FileSystem& systemFiles() {
    static PosixFiles files;
    return files;
}

}  // namespace huebrush::jet
