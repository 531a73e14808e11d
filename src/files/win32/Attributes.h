// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

namespace huebrush::files {

/// Gives a new file what belongs to another one beside its content: the access list, the time when
/// it was made, and whether it is hidden, each as far as the system allows.
void copyAttributes(const std::string& from, const std::string& to);

}  // namespace huebrush::files
