#pragma once

#include <string>
#include <vector>

namespace huebrush::cli {

struct FillsOptions {
    std::string document;
    bool json = false;
};

struct RecolorOptions {
    std::string document;
    std::string output;
    bool inPlace = false;
    std::vector<std::string> maps;
    std::vector<std::string> rows;
    std::string plan;
    bool json = false;
};

/// Each command does its work and prints its result; the exit code is returned. Failure and
/// Interrupted for what ends it early: nothing is written then.
int runFills(const FillsOptions& options);
int runRecolor(const RecolorOptions& options);

}  // namespace huebrush::cli
