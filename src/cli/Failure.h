// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <stdexcept>

namespace huebrush::cli {

/// The exit codes of the program.
namespace ExitCode {
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kUsage = 2;
/// The result was written, but the file does not hold all fills as they were asked for.
inline constexpr int kStoredOtherwise = 3;
inline constexpr int kInterrupted = 130;
}  // namespace ExitCode

/// What ends the program: one line for the user, which main() prints on standard error.
class Failure : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// The user pressed Ctrl-C, or the program was asked to terminate.
class Interrupted : public std::exception {
 public:
    const char* what() const noexcept override { return "interrupted"; }
};

}  // namespace huebrush::cli
