// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>

namespace huebrush::jet {

/// The weight of a character in the sort order "General" (language 1033, version 0).
struct GeneralWeight {
    enum class Kind : std::uint8_t {
        letter,       ///< has a code
        unprintable,  ///< counts only where all else is equal
        ignored,
    };
    Kind kind;
    std::uint16_t code;   ///< of one byte, or of two when it exceeds 255
    std::uint8_t accent;  ///< 0: none
};

/// The weights of U+0000 to U+017F are known; the codes were taken from index entries of files.
inline constexpr std::size_t kGeneralCharacters = 0x180;

/// None for a character whose weight is not known.
const GeneralWeight* generalWeight(char16_t character);

}  // namespace huebrush::jet
