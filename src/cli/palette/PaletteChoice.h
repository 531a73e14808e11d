// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>
#include <vector>

#include "fill/FillProperties.h"
#include "palette/PaletteFile.h"

namespace huebrush::cli {

/// The palette that a user names: by exactly its name, or by "#" and its ID where no palette is
/// called so. Failure when there is none, and when several have the name: `file` is what the
/// message calls the database.
palette::Record choosePalette(jet::Database& database, const std::string& file,
                              const std::string& name);

/// A palette in a file.
struct PaletteReference {
    std::string file;
    std::string name;
};

/// "FILE:NAME", split at the first ":" after ".mdb" in any case. Failure for any other text.
PaletteReference paletteReferenceFromText(const std::string& text);

/// The fills of the palette that FILE:NAME names, in their order. Failure when it has none.
std::vector<fill::FillProperties> fillsOfReference(const std::string& text);

}  // namespace huebrush::cli
