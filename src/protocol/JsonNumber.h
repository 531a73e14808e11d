#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>

namespace huebrush::protocol {

/// A whole number of 32 bits; none when the value is something else.
std::optional<std::int32_t> int32FromJson(const nlohmann::json& value);

}  // namespace huebrush::protocol
