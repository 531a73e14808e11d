// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <chrono>

namespace huebrush::files {

/// Suspends this thread.
void rest(std::chrono::milliseconds time);

/// A limit to how long something is tried again and again.
class Patience {
 public:
    explicit Patience(std::chrono::milliseconds limit)
        : end_(std::chrono::steady_clock::now() + limit) {}

    /// Waits for a moment; false when the time is up.
    bool wait() const {
        if (std::chrono::steady_clock::now() >= end_) return false;
        rest(kMoment);
        return true;
    }

 private:
    static constexpr std::chrono::milliseconds kMoment{1};

    std::chrono::steady_clock::time_point end_;
};

/// How long to wait for a program that has a file open for writing: many do so only for a moment.
inline constexpr std::chrono::milliseconds kHoldersTime{300};
/// And how long for another writer of ours, which may be writing a very large file.
inline constexpr std::chrono::milliseconds kWritersTime{20000};

}  // namespace huebrush::files
