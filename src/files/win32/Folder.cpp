// SPDX-License-Identifier: MPL-2.0

// Without <filesystem>, which needs functions of the C library that Windows 2000 does not have.

#include "files/Folder.h"

#include "files/Error.h"
#include "files/Names.h"
#include "files/win32/System.h"

namespace huebrush::files {

namespace {

bool isFolder(const std::wstring& name) {
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::string withoutSeparatorAtEnd(const std::string& name) {
    return name.substr(0, name.find_last_not_of("/\\") + 1);
}

}  // namespace

void removeFile(const std::string& name) {
    if (::DeleteFileW(nativeName(name).c_str()) == FALSE) {
        throw Error(Problem::write, name, lastReason());
    }
}

void makeFolder(const std::string& name) {
    const std::wstring folder = nativeName(name);
    if (isFolder(folder)) return;
    const std::string above = folderOf(withoutSeparatorAtEnd(name));
    // A drive has no folder above it.
    if (above.size() < name.size() && !isFolder(nativeName(above))) makeFolder(above);
    if (::CreateDirectoryW(folder.c_str(), nullptr) == FALSE) {
        const int reason = lastReason();
        // Somebody else may have made it meanwhile.
        if (!isFolder(folder)) throw Error(Problem::write, name, reason);
    }
}

}  // namespace huebrush::files
