// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <memory>

#include "ports/libreoffice/app/RateLimit.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

class Snapshot;

/// Lets the office's pending events run, at a bounded rate: a loop may ask after each of its
/// thousands of steps. The first call runs them, and what is left runs when the loop is over.
class EventPump {
 public:
    /// `before` is called each time before events run.
    EventPump(const ContextReference& context, std::shared_ptr<Snapshot> snapshot,
              std::function<void()> before = {});

    void run();
    /// Lets them run at once, whatever the rate.
    void runNow();

 private:
    ContextReference context_;
    std::shared_ptr<Snapshot> snapshot_;
    std::function<void()> before_;
    RateLimit rate_;
};

}  // namespace huebrush::libreoffice
