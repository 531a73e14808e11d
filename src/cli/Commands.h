// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>
#include <vector>

namespace huebrush::cli {

struct FillsOptions {
    std::string document;
    std::string through;  ///< see throughFromText
    bool json = false;
};

struct RecolorOptions {
    std::string document;
    std::string output;
    bool inPlace = false;
    std::vector<std::string> maps;
    std::vector<std::string> rows;
    std::string plan;
    std::string palette;  ///< FILE:NAME
    std::string through;
    bool yes = false;  ///< the palette may have fewer fills than there are rows
    bool json = false;
};

/// Each command does its work, prints its result and returns the exit code. It throws Failure or
/// Interrupted when it ends early: nothing is written then.
int runFills(const FillsOptions& options);
int runRecolor(const RecolorOptions& options);

}  // namespace huebrush::cli
