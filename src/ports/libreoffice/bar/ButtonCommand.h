#pragma once

#include <string>
#include <string_view>

namespace huebrush::libreoffice {

/// The protocol under which the office sends us its users' clicks.
inline constexpr std::string_view kProtocol = "vnd.huebrush:";

/// The command of the button with this tag, as a URL whatever the tag's characters are.
std::string commandOfTag(std::string_view tag);

/// Whether the commands with this tag can be carried out in this office. The dialog of the fill
/// changes has no windows here, so its button is there but stays disabled.
bool isOffered(std::string_view tag);

}  // namespace huebrush::libreoffice
