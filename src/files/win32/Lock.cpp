// SPDX-License-Identifier: MPL-2.0

#include "files/Lock.h"

#include <array>
#include <cwchar>

#include "files/Error.h"
#include "files/win32/NativeFiles.h"

namespace huebrush::files {

namespace {

/// Whether the file can be opened for writing now. An Error when the user lacks the right.
bool isOpenableForWriting(const std::string& name) {
    const DWORD attributes = ::GetFileAttributesW(nativeName(name).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        throw Error(Problem::write, name, ERROR_ACCESS_DENIED);
    }
    if (openExisting(name, GENERIC_WRITE, kShareAll)) return true;
    const int reason = lastReason();
    if (reason != ERROR_SHARING_VIOLATION) throw Error(Problem::write, name, reason);
    return false;
}

}  // namespace

Claim::Claim(const FileState& file) : file_(file) {
    std::array<wchar_t, 64> name{};
    // For all users of the machine.
    std::swprintf(name.data(), name.size(), L"Global\\huebrush-%08x-%08x%08x",
                  static_cast<unsigned>(file.volume), static_cast<unsigned>(file.index >> 32U),
                  static_cast<unsigned>(file.index & 0xFFFFFFFFU));
    ::SetLastError(ERROR_SUCCESS);
    Handle mutex(::CreateMutexW(nullptr, FALSE, name.data()));
    // That of another user cannot be opened, which is an error, too.
    if (::GetLastError() == ERROR_SUCCESS) mutex_ = std::move(mutex);
}

Handle openAgainstWriters(const std::string& name) {
    Handle file = openExisting(name, GENERIC_READ, kShareButWriting);
    if (file) return file;
    const int reason = lastReason();
    if (reason != ERROR_SHARING_VIOLATION) throw Error(Problem::read, name, reason);
    return file;
}

// A program that has the file open shows on the file itself, so there is no need to look at the one
// beside it.
Lock::Lock(const std::string& name, const std::string& /*lockFile*/, std::chrono::milliseconds wait)
    : name_(name), native_(std::make_unique<Native>(name, wait)) {}
Lock::~Lock() = default;

Lock::Native::Native(const std::string& name, std::chrono::milliseconds wait) {
    take(name, wait);
    const Patience patience(kHoldersTime);
    while (!isOpenableForWriting(name) || !openAgainstWriters(name)) {
        if (!patience.wait()) throw Error(Problem::inUse, name);
    }
}

void Lock::Native::take(const std::string& name, std::chrono::milliseconds wait) {
    const Patience patience(wait);
    do {
        state_ = stateOf(openToLook(name), name);
        // The file stays closed all this time, or whoever has the claim could not replace it.
        while (!(claim_ = Claim(state_))) {
            if (!patience.wait()) throw Error(Problem::inUse, name);
        }
        state_ = settledStateOf(openToLook(name), name);
        // Whoever has waited for the claim may find another file under the name.
    } while (!claim_.isOn(state_));
}

}  // namespace huebrush::files
