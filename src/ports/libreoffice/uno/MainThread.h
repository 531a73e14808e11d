// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <chrono>
#include <functional>

#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Runs `work` soon on the office's main thread, from its event loop: the only thread on which
/// windows may be made. Returns at once. What `work` throws is dropped.
void postToMainThread(const ContextReference& context, std::function<void()> work);

/// As postToMainThread, but returns when `work` is done, or gives up waiting for it after `limit`.
/// REQUIRES: called on another thread than the main one. `work` may outlive the call.
void runOnMainThread(const ContextReference& context, std::function<void()> work,
                     std::chrono::milliseconds limit);

}  // namespace huebrush::libreoffice
