// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <algorithm>
#include <chrono>

namespace huebrush::libreoffice {

/// Says when something that may be skipped is due again: at most once an interval, and so rarely
/// that doing it takes at most a quarter of the time. The first time is always due.
class RateLimit {
 public:
    using Clock = std::chrono::steady_clock;

    explicit RateLimit(Clock::duration interval) : interval_(interval) {}

    bool isDue(Clock::time_point now = Clock::now()) const { return now >= next_; }

    /// It was done from `start` to `end`.
    void done(Clock::time_point start, Clock::time_point end = Clock::now()) {
        constexpr int kPauseForWork = 3;
        next_ = end + std::max(interval_, kPauseForWork * (end - start));
    }

 private:
    Clock::duration interval_;
    Clock::time_point next_ = Clock::time_point::min();
};

}  // namespace huebrush::libreoffice
