// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <string>

namespace huebrush::files {

/// Finds a free name in the folder of another one and returns it. It is derived from that one, so
/// that the next writer finds what a killed process has left there, and is short, so that the other
/// name may be as long as the system allows.
///
/// `make` makes a file under the name that it is given and returns 0, or the system's number of the
/// reason why it cannot. If the name is taken, `removeDead` removes what is there, provided that
/// nobody uses it any more, and returns whether it has. An Error of `name` when no file can be
/// made.
std::string takeNameBeside(const std::string& name,
                           const std::function<int(const std::string&)>& make,
                           const std::function<bool(const std::string&)>& removeDead);

}  // namespace huebrush::files
