// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <exception>
#include <string>

#include "files/Reason.h"

namespace huebrush::files {

/// What could not be done with a file, or what another program is doing to it.
enum class Problem {
    read,        ///< it cannot be opened or read
    write,       ///< it cannot be created, written or replaced
    lock,        ///< it cannot be locked
    notRegular,  ///< it is a folder, a pipe, a device
    cutOff,      ///< it became shorter while it was being read
    inUse,       ///< another program has it open for writing, or locked
    changed,     ///< another program has written or replaced it
};

/// Why a file could not be used. what() is one line, in English but for the system's own words.
class Error : public std::exception {
 public:
    /// `reason` is the system's number, 0 where the system reported none.
    Error(Problem problem, std::string name, int reason = 0);

    Problem problem() const noexcept { return problem_; }
    const std::string& name() const noexcept { return name_; }
    Cause cause() const { return causeOf(reason_); }
    /// What the system says, see files::textOfReason.
    std::string textOfReason() const { return files::textOfReason(reason_); }
    const char* what() const noexcept override { return text_.c_str(); }

 private:
    Problem problem_;
    std::string name_;
    int reason_;
    std::string text_;
};

}  // namespace huebrush::files
