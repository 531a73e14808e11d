// SPDX-License-Identifier: MPL-2.0

#include "files/Beside.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "files/Error.h"
#include "files/Names.h"

namespace huebrush::files {

namespace {

/// The same for the same text in every process.
std::uint64_t hashOf(std::string_view text) {
    std::uint64_t hash = 14695981039346656037U;
    for (const char each : text) hash = (hash ^ static_cast<unsigned char>(each)) * 1099511628211U;
    return hash;
}

std::string nameBeside(const std::string& name, unsigned number) {
    const std::uint64_t hash = hashOf(lastPartOf(name));
    std::array<char, 40> digits{};
    // In halves: the C library of Windows has its own letter for numbers of 64 bits.
    std::snprintf(digits.data(), digits.size(), ".huebrush-%08x%08x-%u",
                  static_cast<unsigned>(hash >> 32U), static_cast<unsigned>(hash & 0xFFFFFFFFU),
                  number);
    return folderOf(name) + digits.data();
}

}  // namespace

std::string takeNameBeside(const std::string& name,
                           const std::function<int(const std::string&)>& make,
                           const std::function<bool(const std::string&)>& removeDead) {
    constexpr unsigned kNames = 100;
    int reason = 0;
    for (unsigned number = 0; number < kNames;) {
        std::string beside = nameBeside(name, number);
        reason = make(beside);
        if (reason == 0) return beside;
        if (causeOf(reason) != Cause::taken) break;
        if (!removeDead(beside)) ++number;
    }
    throw Error(Problem::write, name, reason);
}

}  // namespace huebrush::files
