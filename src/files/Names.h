// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>
#include <string_view>

namespace huebrush::files {

// Names of files are paths in UTF-8. What separates their parts depends on the system.

/// The last part of a path, without its folder; empty if the path ends with a separator.
std::string_view lastPartOf(std::string_view name);
/// What precedes the last part, with the separator; the current folder if nothing does.
std::string folderOf(std::string_view name);

/// The name with all symbolic links followed, even a last one that leads nowhere.
std::string resolve(const std::string& name);
/// Whether the name is taken, if only by a link that leads nowhere.
bool exists(const std::string& name);

}  // namespace huebrush::files
