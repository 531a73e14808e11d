// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <string>

namespace huebrush::files {

/// Finds a free name in the folder of `name` and returns it. It is derived from `name`, so that the
/// next writer finds what a killed process has left there, and is short, so that `name` may be as
/// long as the system allows.
///
/// `make` creates a file under the name that it is given and returns 0, or the system's error
/// number. If that name is taken, `removeDead` removes the file there, provided that it is no
/// longer in use, and returns whether it did. Throws an Error for `name` if no file can be created.
std::string takeNameBeside(const std::string& name,
                           const std::function<int(const std::string&)>& make,
                           const std::function<bool(const std::string&)>& removeDead);

}  // namespace huebrush::files
