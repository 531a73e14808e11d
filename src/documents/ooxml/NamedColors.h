// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace huebrush::documents {

/// 0xRRGGBB of a colour by its name of CSS, in any case; also with the abbreviations of DrawingML
/// (dkBlue, ltGray, medPurple) and the system colours that files name. Nothing for other names.
std::optional<std::int32_t> namedColor(std::string_view name);

}  // namespace huebrush::documents
