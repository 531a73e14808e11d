// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <filesystem>
#include <string>

namespace huebrush::cli {

/// Where to look for LibreOffice.
struct OfficeSearch {
    std::string given;                 ///< The one that the user names, or nothing.
    std::string path;                  ///< Folders with programs, separated by colons.
    std::filesystem::path root = "/";  ///< The usual places are below it.
};

/// The command that starts LibreOffice: the given one; else the one that the PATH offers under its
/// plain name; else of those whose names carry a version, as its makers' own packages install them,
/// the newest; else one in the usual places, in the same order. Failure, in one line, when there is
/// none, or when what is given is not a program.
std::filesystem::path findOffice(const OfficeSearch& search);

}  // namespace huebrush::cli
