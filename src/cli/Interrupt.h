// SPDX-License-Identifier: MPL-2.0

#pragma once

namespace huebrush::cli {

/// From now on the signals that end a program (Ctrl-C, hang-up, termination) only raise a flag, so
/// that whoever waits can clean up first.
void catchInterrupts();

/// Waits until a file descriptor has something to read or is at its end. False when one of these
/// signals came before or meanwhile.
bool waitForInput(int descriptor);

/// Throws Interrupted if one of these signals has come.
void throwIfInterrupted();

}  // namespace huebrush::cli
