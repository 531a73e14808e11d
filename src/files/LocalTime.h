#pragma once

#include <ctime>

namespace huebrush::files {

/// The time of day and the date here and now.
std::tm localTime();

}  // namespace huebrush::files
