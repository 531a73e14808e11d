// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace huebrush::word {

/// All keys and values below a key of the user's, one a line, in the registry's order.
std::vector<std::string> registryBelow(const std::string& path);

/// Removes a key of the user's with all below it.
void clearRegistry(const std::string& path);

}  // namespace huebrush::word
