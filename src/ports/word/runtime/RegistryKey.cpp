// SPDX-License-Identifier: MPL-2.0

#include "ports/word/runtime/RegistryKey.h"

#include <algorithm>
#include <vector>

#include "base/Error.h"
#include "base/Text.h"
#include "ports/word/com/Text.h"

namespace huebrush::word {

namespace {

void require(LSTATUS result, const std::string& place) {
    if (result == ERROR_SUCCESS) return;
    throw base::Error(base::ErrorNumber::kPathAccess,
                      base::text("Do registru nelze zapsat: ", place, "."));
}

}  // namespace

RegistryKey RegistryKey::open(HKEY root, const std::string& path) {
    RegistryKey key;
    if (::RegOpenKeyExW(root, toWide(path).c_str(), 0, KEY_READ, &key.key_) != ERROR_SUCCESS) {
        key.key_ = nullptr;
    }
    return key;
}

RegistryKey RegistryKey::make(HKEY root, const std::string& path) {
    RegistryKey key;
    require(::RegCreateKeyExW(root, toWide(path).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                              KEY_READ | KEY_WRITE, nullptr, &key.key_, nullptr),
            path);
    return key;
}

bool RegistryKey::remove(HKEY root, const std::string& path) {
    const RegistryKey key = open(root, path);
    if (!key) return false;
    DWORD keysBelow = 0;
    require(::RegQueryInfoKeyW(key.key_, nullptr, nullptr, nullptr, &keysBelow, nullptr, nullptr,
                               nullptr, nullptr, nullptr, nullptr, nullptr),
            path);
    // Older systems would remove them as well.
    require(keysBelow == 0 ? ERROR_SUCCESS : ERROR_ACCESS_DENIED, path);
    require(::RegDeleteKeyW(root, toWide(path).c_str()), path);
    return true;
}

bool RegistryKey::exists(HKEY root, const std::string& path) {
    return static_cast<bool>(open(root, path));
}

bool RegistryKey::isEmpty() const {
    DWORD keys = 0;
    DWORD values = 0;
    return ::RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                              nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
           keys == 0 && values == 0;
}

std::optional<forms::RegistryValue> RegistryKey::value(const std::string& name) const {
    if (key_ == nullptr) return std::nullopt;
    const std::wstring wide = toWide(name);
    DWORD type = REG_NONE;
    DWORD size = 0;
    if (::RegQueryValueExW(key_, wide.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    std::vector<BYTE> bytes(size + sizeof(wchar_t));
    if (::RegQueryValueExW(key_, wide.c_str(), nullptr, &type, bytes.data(), &size) !=
        ERROR_SUCCESS) {
        return std::nullopt;
    }
    if (type == REG_DWORD && size == sizeof(std::uint32_t)) {
        std::uint32_t number = 0;
        std::copy_n(bytes.data(), size, reinterpret_cast<BYTE*>(&number));
        return number;
    }
    if (type != REG_SZ && type != REG_EXPAND_SZ) return std::nullopt;
    std::wstring text(size / sizeof(wchar_t), L'\0');
    std::copy_n(bytes.data(), text.size() * sizeof(wchar_t), reinterpret_cast<BYTE*>(text.data()));
    // The stored text may or may not have its end.
    text.resize(std::min(text.find(L'\0'), text.size()));
    return toUtf8(text);
}

std::optional<std::string> RegistryKey::text(const std::string& name) const {
    const auto found = value(name);
    if (!found || !std::holds_alternative<std::string>(*found)) return std::nullopt;
    return std::get<std::string>(*found);
}

void RegistryKey::setText(const std::string& name, const std::string& text) const {
    const std::wstring wide = toWide(text);
    require(::RegSetValueExW(key_, toWide(name).c_str(), 0, REG_SZ,
                             reinterpret_cast<const BYTE*>(wide.c_str()),
                             static_cast<DWORD>((wide.size() + 1) * sizeof(wchar_t))),
            name);
}

void RegistryKey::setNumber(const std::string& name, std::uint32_t number) const {
    require(::RegSetValueExW(key_, toWide(name).c_str(), 0, REG_DWORD,
                             reinterpret_cast<const BYTE*>(&number), sizeof(number)),
            name);
}

void RegistryKey::removeValue(const std::string& name) const {
    const LSTATUS result = ::RegDeleteValueW(key_, toWide(name).c_str());
    if (result != ERROR_FILE_NOT_FOUND) require(result, name);
}

}  // namespace huebrush::word
