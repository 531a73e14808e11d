#pragma once

#include <functional>

#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Runs `work` soon on the office's main thread, out of its event loop: the only thread on which
/// windows may be made. Returns at once. What `work` throws ends there, unseen.
void postToMainThread(const ContextReference& context, std::function<void()> work);

}  // namespace huebrush::libreoffice
