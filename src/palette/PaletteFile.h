// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "jet/database/Database.h"
#include "jet/database/Table.h"

namespace huebrush::palette {

/// The work on palette files that needs no dialog. Every error is one of the database: a file
/// without the two tables of palettes, a value that a column does not accept.

inline constexpr const char* kGroupTable = "TFillGroup";
inline constexpr const char* kElementTable = "TFillElementParameter";

/// A row as plain data: its columns by name, in the order of the table.
using Record = std::vector<std::pair<std::string, jet::Value>>;

struct Palette {
    Record group;
    std::vector<Record> elements;  ///< by OrderNumber
};

/// A column's value; null when the record has no such column.
const jet::Value& valueOf(const Record& record, std::string_view column);
Record recordOf(const jet::Table& table, const jet::Row& row);

/// The palettes without their fills, by ID.
std::vector<Record> listPalettes(jet::Database& database);

/// Those with exactly this name.
std::vector<Record> palettesNamed(jet::Database& database, const std::string& name);

/// The fills of the palette with an ID, by OrderNumber.
std::vector<Record> fillsOf(jet::Database& database, const jet::Value& id);

/// Receives the palettes of a file row by row: each palette's own row, then those of its fills.
class PaletteVisitor {
 public:
    PaletteVisitor() = default;
    PaletteVisitor(const PaletteVisitor&) = delete;
    PaletteVisitor& operator=(const PaletteVisitor&) = delete;
    virtual ~PaletteVisitor() = default;
    virtual void begin(const jet::Table& groups, const jet::Row& group) = 0;
    virtual void fill(const jet::Table& elements, const jet::Row& fill) = 0;
    virtual void end() = 0;
};

/// Shows all palettes by ID, their fills by OrderNumber. Whatever their number, the memory for
/// this is bounded: as many rows are sorted at once, at 16 to 32 bytes each.
inline constexpr std::size_t kSortedAtOnce = 1U << 19U;
void visitPalettes(jet::Database& database, PaletteVisitor& visitor,
                   std::size_t sortedAtOnce = kSortedAtOnce);

/// Takes palettes row by row. The values of ID, GroupID and Count are ignored.
class PaletteSink {
 public:
    using Values = jet::Table::Values;

    PaletteSink() = default;
    PaletteSink(const PaletteSink&) = delete;
    PaletteSink& operator=(const PaletteSink&) = delete;
    virtual ~PaletteSink() = default;
    /// A palette, of which perhaps only these values are known yet.
    virtual void begin(const Values& group) = 0;
    virtual void fill(const Values& fill) = 0;
    /// All values of the palette.
    virtual void end(const Values& group) = 0;
};

/// Adds palettes to a file. The file gives ID and GroupID, and Count is the number of fills. A fill
/// without an OrderNumber gets its place. REQUIRES: inside Database::change.
class PaletteAdder final : public PaletteSink {
 public:
    explicit PaletteAdder(jet::Database& database)
        : groups_(database, kGroupTable), elements_(database, kElementTable) {}

    const jet::Table& groups() const { return groups_; }
    const jet::Table& elements() const { return elements_; }
    void begin(const Values& group) override;
    void fill(const Values& fill) override;
    void end(const Values& group) override;

    /// Where the palette that was begun last is.
    jet::RowId row() const { return row_; }
    /// The highest ID that a palette of the file has had; each new one gets the next.
    std::int32_t lastId() const { return groups_.lastAutonumber(); }

 private:
    jet::Table groups_;
    jet::Table elements_;
    jet::RowId row_;
    std::int32_t id_ = 0;
    std::int32_t count_ = 0;
};

/// Adds palettes in one commit: all of them, or none if there is any error. Returns the
/// new ones as listPalettes does.
std::vector<Record> addPalettes(jet::Database& database, const std::vector<Palette>& palettes);

/// Removes all palettes of a name with their fills. How many there were. REQUIRES: inside
/// Database::change.
std::size_t removePalettes(jet::Database& database, const std::string& name);

/// Erases all palettes of a name with their fills, in one commit. How many there were.
std::size_t erasePalettes(jet::Database& database, const std::string& name);

}  // namespace huebrush::palette
