// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>

namespace huebrush::protocol {

/// A 32-bit whole number; none when the value is something else.
std::optional<std::int32_t> int32FromJson(const nlohmann::json& value);

}  // namespace huebrush::protocol
