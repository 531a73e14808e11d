// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <chrono>

namespace huebrush::files {

/// Lets this thread rest.
void rest(std::chrono::milliseconds time);

/// Lets somebody try again and again for some time.
class Patience {
 public:
    explicit Patience(std::chrono::milliseconds limit)
        : end_(std::chrono::steady_clock::now() + limit) {}

    /// Waits for a moment; false when the time is over.
    bool wait() const {
        if (std::chrono::steady_clock::now() >= end_) return false;
        rest(kMoment);
        return true;
    }

 private:
    static constexpr std::chrono::milliseconds kMoment{1};

    std::chrono::steady_clock::time_point end_;
};

/// How long it is waited for a program that has a file open for writing: many do for a moment only.
inline constexpr std::chrono::milliseconds kHoldersTime{300};
/// And for another writer of ours, also one that writes a very large file.
inline constexpr std::chrono::milliseconds kWritersTime{20000};

}  // namespace huebrush::files
