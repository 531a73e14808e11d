// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace huebrush::documents {

/// An entry as a test wants it, damaged or not.
struct WrittenEntry {
    std::string name;
    std::string content;
    bool stored = false;
    bool descriptor = false;  ///< sizes behind the data instead of in the header
    bool in64 = false;        ///< sizes and places in fields of 64 bits
    std::string extra = {};   ///< further extra fields of the header
    std::string comment = {};
    std::uint16_t flags = 0;
    std::uint16_t method = 8;
};

/// Writes a package in the ways that other programs do.
std::string writtenPackage(const std::vector<WrittenEntry>& entries,
                           const std::string& comment = {}, bool end64 = false);

}  // namespace huebrush::documents
