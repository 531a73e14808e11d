// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <ctime>

namespace huebrush::files {

/// The date and the time of day in this computer's time zone. Where $SOURCE_DATE_EPOCH has a number
/// of seconds since 1970, it is that time in UTC: so that what is made again is the same again.
std::tm localTime();

/// What the clock of this computer says, in its time zone.
std::tm clockTime();

}  // namespace huebrush::files
