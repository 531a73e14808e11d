// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <optional>

#include "mapping/Image.h"

namespace huebrush::mapping {

inline constexpr std::int32_t kPatternCount = 54;
inline constexpr std::int32_t kPatternSize = 8;

/// The two-coloured tile of a pattern. Colours are 0xRRGGBB.
struct PatternFill {
    std::int32_t pattern = 1;
    std::int32_t foreColor = 0;
    std::int32_t backColor = 0xFFFFFF;

    friend bool operator==(const PatternFill&, const PatternFill&) = default;
};

/// REQUIRES: pattern is 1 to kPatternCount.
Image patternTile(const PatternFill& fill);

/// The pattern whose tile this is; nothing for any other picture. A tile of a single colour belongs
/// to no pattern.
std::optional<PatternFill> patternOf(const Image& tile);

}  // namespace huebrush::mapping
