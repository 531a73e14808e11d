// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>
#include <string_view>

#include "base/Text.h"

namespace huebrush::libreoffice {

/// The protocol under which the office sends us its users' clicks.
inline constexpr std::string_view kProtocol = "vnd.huebrush:";

/// The command of the button with this tag, as a URL whatever the tag's characters are.
inline std::string commandOfTag(std::string_view tag) {
    return base::text(kProtocol, base::percentEncoded(tag));
}

}  // namespace huebrush::libreoffice
