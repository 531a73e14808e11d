// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "jet/database/Database.h"

namespace huebrush::jet {

/// Defines a table as programs do that ask for no fixed columns: its numbers are kept like texts,
/// each with a length of its own, its texts may be compressed, and no column says where it is
/// displayed. REQUIRES: the table has no rows yet.
void defineAsOtherProgramsDo(Database& database, const std::string& table);

}  // namespace huebrush::jet
