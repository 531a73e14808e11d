// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

namespace huebrush::files {

/// Why the system refused something, as far as callers care.
enum class Cause {
    none,        ///< the system has reported no reason
    missing,     ///< there is no such file, or no such folder
    taken,       ///< the name is taken
    noSpace,     ///< the medium is full, or the file would become too large
    notAllowed,  ///< the user or the medium lacks the right
    other,
};

/// The cause that a number of the system stands for (errno, GetLastError).
Cause causeOf(int reason);
/// The system's own words for it, without a full stop.
std::string textOfReason(int reason);

}  // namespace huebrush::files
