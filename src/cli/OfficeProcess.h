#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace huebrush::cli {

/// Where the program's parts are.
struct Installation {
    std::filesystem::path office;      ///< The command that starts LibreOffice.
    std::filesystem::path extensions;  ///< The folder that holds the unpacked extension.
};

/// Finds LibreOffice (HUEBRUSH_OFFICE, else the PATH and the usual places) and the extension
/// (HUEBRUSH_EXTENSIONS, else beside the program). Failure, in one line, when either is missing.
Installation findInstallation();

/// A LibreOffice without a screen on a profile of its own, in a process group of its own. It is
/// ended, with all processes that it has started, at the end of this object at the latest.
class OfficeProcess {
 public:
    OfficeProcess(const Installation& installation, const std::filesystem::path& profile,
                  const std::vector<std::string>& arguments);
    OfficeProcess(const OfficeProcess&) = delete;
    OfficeProcess& operator=(const OfficeProcess&) = delete;
    ~OfficeProcess();

    /// Whether the process has ended by itself.
    bool hasEnded();
    /// Waits for the end for some time, then makes an end of it.
    void end() noexcept;

 private:
    pid_t pid_;
    bool reaped_ = false;
};

}  // namespace huebrush::cli
