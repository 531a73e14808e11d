// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>

#include "protocol/Job.h"

namespace huebrush::cli {

/// A LibreOffice of its own that does one job after another. It is started by the first one, again
/// by the next one after it has crashed, and ends with this object.
class Office {
 public:
    /// `longestStart`: an office that cannot load the extension keeps running silently; after that
    /// time it is given up.
    explicit Office(std::chrono::milliseconds longestStart = std::chrono::minutes(2));
    Office(const Office&) = delete;
    Office& operator=(const Office&) = delete;
    ~Office();

    /// Where the office is to store what will be at `output`; removed with the office. In the same
    /// folder, because the office writes links relative to the place where it stores; only where
    /// the locale cannot express that, in a folder of its own.
    std::filesystem::path placeBeside(const std::filesystem::path& output);

    /// The same for a result that is not to be kept: in the office's own folder.
    std::filesystem::path placeAside();

    /// The result of a job as the office sent it. Failure with the office's own words, when it died
    /// or is missing, or when the extension did not start in time. Interrupted on Ctrl-C.
    nlohmann::ordered_json run(protocol::Job job, bool showProgress);

 private:
    class Running;

    Running& running();

    std::chrono::milliseconds longestStart_;
    std::unique_ptr<Running> running_;
    std::size_t jobs_ = 0;
};

}  // namespace huebrush::cli
