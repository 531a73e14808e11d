// SPDX-License-Identifier: MPL-2.0

#include "ports/memory/CallLog.h"

namespace huebrush::memory {

std::vector<std::string> CallLog::beginningWith(const std::string& start) const {
    std::vector<std::string> found;
    for (const std::string& entry : entries_) {
        if (entry.starts_with(start)) found.push_back(entry);
    }
    return found;
}

void CallLog::noteNow(std::string entry) {
    for (Failure& failure : failures_) {
        if (!entry.starts_with(failure.start)) continue;
        if (++failure.seen >= failure.occurrence &&
            failure.seen - failure.occurrence < failure.times) {
            if (on) entries_.push_back(entry + " failed");
            throw failure.error;
        }
    }
    if (on) entries_.push_back(std::move(entry));
}

}  // namespace huebrush::memory
