// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

namespace huebrush::files {

/// Removes a file. An Error where there is none.
void removeFile(const std::string& name);

/// Makes a folder, with all those above it that are missing; nothing where it is there.
void makeFolder(const std::string& name);

}  // namespace huebrush::files
