// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/runtime/OfficeSystem.h"

#include <osl/process.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <osl/file.hxx>
#include <sstream>

#include "base/Error.h"
#include "base/Text.h"
#include "ports/libreoffice/uno/Text.h"

namespace huebrush::libreoffice {

namespace {

constexpr const char* kToolKey = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
constexpr const char* kToolValue = "PATH";

/// Programs that show information about the system, the more detailed ones first.
constexpr std::array<const char*, 7> kTools{"hardinfo2",
                                            "hardinfo",
                                            "kinfocenter",
                                            "gnome-system-monitor",
                                            "mate-system-monitor",
                                            "plasma-systemmonitor",
                                            "ksysguard"};

bool isProgram(const std::filesystem::path& file) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(file, ignored) && access(file.c_str(), X_OK) == 0;
}

std::optional<std::string> findOnPath(const char* program) {
    const char* const path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "" : path);
    for (std::string folder; std::getline(folders, folder, ':');) {
        const std::filesystem::path file = std::filesystem::path(folder) / program;
        if (file.is_absolute() && isProgram(file)) return file.string();
    }
    return std::nullopt;
}

}  // namespace

std::optional<forms::RegistryValue> OfficeSystem::registryValue(forms::RegistryRoot root,
                                                                const std::string& key,
                                                                const std::string& name) {
    if (root != forms::RegistryRoot::localMachine || key != kToolKey || name != kToolValue) {
        return std::nullopt;
    }
    for (const char* const tool : kTools) {
        if (const auto path = findOnPath(tool)) return *path;
    }
    return std::nullopt;
}

bool OfficeSystem::fileExists(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

void OfficeSystem::start(const std::string& path) {
    rtl::OUString url;
    osl::FileBase::getFileURLFromSystemPath(toOffice(path), url);
    oslProcess process = nullptr;
    const oslProcessError error =
        osl_executeProcess(url.pData, nullptr, 0, osl_Process_NORMAL | osl_Process_DETACHED,
                           nullptr, nullptr, nullptr, 0, &process);
    if (error != osl_Process_E_None) {
        throw base::Error(base::ErrorNumber::kFileNotFound,
                          base::text("Program ", path, " nelze spustit."));
    }
    osl_freeProcessHandle(process);
}

}  // namespace huebrush::libreoffice
