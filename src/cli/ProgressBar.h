#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace huebrush::cli {

/// A bar on standard error that shows how far the work is; silent where that is no terminal.
class ProgressBar {
 public:
    explicit ProgressBar(bool enabled);
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    /// Wipes the bar off the line.
    ~ProgressBar();

    void show(std::size_t done, std::size_t total);

 private:
    bool enabled_;
    bool shown_ = false;
};

}  // namespace huebrush::cli
