// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <poll.h>

#include <span>

namespace huebrush::cli {

/// From now on the signals that end a program (Ctrl-C, hang-up, termination) only raise a flag, so
/// that whoever waits can clean up first.
void catchInterrupts();

/// Waits until one of these file descriptors has something of what is awaited of it, as poll() says
/// it. False when one of these signals came before or meanwhile.
bool waitForAny(std::span<pollfd> awaited);

/// Waits until a file descriptor has something to read or is at its end. False when one of these
/// signals came before or meanwhile.
bool waitForInput(int descriptor);

/// Throws Interrupted if one of these signals has come.
void throwIfInterrupted();

}  // namespace huebrush::cli
