// SPDX-License-Identifier: MPL-2.0

#include "files/win32/System.h"

#include "base/Text.h"

namespace huebrush::files {

namespace {

/// A name of this length needs the prefix that lifts the limit. (For folders it is 12 less than for
/// files.)
constexpr std::size_t kLongName = MAX_PATH - 12;

std::wstring wide(const std::string& text) {
    const std::u16string utf16 = base::toUtf16(text);
    return {utf16.begin(), utf16.end()};
}

}  // namespace

int lastReason() {
    return static_cast<int>(::GetLastError());
}

std::string utf8Of(const std::wstring& text) {
    return base::toUtf8(std::u16string(text.begin(), text.end()));
}

std::wstring fullName(const std::string& name) {
    const std::wstring given = wide(name);
    std::wstring full(MAX_PATH, L'\0');
    for (;;) {
        const DWORD size = ::GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()),
                                              full.data(), nullptr);
        if (size == 0) return given;
        const bool fits = size < full.size();
        full.resize(size);
        if (fits) return full;
    }
}

std::wstring nativeName(const std::string& name) {
    const std::wstring full = fullName(name);
    if (full.size() < kLongName || full.starts_with(L"\\\\?\\")) return full;
    if (full.starts_with(L"\\\\")) return L"\\\\?\\UNC" + full.substr(1);
    return L"\\\\?\\" + full;
}

Handle openExisting(const std::string& name, DWORD access, DWORD share, DWORD flags) {
    return Handle(::CreateFileW(nativeName(name).c_str(), access, share, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL | flags, nullptr));
}

}  // namespace huebrush::files
