// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/Error.h"
#include "forms/Runtime.h"
#include "ports/memory/MemoryHost.h"
#include "ports/memory/MemoryRuntime.h"

namespace huebrush::memory {

/// What nearly every test stands on: a runtime in force, a word processor with one open document,
/// and one log of the calls of both. The log is off until a test switches it on.
struct TestHost {
    TestHost() {
        runtime.log = &application.log;
        runtime.UnhandledError.connect(
            [this](const base::Error& error) { unhandled.push_back(error); });
    }

    CallLog& log() { return application.log; }
    /// Switches the log on, or forgets what it has.
    void startLog() {
        application.log.on = true;
        application.log.clear();
    }
    const std::vector<std::string>& calls() const { return application.log.entries(); }

    MemoryApplication application;
    MemoryRuntime runtime;
    forms::RuntimeScope scope{runtime};
    std::shared_ptr<MemoryDocument> document = application.open("Picture");
    /// What no trap has caught.
    std::vector<base::Error> unhandled;
};

}  // namespace huebrush::memory
