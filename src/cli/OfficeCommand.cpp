// SPDX-License-Identifier: MPL-2.0

#include "cli/OfficeCommand.h"

#include <cstdlib>

#include "base/Text.h"
#include "cli/Failure.h"
#include "cli/OfficeSearch.h"

namespace huebrush::cli {

namespace {

namespace fs = std::filesystem;

std::string environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// Whether a folder of extensions contains ours.
bool hasExtension(const fs::path& folder) {
    std::error_code error;
    return fs::is_regular_file(folder / "huebrush/huebrush.so", error);
}

fs::path findExtensions() {
    if (const char* const given = std::getenv("HUEBRUSH_EXTENSIONS")) {
        if (hasExtension(given)) return fs::absolute(given);
        throw Failure(
            std::string("HUEBRUSH_EXTENSIONS is not a folder that contains the extension: ") +
            given);
    }
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path folder = program.parent_path();
    // In the build's folder, or installed.
    for (const fs::path& place :
         {folder / "../extension", folder / HUEBRUSH_EXTENSIONS_FROM_PROGRAM}) {
        if (hasExtension(place)) return fs::canonical(place);
    }
    throw Failure("cannot find the LibreOffice extension that belongs to " + program.string());
}

}  // namespace

Installation findInstallation() {
    return {findOffice({environment("HUEBRUSH_OFFICE"), environment("PATH")}), findExtensions()};
}

std::string fileUrl(const fs::path& path) {
    return "file://" +
           base::percentEncoded(fs::absolute(path).lexically_normal().string(), "/-_.~");
}

std::vector<std::string> officeCommand(const Installation& installation, const fs::path& profile,
                                       const std::vector<std::string>& arguments) {
    std::vector<std::string> command{installation.office.string(),
                                     "--headless",
                                     "--norestore",
                                     "--nologo",
                                     "--nodefault",
                                     "-env:UserInstallation=" + fileUrl(profile),
                                     "-env:BUNDLED_EXTENSIONS=" + fileUrl(installation.extensions)};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

}  // namespace huebrush::cli
