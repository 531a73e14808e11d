// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "jet/file/FileSystem.h"

namespace huebrush::palette {

/// Makes the user's own palette file (see ownDataFile), with a few palettes to begin with, if the
/// user has never had one: a file that was there, or that the user has removed, is left alone.
/// Whether it was made. It appears all at once. Nothing is shown; what fails is thrown, and tried
/// again with the next call.
bool makeOwnDataFile(jet::FileSystem& files = jet::systemFiles());

}  // namespace huebrush::palette
