#pragma once

#include <string>
#include <string_view>

namespace huebrush::libreoffice {

/// The protocol under which the office sends us its users' clicks.
inline constexpr std::string_view kProtocol = "vnd.huebrush:";

/// The command of the button with this tag, as a URL whatever the tag's characters are.
std::string commandOfTag(std::string_view tag);

}  // namespace huebrush::libreoffice
