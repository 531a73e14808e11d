// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ports/memory/TestHost.h"
#include "ports/word/host/Application.h"
#include "ports/word/testhost/StandIn.h"

namespace huebrush::word {

/// The memory host, a stand-in for Word that serves it, and the port that reaches it through that.
struct TestWord {
    explicit TestWord(Age age = Age::word2000) : standIn(test.application, age) {}

    /// What was called since the last look.
    std::vector<std::string> calls() { return std::exchange(standIn.objects().log, {}); }
    /// Gives up what the port holds, and looks whether that was all that was in use.
    void expectAllGivenBack() {
        application.reset();
        EXPECT_EQ(standIn.objects().objects(), 0U);
        EXPECT_EQ(standIn.objects().references(), 0);
        EXPECT_EQ(standIn.objects().listeners(), 0U);
    }

    memory::TestHost test;
    StandIn standIn;
    /// How often the add-in was called.
    int entries = 0;
    std::unique_ptr<Application> application = std::make_unique<Application>(
        standIn.application(), [this](const std::function<void()>& handler) {
            ++entries;
            handler();
        });
};

}  // namespace huebrush::word
