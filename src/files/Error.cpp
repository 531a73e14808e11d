// SPDX-License-Identifier: MPL-2.0

#include "files/Error.h"

#include "base/Text.h"

namespace huebrush::files {

namespace {

using base::text;

std::string textOf(Problem problem, const std::string& name, int reason) {
    switch (problem) {
        case Problem::read:
            return text("cannot read ", name, ": ", textOfReason(reason));
        case Problem::write:
            return text("cannot write ", name, ": ", textOfReason(reason));
        case Problem::lock:
            return text("cannot lock ", name, ": ", textOfReason(reason));
        case Problem::notRegular:
            return text(name, " is not a regular file");
        case Problem::cutOff:
            return text(name, " became shorter while it was being read");
        case Problem::inUse:
            return text("another program has ", name, " open for writing");
        default:
            return text("another program has changed ", name, " in the meantime");
    }
}

}  // namespace

Error::Error(Problem problem, std::string name, int reason)
    : problem_(problem),
      name_(std::move(name)),
      reason_(reason),
      text_(textOf(problem_, name_, reason_)) {}

}  // namespace huebrush::files
