// SPDX-License-Identifier: MPL-2.0

// The program "huebrush".

#include <iostream>

#include "cli/CommandLine.h"
#include "cli/Failure.h"
#include "cli/FillText.h"

int main(int argc, char** argv) {
    using namespace huebrush::cli;
    try {
        return runCommandLine(argc, argv);
    } catch (const Interrupted&) {
        std::cerr << "huebrush: interrupted, nothing was written\n";
        return ExitCode::kInterrupted;
    } catch (const std::exception& error) {
        std::cerr << "huebrush: " << oneLine(error.what()) << '\n';
        return ExitCode::kFailed;
    }
}
