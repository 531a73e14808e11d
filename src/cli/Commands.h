// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace huebrush::cli {

/// The documents of a call, and how they are worked on.
struct DocumentOptions {
    std::vector<std::string> documents;
    bool recursive = false;
    std::size_t jobs = 0;      ///< how many at once; 0: as many as there are processors
    std::string through;       ///< see throughFromText
    std::string passwordFile;  ///< holds the password of encrypted documents
    bool json = false;
};

struct FillsOptions : DocumentOptions {};

struct RecolorOptions : DocumentOptions {
    std::string output;
    std::string outputDir;
    bool inPlace = false;
    bool dropSignature = false;  ///< of a document that is signed
    bool dryRun = false;
    std::vector<std::string> maps;
    std::vector<std::string> also;  ///< what else the maps change: "gradients", "patterns"
    double tolerance = 0;
    bool ignoreMissing = false;
    std::vector<std::string> rows;
    std::string plan;
    std::string palette;  ///< FILE:NAME
    bool yes = false;     ///< the palette may have fewer fills than there are rows
};

/// Each command does its work, prints its result and returns the exit code. It throws Failure or
/// Interrupted when it ends early: nothing is written then.
///
/// A call over many documents (several, a folder, or with a folder of results) prints one line
/// about each and a summary, and goes on after one that fails.
int runFills(const FillsOptions& options);
int runRecolor(const RecolorOptions& options);

}  // namespace huebrush::cli
