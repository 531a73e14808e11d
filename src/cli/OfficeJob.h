// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <chrono>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/Keeper.h"
#include "protocol/Job.h"

namespace huebrush::cli {

/// One job done by a LibreOffice of its own, which ends with this object.
class OfficeJob {
 public:
    OfficeJob() = default;

    /// A folder for the job's files; removed with this object.
    const std::filesystem::path& folder() const { return keeper_.folder(); }

    /// Where the office is to store what will be at `output`; removed with this object. In the same
    /// folder, because the office writes links relative to the place where it stores; only where
    /// the locale cannot express that, in folder().
    std::filesystem::path placeBeside(const std::filesystem::path& output);

    /// Starts the office and has it do the job. The result as the office sent it; Failure with the
    /// office's own words, when it died or is missing, or when the extension has not started after
    /// `longestStart`: an office that cannot load it keeps running silently. Interrupted on Ctrl-C.
    nlohmann::ordered_json run(protocol::Job job, bool showProgress,
                               std::chrono::milliseconds longestStart = std::chrono::minutes(2));

 private:
    Keeper keeper_;
};

}  // namespace huebrush::cli
