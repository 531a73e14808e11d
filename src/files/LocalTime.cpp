// SPDX-License-Identifier: MPL-2.0

#include "files/LocalTime.h"

#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace huebrush::files {

std::tm localTime() {
    const char* const fixed = std::getenv("SOURCE_DATE_EPOCH");
    if (fixed == nullptr) return clockTime();
    const std::string_view text(fixed);
    std::int64_t seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    const auto time = static_cast<std::time_t>(seconds);
    const std::tm* const found = std::gmtime(&time);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    return isNumber && found != nullptr ? *found : clockTime();
}

}  // namespace huebrush::files
