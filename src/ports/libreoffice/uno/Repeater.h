// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <chrono>
#include <functional>
#include <thread>

#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Calls `work` on the office's main thread again and again, an interval apart, for as long as it
/// lives. A call that is already posted when it ends still comes.
class Repeater {
 public:
    Repeater(const ContextReference& context, std::chrono::milliseconds interval,
             std::function<void()> work);

 private:
    std::jthread thread_;
};

}  // namespace huebrush::libreoffice
