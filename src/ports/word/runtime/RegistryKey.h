// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "forms/System.h"

namespace huebrush::word {

/// A key of the registry, closed at the end of this object. A failed call is an Error with the
/// number that the forms runtime gives for a place that may not be written (75).
class RegistryKey {
 public:
    /// No key: it has no values.
    RegistryKey() = default;
    /// A key to read; none where there is none.
    static RegistryKey open(HKEY root, const std::string& path);
    /// A key to write, made with all above it where it is missing.
    static RegistryKey make(HKEY root, const std::string& path);
    /// Removes a key with its values, and whether it was there. One that has keys below it stays,
    /// and is an Error.
    static bool remove(HKEY root, const std::string& path);
    static bool exists(HKEY root, const std::string& path);

    RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    RegistryKey& operator=(RegistryKey other) noexcept {
        std::swap(key_, other.key_);
        return *this;
    }
    RegistryKey(const RegistryKey&) = delete;
    ~RegistryKey() {
        if (key_ != nullptr) ::RegCloseKey(key_);
    }

    explicit operator bool() const { return key_ != nullptr; }
    /// Whether the key has neither values nor keys below it.
    bool isEmpty() const;

    /// A text or a number; nothing of another kind. An empty name is that of the key's own value.
    std::optional<forms::RegistryValue> value(const std::string& name) const;
    std::optional<std::string> text(const std::string& name) const;
    void setText(const std::string& name, const std::string& text) const;
    void setNumber(const std::string& name, std::uint32_t number) const;
    /// Removes a value, if it is there.
    void removeValue(const std::string& name) const;

 private:
    HKEY key_ = nullptr;
};

}  // namespace huebrush::word
