// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <string>

namespace huebrush::cli {

/// What the bar says in a terminal of that width; it becomes shorter down to the numbers, and to
/// nothing. REQUIRES: `total` is not 0.
std::string progressLine(std::size_t done, std::size_t total, std::size_t width);

/// A bar on standard error that shows the progress of the work, no wider than the terminal; silent
/// where there is none.
class ProgressBar {
 public:
    explicit ProgressBar(bool enabled);
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    /// Erases the bar.
    ~ProgressBar();

    void show(std::size_t done, std::size_t total);
    /// Erases the bar, to make room for a line; the next show() brings it back.
    void clear();

 private:
    bool enabled_;
    bool shown_ = false;
};

}  // namespace huebrush::cli
