// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <optional>

#include "mapping/Image.h"

namespace huebrush::mapping {

inline constexpr std::int32_t kTextureCount = 24;
inline constexpr std::int32_t kTextureSize = 64;

/// The picture of a preset texture: drawn by rule, the same every time, its edges meeting when it
/// is laid side by side. REQUIRES: texture is 1 to kTextureCount.
Image textureTile(std::int32_t texture);

/// The preset texture whose picture this is; nothing for any other.
std::optional<std::int32_t> textureOf(const Image& tile);

}  // namespace huebrush::mapping
