// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>

#include "jet/file/Bytes.h"

namespace huebrush::jet {

/// Whose files a layout is for.
enum class Layouts {
    ofAllReaders,  ///< what every other reader of the format follows
    ofThisEngine,  ///< also with moved rows of tables' maps, which other readers do not follow
};

/// A sound file with the same rows whose page maps are laid out otherwise, in one of the ways that
/// other programs leave: bits that begin at any multiple of 8, also after the last page; rows of
/// every length; bitmap pages, with numbers missing and with stale bytes after them; rows that
/// have moved to another page; freed pages that still have their content; orphaned pages.
/// The same seed makes the same file. REQUIRES: the file is sound.
Bytes withOtherMaps(const Bytes& sound, std::uint32_t seed, Layouts layouts);

/// The file with a free map that begins at its last page: no page before that has a bit.
Bytes withFreeMapAtTheEnd(const Bytes& sound, std::uint32_t seed);

}  // namespace huebrush::jet
