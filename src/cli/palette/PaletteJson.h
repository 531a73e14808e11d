// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <istream>
#include <nlohmann/json.hpp>
#include <vector>

#include "cli/JsonWriter.h"
#include "palette/PaletteFile.h"

namespace huebrush::cli {

/// A row as an object: each column under its own name. Bytes are base64.
nlohmann::ordered_json toJson(const palette::Record& record);

/// Writes palettes as the array "palettes" of an object, one row after the other: the columns of
/// each palette, then its fills as the array "elements".
class PaletteJsonWriter final : public palette::PaletteVisitor {
 public:
    explicit PaletteJsonWriter(JsonWriter& out);
    void begin(const jet::Table& groups, const jet::Row& group) override;
    void fill(const jet::Table& elements, const jet::Row& fill) override;
    void end() override;
    /// Ends the array and the object.
    void finish();

 private:
    /// The names of a table's columns as keys.
    using Keys = std::vector<std::string>;
    void writeColumns(const jet::Table& table, const jet::Row& row, Keys& keys);

    JsonWriter& out_;
    Keys groupKeys_;
    Keys elementKeys_;
};

/// Reads palettes from {"palettes":[…]}, each as PaletteJsonWriter writes it, for the tables of a
/// file, and passes them on row by row. Columns may be left out; of one that is given twice, the
/// later value counts. Whatever else the outer object holds is ignored. Failure for anything else:
/// invalid JSON, in a message that calls the input `name`; a column that the table does not have, a
/// value of another type, a row that the sink refuses, each with its place.
void readPalettes(std::istream& input, const std::string& name, const jet::TableDefinition& groups,
                  const jet::TableDefinition& elements, palette::PaletteSink& sink);

}  // namespace huebrush::cli
