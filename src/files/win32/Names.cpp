// SPDX-License-Identifier: MPL-2.0

#include "files/Names.h"

#include "files/Reason.h"
#include "files/win32/System.h"

namespace huebrush::files {

namespace {

/// The full name of what is open, with links followed. Empty on systems without this function,
/// which have no symbolic links either.
std::wstring finalName(const Handle& file) {
    using Function = DWORD(WINAPI*)(HANDLE, LPWSTR, DWORD, DWORD);
    const HMODULE library = ::GetModuleHandleW(L"kernel32.dll");
    const auto function = reinterpret_cast<Function>(
        reinterpret_cast<void*>(::GetProcAddress(library, "GetFinalPathNameByHandleW")));
    if (function == nullptr) return {};
    std::wstring name(32768, L'\0');
    const DWORD size = function(file.get(), name.data(), static_cast<DWORD>(name.size()), 0);
    name.resize(size < name.size() ? size : 0);
    return name;
}

/// A name without the prefix for long ones, which nativeName adds where it is needed.
std::wstring withoutPrefix(const std::wstring& name) {
    constexpr std::wstring_view kNetwork = L"\\\\?\\UNC\\";
    constexpr std::wstring_view kPrefix = L"\\\\?\\";
    if (name.starts_with(kNetwork)) return L"\\\\" + name.substr(kNetwork.size());
    return name.starts_with(kPrefix) ? name.substr(kPrefix.size()) : name;
}

}  // namespace

std::string_view lastPartOf(std::string_view name) {
    // A colon separates a name from its drive.
    return name.substr(name.find_last_of("/\\:") + 1);
}

std::string folderOf(std::string_view name) {
    const std::string_view folder = name.substr(0, name.size() - lastPartOf(name).size());
    return folder.empty() ? ".\\" : std::string(folder);
}

std::string resolve(const std::string& name) {
    const Handle file = openExisting(name, 0, kShareAll, FILE_FLAG_BACKUP_SEMANTICS);
    const std::wstring final = file ? finalName(file) : std::wstring();
    return utf8Of(final.empty() ? fullName(name) : withoutPrefix(final));
}

bool exists(const std::string& name) {
    return ::GetFileAttributesW(nativeName(name).c_str()) != INVALID_FILE_ATTRIBUTES ||
           causeOf(lastReason()) != Cause::missing;
}

}  // namespace huebrush::files
