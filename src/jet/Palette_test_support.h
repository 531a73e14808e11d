// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "jet/check/Check.h"
#include "jet/database/Schema.h"
#include "jet/database/Table.h"
#include "jet/file/MemoryFiles.h"

namespace huebrush::jet {

/// Under the sanitizers, large tests do only part of their work.
#if defined(HUEBRUSH_SANITIZED)
inline constexpr std::uint32_t kShare = 20;
#else
inline constexpr std::uint32_t kShare = 1;
#endif

/// How much of a large test is done: all of it when the environment variable HUEBRUSH_LONG is set
/// (`make long`), otherwise what suffices every day.
std::size_t casesOf(std::size_t all, std::size_t everyDay);

/// Creates a file with the two tables that palettes have, with a few columns of each kind.
void createPaletteFile(FileSystem& files, const std::string& name);
/// Creates these tables in an existing file.
void createPaletteTables(Database& database);

/// Writes a palette with elements whose previews have the given sizes. Returns its ID.
std::int32_t addPalette(Database& database, const std::string& name,
                        const std::vector<std::size_t>& previews);

/// Erases a palette with its elements.
void erasePalette(Database& database, std::int32_t id);

/// All violations that are damage, one line each.
std::string damage(Database& database);

/// The orphaned pages: nothing owns them, and they are not free.
PageNumber lostPages(Database& database);

/// All violations, damage and waste, one line each.
std::string faults(Database& database);

/// Bytes that differ from place to place, so that mixed-up parts are noticed.
Bytes patternBytes(std::size_t size, std::uint32_t seed);

/// A table's rows with all values, by the order of its columns.
std::vector<std::vector<Value>> allRows(Database& database, const std::string& name);

/// Creates the six pages that are never given out. Page 0 has two usage maps: of free pages in row
/// 0, all but these free; an empty one in row 1.
void makeMapPage(Pages& pages);

/// A palette file in memory, open.
struct PaletteFile {
    PaletteFile() {
        createPaletteFile(files, kName);
        database = Database::open(files, kName);
    }
    static constexpr const char* kName = "/fill.mdb";
    MemoryFiles files;
    std::shared_ptr<Database> database;
};

}  // namespace huebrush::jet
