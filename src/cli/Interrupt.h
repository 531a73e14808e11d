#pragma once

namespace huebrush::cli {

/// From now on the signals that end a program (Ctrl-C, hang-up, termination) only raise a flag, so
/// that whoever waits can clean up first.
void catchInterrupts();

/// Waits until a file descriptor has something to read or has come to its end. False when a signal
/// of these has come before or meanwhile.
bool waitForInput(int descriptor);

/// Throws Interrupted if such a signal has come.
void throwIfInterrupted();

}  // namespace huebrush::cli
