// SPDX-License-Identifier: MPL-2.0

// The files of this system: what files/ does, with the errors of the database platform.

#include "base/Text.h"
#include "files/Error.h"
#include "files/Folder.h"
#include "files/Lock.h"
#include "files/Names.h"
#include "files/NewFile.h"
#include "files/OpenFile.h"
#include "jet/file/FileSystem.h"

namespace huebrush::jet {

namespace {

using base::text;
using files::Cause;
using files::Problem;

std::int32_t numberOf(const files::Error& error) {
    switch (error.problem()) {
        case Problem::inUse:
        case Problem::changed:
            return ErrorNumber::kInUse;
        default:
            break;
    }
    switch (error.cause()) {
        case Cause::missing:
            return ErrorNumber::kFileNotFound;
        case Cause::noSpace:
            return ErrorNumber::kOutOfSpace;
        case Cause::notAllowed:
            return ErrorNumber::kReadOnly;
        case Cause::taken:
            return ErrorNumber::kAlreadyExists;
        default:
            return ErrorNumber::kFileSystem;
    }
}

std::string textOf(const files::Error& error) {
    const std::string& name = error.name();
    const auto system = [&](const char* what) {
        return text(what, " „", name, "“: ", error.textOfReason(), ".");
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
        throw Error(numberOf(error), textOf(error), error.what());
    }
}

class SystemFile final : public File {
 public:
    explicit SystemFile(files::OpenFile file) : file_(std::move(file)) {}

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

class SystemNewFile final : public NewFile {
 public:
    template <class Place>
    explicit SystemNewFile(const Place& place) : file_(place) {}

    void write(std::uint64_t at, ByteView bytes) override {
        translated([&] { file_.write(at, bytes); });
    }
    void read(std::uint64_t at, std::span<std::uint8_t> out) override {
        translated([&] { file_.read(at, out); });
    }
    std::unique_ptr<File> publish() override {
        return translated([&] { return std::make_unique<SystemFile>(file_.publish()); });
    }

 private:
    files::NewFile file_;
};

/// The file that sessions of the database platform keep beside a database, and lock.
std::string lockFileOf(const std::string& name) {
    const std::string_view last = files::lastPartOf(name);
    const std::size_t ending = last.rfind('.');
    if (ending == std::string_view::npos) return {};
    return name.substr(0, name.size() - last.size() + ending) + ".ldb";
}

class SystemLock final : public Lock {
 public:
    explicit SystemLock(const std::string& name) : lock_(name, lockFileOf(name)) {}

    std::unique_ptr<NewFile> replacement() override {
        return translated([&] { return std::make_unique<SystemNewFile>(lock_); });
    }

 private:
    files::Lock lock_;
};

class SystemFiles final : public FileSystem {
 public:
    std::string resolve(const std::string& name) override { return files::resolve(name); }
    bool exists(const std::string& name) override { return files::exists(name); }
    std::unique_ptr<File> open(const std::string& name) override {
        return translated([&] { return std::make_unique<SystemFile>(files::OpenFile(name)); });
    }
    std::unique_ptr<NewFile> create(const std::string& name) override {
        return translated([&] { return std::make_unique<SystemNewFile>(name); });
    }
    std::unique_ptr<Lock> lock(const std::string& name) override {
        return translated([&] { return std::make_unique<SystemLock>(name); });
    }
    void remove(const std::string& name) override {
        static_cast<void>(lock(name));
        translated([&] { files::removeFile(name); });
    }
    void makeFolder(const std::string& name) override {
        translated([&] { files::makeFolder(name); });
    }
};

}  // namespace

FileSystem& systemFiles() {
    static SystemFiles files;
    return files;
}

}  // namespace huebrush::jet
