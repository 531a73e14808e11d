// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace huebrush::base {

/// Bytes as text of the alphabet A–Z a–z 0–9 + /, padded with = to a multiple of four.
std::string toBase64(std::span<const std::uint8_t> bytes);
/// The reverse; none for a text that toBase64 never returns.
std::optional<std::vector<std::uint8_t>> fromBase64(std::string_view text);

}  // namespace huebrush::base
