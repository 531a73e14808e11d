// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>

namespace huebrush::view {

/// A key that goes down or up: its classic number (forms::KeyCode; a letter's is that of its
/// capital), or 0 for one that has no meaning here, the shift state (forms::Shift), and the
/// character that it types, or 0.
struct Key {
    std::int16_t code = 0;
    std::int16_t shift = 0;
    char16_t character = 0;
};

/// The letter of a key, in lower case; 0 for a key of another kind.
inline char letterOf(const Key& key) {
    return key.code >= 'A' && key.code <= 'Z' ? static_cast<char>(key.code - 'A' + 'a') : '\0';
}

}  // namespace huebrush::view
