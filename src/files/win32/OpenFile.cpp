// SPDX-License-Identifier: MPL-2.0

#include "files/OpenFile.h"

#include <algorithm>
#include <new>
#include <stdexcept>

#include "files/Error.h"
#include "files/Waiting.h"
#include "files/win32/NativeFiles.h"

namespace huebrush::files {

namespace {

Handle openForReading(const std::string& name) {
    // Devices and folders are refused before anything is opened for reading.
    stateOf(openToLook(name), name);
    const Patience patience(kHoldersTime);
    for (;;) {
        Handle file = openExisting(name, GENERIC_READ, kShareAll);
        if (file) return file;
        const int reason = lastReason();
        if (reason != ERROR_SHARING_VIOLATION) throw Error(Problem::read, name, reason);
        if (!patience.wait()) throw Error(Problem::inUse, name);
    }
}

}  // namespace

OpenFile::Native::Native(std::string itsName, const Handle& file)
    : name(std::move(itsName)), opened(settledStateOf(file, name)) {
    try {
        content.resize(static_cast<std::size_t>(opened.size));
    } catch (const std::bad_alloc&) {
        throw Error(Problem::read, name, ERROR_NOT_ENOUGH_MEMORY);
    } catch (const std::length_error&) {
        throw Error(Problem::read, name, ERROR_NOT_ENOUGH_MEMORY);
    }
    readFrom(file, name, 0, content);
}

OpenFile::OpenFile(const std::string& name)
    : OpenFile(std::make_unique<Native>(name, openForReading(name))) {}
OpenFile::OpenFile(std::unique_ptr<Native> native) : native_(std::move(native)) {}
OpenFile::OpenFile(OpenFile&& other) noexcept = default;
OpenFile& OpenFile::operator=(OpenFile&& other) noexcept = default;
OpenFile::~OpenFile() = default;

std::uint64_t OpenFile::size() const {
    return native_->content.size();
}

void OpenFile::read(std::uint64_t at, std::span<std::uint8_t> out) const {
    const std::span<const std::uint8_t> content = native_->content;
    if (at > content.size() || out.size() > content.size() - at) {
        throw Error(Problem::cutOff, native_->name);
    }
    const auto part = content.subspan(static_cast<std::size_t>(at), out.size());
    std::copy(part.begin(), part.end(), out.begin());
}

bool OpenFile::isCurrent() const {
    try {
        const std::string& name = native_->name;
        return native_->opened.isUnchangedIn(stateOf(openToLook(name), name));
    } catch (const Error&) {
        return false;
    }
}

void readFrom(const Handle& file, const std::string& name, std::uint64_t at,
              std::span<std::uint8_t> out) {
    constexpr std::size_t kPiece = 1U << 24U;
    while (!out.empty()) {
        OVERLAPPED place = {};
        place.Offset = static_cast<DWORD>(at);
        place.OffsetHigh = static_cast<DWORD>(at >> 32U);
        DWORD got = 0;
        if (::ReadFile(file.get(), out.data(), static_cast<DWORD>(std::min(out.size(), kPiece)),
                       &got, &place) == 0) {
            const int reason = lastReason();
            if (reason == ERROR_HANDLE_EOF) throw Error(Problem::cutOff, name);
            if (reason == ERROR_LOCK_VIOLATION) throw Error(Problem::inUse, name);
            throw Error(Problem::read, name, reason);
        }
        if (got == 0) throw Error(Problem::cutOff, name);
        out = out.subspan(got);
        at += got;
    }
}

}  // namespace huebrush::files
