#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "jet/database/Database.h"
#include "jet/table/Value.h"

namespace huebrush::palette {

/// The work on palette files that needs no dialog. Every error is one of the database: a file
/// without the two tables of palettes, a value that a column does not take.

inline constexpr const char* kGroupTable = "TFillGroup";
inline constexpr const char* kElementTable = "TFillElementParameter";

/// A row as plain data: its columns by name, in the order of the table.
using Record = std::vector<std::pair<std::string, jet::Value>>;

struct Palette {
    Record group;
    std::vector<Record> elements;  ///< by OrderNumber
};

/// A column's value; null when the record has no such column.
const jet::Value& valueOf(const Record& record, const std::string& column);

/// The palettes without their fills, by ID.
std::vector<Record> listPalettes(jet::Database& database);

/// The fills of the palette with an ID, by OrderNumber.
std::vector<Record> fillsOf(jet::Database& database, const jet::Value& id);

/// Calls `visit` with each palette, by ID.
using VisitPalette = std::function<void(const Palette& palette)>;
void visitPalettes(jet::Database& database, const VisitPalette& visit);

/// Adds palettes in one commit: all of them, or none when an error refuses anything. The file gives
/// ID and GroupID, and Count is the number of fills; what the records say of the three does not
/// matter. A fill without an OrderNumber gets its place. Returns the new palettes as listPalettes
/// does.
std::vector<Record> addPalettes(jet::Database& database, const std::vector<Palette>& palettes);

/// Erases all palettes of a name with their fills, in one commit. How many there were.
std::size_t erasePalettes(jet::Database& database, const std::string& name);

}  // namespace huebrush::palette
