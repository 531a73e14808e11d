// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "jet/database/Database.h"

namespace huebrush::jet {

/// A test's view of a table as mdb-export prints it: one list of cells for the names of the
/// columns, and one a row. Null is \N, dates are like 2001-02-03 04:05:06, bytes are in hex.
using Cells = std::vector<std::vector<std::string>>;

Cells exportTable(Database& database, const TableDefinition& table);

/// The same by mdb-export, run on a real file. An error when the program fails.
Cells runMdbExport(const std::string& file, const std::string& table);

/// Whether the two are the same value: numbers may be written in different ways, and mdb-export
/// prints an empty text as null.
bool sameCell(const std::string& ours, const std::string& theirs);

}  // namespace huebrush::jet
