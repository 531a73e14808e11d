// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace huebrush::base {

/// The number in two or four bytes, lowest first. REQUIRES: they lie within `bytes`.
inline std::uint16_t littleEndian16(std::span<const std::uint8_t> bytes, std::size_t at) {
    return static_cast<std::uint16_t>(bytes[at] | bytes[at + 1] << 8U);
}
inline std::uint32_t littleEndian32(std::span<const std::uint8_t> bytes, std::size_t at) {
    return littleEndian16(bytes, at) | std::uint32_t{littleEndian16(bytes, at + 2)} << 16U;
}

}  // namespace huebrush::base
