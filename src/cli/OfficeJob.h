#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/TemporaryFolder.h"
#include "protocol/Job.h"

namespace huebrush::cli {

/// One job done by a LibreOffice of its own.
class OfficeJob {
 public:
    OfficeJob() = default;

    /// A folder for the job's files; it goes with this object.
    const std::filesystem::path& folder() const { return folder_.path(); }

    /// Starts the office, has it do the job, and ends it. The result as the office sent it; Failure
    /// with the office's own words, or when it died or is missing; Interrupted on Ctrl-C.
    nlohmann::ordered_json run(protocol::Job job, bool showProgress);

 private:
    TemporaryFolder folder_;
};

}  // namespace huebrush::cli
