// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <string>

#include "jet/database/Database.h"

namespace huebrush::cli {

/// Creates a palette file in memory, has `fill` work on it, and writes it all at once: with a lock
/// in place of the file that is locked. Its place is tried first, because what is wrong there is
/// among the things that the user is asked about. False when the user chose to abort: nothing is
/// written then.
bool createPaletteFile(
    const std::string& target, jet::Lock* replaced,
    const std::function<void(jet::Database& database)>& fill = [](jet::Database&) {});

}  // namespace huebrush::cli
