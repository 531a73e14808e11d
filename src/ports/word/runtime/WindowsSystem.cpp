// SPDX-License-Identifier: MPL-2.0

#include "ports/word/runtime/WindowsSystem.h"

#include <windows.h>

#include "base/Error.h"
#include "base/Text.h"
#include "ports/word/com/Text.h"
#include "ports/word/runtime/RegistryKey.h"

namespace huebrush::word {

std::optional<forms::RegistryValue> WindowsSystem::registryValue(forms::RegistryRoot root,
                                                                 const std::string& key,
                                                                 const std::string& name) {
    if (root != forms::RegistryRoot::localMachine) return std::nullopt;
    return RegistryKey::open(HKEY_LOCAL_MACHINE, key).value(name);
}

bool WindowsSystem::fileExists(const std::string& path) {
    return ::GetFileAttributesW(toWide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

void WindowsSystem::start(const std::string& path) {
    // In quotation marks, or the part before a blank might be taken for the program.
    std::wstring command = L"\"" + toWide(path) + L"\"";
    STARTUPINFOW window{};
    window.cb = sizeof(window);
    window.dwFlags = STARTF_USESHOWWINDOW;
    window.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION process{};
    if (::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                         &window, &process) == FALSE) {
        throw base::Error(base::ErrorNumber::kFileNotFound,
                          base::text("Program ", path, " nelze spustit."));
    }
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
}

}  // namespace huebrush::word
