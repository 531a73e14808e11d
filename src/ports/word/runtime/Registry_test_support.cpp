// SPDX-License-Identifier: MPL-2.0

#include "ports/word/runtime/Registry_test_support.h"

#include "base/Text.h"
#include "ports/word/com/Text.h"

namespace huebrush::word {

namespace {

std::vector<std::string> keysIn(HKEY key) {
    std::vector<std::string> keys;
    wchar_t name[256];
    for (DWORD i = 0;; ++i) {
        DWORD size = 256;
        if (::RegEnumKeyExW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            return keys;
        }
        keys.push_back(toUtf8(std::wstring_view(name, size)));
    }
}

void addValues(HKEY key, const std::string& path, std::vector<std::string>& lines) {
    for (DWORD i = 0;; ++i) {
        wchar_t name[256];
        DWORD nameSize = 256;
        DWORD type = 0;
        std::vector<BYTE> bytes(65536);
        DWORD size = 65536;
        if (::RegEnumValueW(key, i, name, &nameSize, nullptr, &type, bytes.data(), &size) !=
            ERROR_SUCCESS) {
            return;
        }
        bytes.resize(size);
        lines.push_back(base::text(path, "\\", toUtf8(std::wstring_view(name, nameSize)), " ", type,
                                   " ", std::string(bytes.begin(), bytes.end())));
    }
}

void addKey(const std::string& path, std::vector<std::string>& lines) {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, toWide(path).c_str(), 0, KEY_READ, &key) !=
        ERROR_SUCCESS) {
        return;
    }
    lines.push_back(path);
    addValues(key, path, lines);
    for (const std::string& name : keysIn(key)) addKey(base::text(path, "\\", name), lines);
    ::RegCloseKey(key);
}

}  // namespace

std::vector<std::string> registryBelow(const std::string& path) {
    std::vector<std::string> lines;
    addKey(path, lines);
    return lines;
}

void clearRegistry(const std::string& path) {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, toWide(path).c_str(), 0, KEY_READ, &key) !=
        ERROR_SUCCESS) {
        return;
    }
    for (const std::string& name : keysIn(key)) clearRegistry(base::text(path, "\\", name));
    ::RegCloseKey(key);
    ::RegDeleteKeyW(HKEY_CURRENT_USER, toWide(path).c_str());
}

}  // namespace huebrush::word
