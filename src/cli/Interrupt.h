#pragma once

namespace huebrush::cli {

/// From now on the signals that end a program (Ctrl-C, hang-up, termination) only raise a flag, so
/// that whoever waits can clean up first.
void catchInterrupts();

/// Throws Interrupted if such a signal has come.
void throwIfInterrupted();

}  // namespace huebrush::cli
