#pragma once

#include <nlohmann/json.hpp>
#include <vector>

#include "jet/table/TableDefinition.h"
#include "palette/PaletteFile.h"

namespace huebrush::cli {

/// A row as an object: each column under its own name. Bytes are base64.
nlohmann::ordered_json toJson(const palette::Record& record);

/// A palette as an object: the columns of its row, then its fills as the array "elements".
nlohmann::ordered_json toJson(const palette::Palette& palette);

/// Palettes from {"palettes":[…]}, each as toJson writes it, for the tables of a file. Columns may
/// be left out. Failure for what is no such thing: a column that the table does not have, a value
/// of another type, with its place.
std::vector<palette::Palette> palettesFromJson(const nlohmann::json& value,
                                               const jet::TableDefinition& groups,
                                               const jet::TableDefinition& elements);

}  // namespace huebrush::cli
