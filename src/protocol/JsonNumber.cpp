// SPDX-License-Identifier: MPL-2.0

#include "protocol/JsonNumber.h"

#include <limits>

namespace huebrush::protocol {

std::optional<std::int32_t> int32FromJson(const nlohmann::json& value) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (!value.is_number_integer()) return std::nullopt;
    // As a signed number, one beyond 63 bits would be negative.
    if (value.is_number_unsigned() && value.get<std::uint64_t>() > Limits::max()) {
        return std::nullopt;
    }
    const auto number = value.get<std::int64_t>();
    if (number < Limits::min() || number > Limits::max()) return std::nullopt;
    return static_cast<std::int32_t>(number);
}

}  // namespace huebrush::protocol
