// SPDX-License-Identifier: MPL-2.0

#include "files/win32/Attributes.h"

#include <cstdint>
#include <vector>

#include "files/win32/System.h"

namespace huebrush::files {

namespace {

constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                        FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

/// With what it says of inheritance.
void copyAccessList(const std::wstring& from, const std::wstring& to) {
    DWORD size = 0;
    ::GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<std::uint8_t> descriptor(size);
    if (size == 0 || ::GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, descriptor.data(),
                                        size, &size) == 0) {
        return;
    }
    ::SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, descriptor.data());
}

void copyTimeOfMaking(const std::string& from, const std::string& to) {
    const Handle old = openExisting(from, FILE_READ_ATTRIBUTES, kShareAll);
    const Handle made = openExisting(to, FILE_WRITE_ATTRIBUTES, kShareAll);
    FILETIME time = {};
    if (old && made && ::GetFileTime(old.get(), &time, nullptr, nullptr) != 0) {
        ::SetFileTime(made.get(), &time, nullptr, nullptr);
    }
}

}  // namespace

void copyAttributes(const std::string& from, const std::string& to) {
    copyAccessList(nativeName(from), nativeName(to));
    copyTimeOfMaking(from, to);
    const DWORD attributes = ::GetFileAttributesW(nativeName(from).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        ::SetFileAttributesW(nativeName(to).c_str(), attributes & kKept);
    }
}

}  // namespace huebrush::files
