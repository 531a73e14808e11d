#pragma once

#include <string>

#include "jet/file/FileSystem.h"

namespace huebrush::palette {

/// Makes a new, empty palette database: two tables, their keys and the relation between them.
/// Whether it was made; false when a step failed and the user chose to abort. A half-made file
/// stays. Each operation is a step that the user may repeat or leave out.
bool MakeDatabase(const std::string& path, jet::FileSystem& files = jet::systemFiles());

}  // namespace huebrush::palette
