// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "jet/page/Pages.h"
#include "jet/page/RowId.h"

namespace huebrush::jet {

/// What the first page says about a database.
struct Header {
    RowId freeMap;
    PageNumber objects = 0;  ///< the definition pages of the four system tables
    PageNumber accessEntries = 0;
    PageNumber queries = 0;
    PageNumber relationships = 0;
};

/// Reads the header of the file. Errors for what is not a database, and for databases that this
/// engine does not open: other versions, with a password, encrypted.
Header readHeader(File& file, const std::string& name);

/// XORs the bytes with the stream by which the header is encoded; the same in both directions.
void applyHeaderMask(std::span<std::uint8_t> region);

/// Places in the header, for code that writes one.
namespace HeaderLayout {
inline constexpr std::size_t kRegion = 0x18;
inline constexpr std::size_t kRegionSize = 128;
inline constexpr std::size_t kFreeMap = 0x18;
inline constexpr std::size_t kSecondMap = 0x1C;
inline constexpr std::size_t kSystemTables = 0x20;
inline constexpr std::size_t kCodePage = 0x3C;
inline constexpr std::size_t kPageKey = 0x3E;
inline constexpr std::size_t kPassword = 0x42;
inline constexpr std::size_t kPasswordSize = 40;
inline constexpr std::size_t kBuild = 0x6A;
inline constexpr std::size_t kSortOrder = 0x6E;
inline constexpr std::size_t kCreated = 0x72;
inline constexpr std::size_t kConstants = 0x98;
inline constexpr std::size_t kCommits = 0xE00;
}  // namespace HeaderLayout

}  // namespace huebrush::jet
