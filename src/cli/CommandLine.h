// SPDX-License-Identifier: MPL-2.0

#pragma once

namespace huebrush::cli {

/// Reads the program's command line and runs the one command that it asks for. The exit code; an
/// invalid command line has been reported then. Failure, Interrupted and other exceptions end the
/// program.
int runCommandLine(int argc, char** argv);

}  // namespace huebrush::cli
