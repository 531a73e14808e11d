// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace huebrush::cli {

/// A bar on standard error that shows the progress of the work; silent where that is not a
/// terminal.
class ProgressBar {
 public:
    explicit ProgressBar(bool enabled);
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    /// Erases the bar.
    ~ProgressBar();

    void show(std::size_t done, std::size_t total);

 private:
    bool enabled_;
    bool shown_ = false;
};

}  // namespace huebrush::cli
