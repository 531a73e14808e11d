// The files of a POSIX system: what files/ does, with the errors of the database platform.

#include <cerrno>
#include <cstring>

#include "base/Text.h"
#include "files/Error.h"
#include "files/Lock.h"
#include "files/NewFile.h"
#include "files/OpenFile.h"
#include "jet/file/FileSystem.h"

namespace huebrush::jet {

namespace {

using base::text;
using files::Problem;

std::int32_t numberOf(const files::Error& error) {
    switch (error.problem()) {
        case Problem::inUse:
        case Problem::changed:
            return ErrorNumber::kInUse;
        default:
            break;
    }
    switch (error.reason()) {
        case ENOENT:
        case ENOTDIR:
            return ErrorNumber::kFileNotFound;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return ErrorNumber::kOutOfSpace;
        case EACCES:
        case EROFS:
        case EPERM:
            return ErrorNumber::kReadOnly;
        case EEXIST:
            return ErrorNumber::kAlreadyExists;
        default:
            return ErrorNumber::kFileSystem;
    }
}

std::string textOf(const files::Error& error) {
    const std::string& name = error.name();
    const auto system = [&](const char* what) {
        return text(what, " „", name, "“: ", std::strerror(error.reason()), ".");
    };
    switch (error.problem()) {
        case Problem::read:
            return system("Nelze číst soubor");
        case Problem::write:
            return system("Nelze zapsat soubor");
        case Problem::lock:
            return system("Nelze zamknout soubor");
        case Problem::notRegular:
            return text("„", name, "“ není obyčejný soubor.");
        case Problem::cutOff:
            return text("Soubor „", name, "“ byl během čtení zkrácen.");
        case Problem::inUse:
            return text("Databázi „", name, "“ má otevřenou jiný program.");
        default:
            return text("Databázi „", name, "“ mezitím změnil jiný program.");
    }
}

/// Runs a body whose errors are those of the database platform.
template <class Body>
auto translated(const Body& body) {
    try {
        return body();
    } catch (const files::Error& error) {
        throw base::Error(numberOf(error), textOf(error));
    }
}

class PosixFile final : public File {
 public:
    explicit PosixFile(files::OpenFile file) : file_(std::move(file)) {}

    std::uint64_t size() override {
        return translated([&] { return file_.size(); });
    }
    void read(std::uint64_t at, std::span<std::uint8_t> out) override {
        translated([&] { file_.read(at, out); });
    }
    bool isCurrent() override {
        return translated([&] { return file_.isCurrent(); });
    }

 private:
    files::OpenFile file_;
};

class PosixNewFile final : public NewFile {
 public:
    template <class Place>
    explicit PosixNewFile(const Place& place) : file_(place) {}

    void write(std::uint64_t at, ByteView bytes) override {
        translated([&] { file_.write(at, bytes); });
    }
    void read(std::uint64_t at, std::span<std::uint8_t> out) override {
        translated([&] { file_.read(at, out); });
    }
    std::unique_ptr<File> publish() override {
        return translated([&] { return std::make_unique<PosixFile>(file_.publish()); });
    }

 private:
    files::NewFile file_;
};

/// The file that sessions of the database platform keep beside a database, and lock.
std::string lockFileOf(const std::string& name) {
    const std::size_t ending = name.rfind('.');
    return ending == std::string::npos ? std::string() : name.substr(0, ending) + ".ldb";
}

class PosixLock final : public Lock {
 public:
    explicit PosixLock(const std::string& name) : lock_(name, lockFileOf(name)) {}

    std::unique_ptr<NewFile> replacement() override {
        return translated([&] { return std::make_unique<PosixNewFile>(lock_); });
    }

 private:
    files::Lock lock_;
};

class PosixFiles final : public FileSystem {
 public:
    std::string resolve(const std::string& name) override { return files::resolve(name); }
    bool exists(const std::string& name) override { return files::exists(name); }
    std::unique_ptr<File> open(const std::string& name) override {
        return translated([&] { return std::make_unique<PosixFile>(files::OpenFile(name)); });
    }
    std::unique_ptr<NewFile> create(const std::string& name) override {
        return translated([&] { return std::make_unique<PosixNewFile>(name); });
    }
    std::unique_ptr<Lock> lock(const std::string& name) override {
        return translated([&] { return std::make_unique<PosixLock>(name); });
    }
};

}  // namespace

FileSystem& systemFiles() {
    static PosixFiles files;
    return files;
}

}  // namespace huebrush::jet
