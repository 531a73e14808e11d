// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace huebrush::cli {

/// Where what the program needs is installed.
struct Installation {
    std::filesystem::path office;      ///< The command that starts LibreOffice.
    std::filesystem::path extensions;  ///< The folder that holds the unpacked extension.
};

/// Finds LibreOffice (HUEBRUSH_OFFICE, else the PATH and the usual places) and the extension
/// (HUEBRUSH_EXTENSIONS, else beside the program). Failure, in one line, when either is missing.
Installation findInstallation();

/// The command line of a LibreOffice without a screen and with a profile of its own.
std::vector<std::string> officeCommand(const Installation& installation,
                                       const std::filesystem::path& profile,
                                       const std::vector<std::string>& arguments);

/// The URL of a file; its path may be relative and consist of any bytes.
std::string fileUrl(const std::filesystem::path& path);

}  // namespace huebrush::cli
