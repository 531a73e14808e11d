// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <string>
#include <utility>

namespace huebrush::files {

/// An open handle, closed at the end of this object.
class Handle {
 public:
    Handle() = default;
    /// Takes over what a call has returned; both signs of failure become none.
    explicit Handle(HANDLE value) : value_(value == INVALID_HANDLE_VALUE ? nullptr : value) {}
    Handle(Handle&& other) noexcept : value_(std::exchange(other.value_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        if (this != &other) {
            close();
            value_ = std::exchange(other.value_, nullptr);
        }
        return *this;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { close(); }

    HANDLE get() const { return value_; }
    explicit operator bool() const { return value_ != nullptr; }
    void close() {
        if (value_ != nullptr) ::CloseHandle(value_);
        value_ = nullptr;
    }

 private:
    HANDLE value_ = nullptr;
};

/// What others may do with a file that is open here.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
inline constexpr DWORD kShareButWriting = FILE_SHARE_READ | FILE_SHARE_DELETE;

/// The number of the last failure, as files::Error has it.
int lastReason();

/// A name in the form that the system's calls take, however long it is.
std::wstring nativeName(const std::string& name);
/// The complete name, with drive and folder.
std::wstring fullName(const std::string& name);
std::string utf8Of(const std::wstring& text);

/// Opens a file that exists. The handle is empty on failure, and GetLastError has the reason.
Handle openExisting(const std::string& name, DWORD access, DWORD share, DWORD flags = 0);

}  // namespace huebrush::files
