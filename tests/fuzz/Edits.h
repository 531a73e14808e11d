// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <memory>

#include "Script.h"
#include "jet/database/Database.h"
#include "jet/file/MemoryFiles.h"

namespace huebrush::fuzz {

inline constexpr const char* kFile = "/fill.mdb";

/// A palette file with rows of every kind, and with a table that has a memo, bytes and an index on
/// two columns. Always the same.
const jet::Bytes& goodFile();

/// A file system with one file of a content.
void putFile(jet::MemoryFiles& files, const jet::Bytes& content);

/// What may end a piece of work: with a damaged file any error of the database; with a good one
/// only that it refuses what the script wants.
enum class Allowed { anyError, refusals };

/// Runs a body that may end so; any other exception is a finding. Whether it ran to its end.
bool attempt(Allowed allowed, const std::function<void()>& body);

/// Reads each value of each row of each table, and walks each index.
void readEverything(jet::Database& database, Allowed allowed);

/// Changes rows, and creates and fills tables, as the script says, to its end.
void edit(std::shared_ptr<jet::Database>& database, jet::MemoryFiles& files, Script& script,
          Allowed allowed);

}  // namespace huebrush::fuzz
