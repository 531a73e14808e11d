// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>
#include <string_view>

namespace huebrush::files {

// Names of files are paths in UTF-8. What separates their parts is the system's to say.

/// The last part of a path, without its folder; empty at the end of a folder's.
std::string_view lastPartOf(std::string_view name);
/// What stands before it, with the separator; the current folder where there is nothing.
std::string folderOf(std::string_view name);

/// A name with all symbolic links followed, the last one even where it leads to nothing.
std::string resolve(const std::string& name);
/// Whether the name is taken, be it by a link that leads to nothing.
bool exists(const std::string& name);

}  // namespace huebrush::files
