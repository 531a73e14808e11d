// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace huebrush::cli {

/// The shells for which there are completions.
const std::vector<std::string>& completedShells();

/// A script that has a shell complete the program's commands and options, and the values of
/// options: what stands behind "|" in their type's name are words, FILE stands for files, DIR for
/// folders. REQUIRES: the shell is one of completedShells().
std::string completionScript(const CLI::App& program, const std::string& shell);

}  // namespace huebrush::cli
