// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "jet/file/FileSystem.h"

namespace huebrush::palette {

/// Creates a new, empty palette database: two tables, their keys and the relation between them.
/// Returns false when a step failed and the user chose to abort; a half-made file then stays. Each
/// operation is a step that the user may repeat or skip.
bool MakeDatabase(const std::string& path, jet::FileSystem& files = jet::systemFiles());

}  // namespace huebrush::palette
