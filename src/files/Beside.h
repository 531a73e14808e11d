#pragma once

#include <functional>
#include <string>

namespace huebrush::files {

/// Finds a free name beside another one: it is made of that one, so that what a killed process has
/// left under it is found again, and is as short as can be, so that the other one may be as long as
/// can be.
///
/// `make` makes something of the name that it is given and returns the system's number of the
/// reason when it cannot, else 0; when the name is taken, `removeDead` removes what is there if
/// nobody uses it any more, and says whether it has. An Error of `name` when nothing can be made.
/// The name found.
std::string takeNameBeside(const std::string& name,
                           const std::function<int(const std::string&)>& make,
                           const std::function<bool(const std::string&)>& removeDead);

}  // namespace huebrush::files
