// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <sys/types.h>

#include <functional>
#include <string>

namespace huebrush::cli {

/// Whether a name is what the office gives a file until all of it is written: "lu", the number of
/// the office's process, small letters and digits, ".tmp". The latter may begin with a digit, so
/// that a name may fit two processes, of which one has a longer number: then the file is taken for
/// that of the other where that is an office.
bool isUnfinishedFileOf(pid_t process, const std::string& name,
                        const std::function<bool(pid_t)>& isOffice);

/// Whether a process that runs is an office.
bool isRunningOffice(pid_t process);

}  // namespace huebrush::cli
