// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace huebrush::documents {

/// The number in `size` bytes at a place, the lowest first. REQUIRES: they are there.
inline std::uint64_t numberAt(std::string_view bytes, std::size_t at, std::size_t size) {
    std::uint64_t number = 0;
    for (std::size_t i = size; i > 0; --i) {
        number = number << 8U | static_cast<unsigned char>(bytes[at + i - 1]);
    }
    return number;
}

inline void setNumberAt(std::string& bytes, std::size_t at, std::size_t size,
                        std::uint64_t number) {
    for (std::size_t i = 0; i < size; ++i) {
        bytes[at + i] = static_cast<char>(number >> (8 * i) & 0xFFU);
    }
}

inline void addNumber(std::string& bytes, std::size_t size, std::uint64_t number) {
    bytes.resize(bytes.size() + size);
    setNumberAt(bytes, bytes.size() - size, size, number);
}

}  // namespace huebrush::documents
