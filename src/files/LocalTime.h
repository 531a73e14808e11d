// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <ctime>

namespace huebrush::files {

/// The date and the time of day in this computer's time zone.
std::tm localTime();

}  // namespace huebrush::files
