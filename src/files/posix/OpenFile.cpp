// SPDX-License-Identifier: MPL-2.0

#include "files/OpenFile.h"

#include "files/Error.h"
#include "files/posix/NativeFiles.h"

namespace huebrush::files {

namespace {

/// Without O_NONBLOCK the opening of a pipe would wait for its other end.
Descriptor openForReading(const std::string& name) {
    Descriptor file(name, O_RDONLY | O_NONBLOCK);
    if (!file) throw Error(Problem::read, name, errno);
    return file;
}

}  // namespace

OpenFile::Native::Native(std::string itsName, Descriptor itsFile)
    : name(std::move(itsName)),
      file(std::move(itsFile)),
      opened(settledStateOf(file.get(), name)) {}

OpenFile::OpenFile(const std::string& name)
    : OpenFile(std::make_unique<Native>(name, openForReading(name))) {}
OpenFile::OpenFile(std::unique_ptr<Native> native) : native_(std::move(native)) {}
OpenFile::OpenFile(OpenFile&& other) noexcept = default;
OpenFile& OpenFile::operator=(OpenFile&& other) noexcept = default;
OpenFile::~OpenFile() = default;

std::uint64_t OpenFile::size() const {
    return static_cast<std::uint64_t>(stateOf(native_->file.get(), native_->name).size);
}

void OpenFile::read(std::uint64_t at, std::span<std::uint8_t> out) const {
    readFrom(native_->file.get(), native_->name, at, out);
}

bool OpenFile::isCurrent() const {
    return leadsTo(native_->name, native_->opened) &&
           native_->opened.isUnchangedIn(stateOf(native_->file.get(), native_->name));
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

}  // namespace huebrush::files
