// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "base/Error.h"

namespace huebrush::memory {

/// Everything that the logic asks of the memory host and, where it is connected, of the memory
/// runtime, call by call and in order: "read Sun.Fill.Visible", "write Sun.Fill.Visible -1", "call
/// Sun.Fill.Solid". Off until it is switched on, so that large documents cost no more than the
/// calls themselves.
///
/// A call can be made to fail: calls whose entry begins with the given text throw the error instead
/// of taking effect, from the nth occurrence on, as many times as said.
class CallLog {
 public:
    bool on = false;

    const std::vector<std::string>& entries() const { return entries_; }
    void clear() { entries_.clear(); }
    /// The entries that begin with a text, in their order.
    std::vector<std::string> beginningWith(const std::string& start) const;

    static constexpr std::size_t kEveryTime = std::numeric_limits<std::size_t>::max();
    void failAt(std::string start, base::Error error, std::size_t occurrence = 1,
                std::size_t times = kEveryTime) {
        failures_.push_back({std::move(start), std::move(error), occurrence, times, 0});
    }
    void failNoMore() { failures_.clear(); }

    /// Notes a call; `entry` is only built when somebody listens.
    template <class Entry>
    void note(const Entry& entry) {
        if (on || !failures_.empty()) noteNow(entry());
    }

 private:
    struct Failure {
        std::string start;
        base::Error error;
        std::size_t occurrence;
        std::size_t times;
        std::size_t seen;
    };
    void noteNow(std::string entry);

    std::vector<std::string> entries_;
    std::vector<Failure> failures_;
};

}  // namespace huebrush::memory
