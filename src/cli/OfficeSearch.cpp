// SPDX-License-Identifier: MPL-2.0

#include "cli/OfficeSearch.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/Failure.h"

namespace huebrush::cli {

namespace {

namespace fs = std::filesystem;
using Version = std::pair<unsigned, unsigned>;

bool isProgram(const fs::path& path) {
    std::error_code error;
    return access(path.c_str(), X_OK) == 0 && fs::is_regular_file(path, error);
}

std::optional<fs::path> firstProgram(const std::vector<fs::path>& places) {
    const auto found = std::find_if(places.begin(), places.end(), isProgram);
    if (found == places.end()) return std::nullopt;
    return *found;
}

/// The version that a name such as libreoffice25.2 ends with.
std::optional<Version> versionIn(std::string_view name) {
    constexpr std::string_view kName = "libreoffice";
    if (!name.starts_with(kName)) return std::nullopt;
    const char* const end = name.data() + name.size();
    Version version;
    const auto major = std::from_chars(name.data() + kName.size(), end, version.first);
    if (major.ec != std::errc() || major.ptr == end || *major.ptr != '.') return std::nullopt;
    const auto minor = std::from_chars(major.ptr + 1, end, version.second);
    if (minor.ec != std::errc() || minor.ptr != end) return std::nullopt;
    return version;
}

/// The entries of a folder whose names have a version, the newest first.
std::vector<fs::path> newestIn(const fs::path& folder) {
    std::vector<std::pair<Version, fs::path>> found;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        if (const auto version = versionIn(entry.path().filename().string())) {
            found.emplace_back(*version, entry.path());
        }
    }
    std::sort(found.rbegin(), found.rend());
    std::vector<fs::path> places;
    places.reserve(found.size());
    for (auto& [version, place] : found) places.push_back(std::move(place));
    return places;
}

std::vector<fs::path> foldersOf(const std::string& path) {
    std::vector<fs::path> folders;
    std::istringstream text(path);
    for (std::string folder; std::getline(text, folder, ':');) {
        if (!folder.empty()) folders.emplace_back(folder);
    }
    return folders;
}

std::optional<fs::path> onPath(const std::string& path) {
    const std::vector<fs::path> folders = foldersOf(path);
    std::vector<fs::path> places;
    for (const char* const name : {"soffice", "libreoffice"}) {
        for (const fs::path& folder : folders) places.push_back(folder / name);
    }
    for (const fs::path& folder : folders) {
        for (fs::path& place : newestIn(folder)) places.push_back(std::move(place));
    }
    return firstProgram(places);
}

std::optional<fs::path> inUsualPlaces(const fs::path& root) {
    std::vector<fs::path> places{root / "usr/lib/libreoffice", root / "opt/libreoffice"};
    for (fs::path& place : newestIn(root / "opt")) places.push_back(std::move(place));
    for (fs::path& place : places) place /= "program/soffice";
    return firstProgram(places);
}

}  // namespace

fs::path findOffice(const OfficeSearch& search) {
    if (!search.given.empty()) {
        if (isProgram(search.given)) return search.given;
        throw Failure("HUEBRUSH_OFFICE is not a program: " + search.given);
    }
    if (const auto found = onPath(search.path)) return *found;
    if (const auto found = inUsualPlaces(search.root)) return *found;
    throw Failure(
        "cannot find LibreOffice: install libreoffice-writer, or set HUEBRUSH_OFFICE to its "
        "soffice");
}

}  // namespace huebrush::cli
