#include "files/OpenFile.h"

#include <sys/stat.h>

#include <filesystem>

#include "files/Error.h"

namespace huebrush::files {

namespace fs = std::filesystem;

namespace {

/// Without O_NONBLOCK the opening of a pipe would wait for its other end.
Descriptor openForReading(const std::string& name) {
    Descriptor file(name, O_RDONLY | O_NONBLOCK);
    if (!file) throw Error(Problem::read, name, errno);
    return file;
}

}  // namespace

OpenFile::OpenFile(const std::string& name) : OpenFile(name, openForReading(name)) {}

OpenFile::OpenFile(std::string name, Descriptor file)
    : name_(std::move(name)), file_(std::move(file)), opened_(settledStateOf(file_.get(), name_)) {}

std::uint64_t OpenFile::size() const {
    return static_cast<std::uint64_t>(stateOf(file_.get(), name_).size);
}

void OpenFile::read(std::uint64_t at, std::span<std::uint8_t> out) const {
    readFrom(file_.get(), name_, at, out);
}

bool OpenFile::isCurrent() const {
    return leadsTo(name_, opened_) && opened_.isUnchangedIn(stateOf(file_.get(), name_));
}

void readFrom(int file, const std::string& name, std::uint64_t at, std::span<std::uint8_t> out) {
    while (!out.empty()) {
        const ssize_t got = uninterrupted(
            [&] { return ::pread(file, out.data(), out.size(), static_cast<off_t>(at)); });
        if (got < 0) throw Error(Problem::read, name, errno);
        if (got == 0) throw Error(Problem::cutOff, name);
        out = out.subspan(static_cast<std::size_t>(got));
        at += static_cast<std::uint64_t>(got);
    }
}

std::string resolve(const std::string& name) {
    constexpr int kMostLinks = 40;
    fs::path path = name;
    std::error_code error;
    for (int i = 0; i < kMostLinks && fs::is_symlink(path, error); ++i) {
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    const fs::path folder = fs::canonical(path.has_parent_path() ? path.parent_path() : ".", error);
    return error ? name : (folder / path.filename()).string();
}

bool exists(const std::string& name) {
    struct stat status = {};
    return ::lstat(name.c_str(), &status) == 0;
}

}  // namespace huebrush::files
