// SPDX-License-Identifier: MPL-2.0

#include "view/ActionQueue.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace huebrush::view {
namespace {

class ActionQueueTest : public ::testing::Test {
 protected:
    void add(int number) {
        queue.add([this, number] { done.push_back(number); });
    }

    int asked = 0;
    int handlers = 0;
    std::vector<int> done;
    ActionQueue queue{[this] { ++asked; },
                      [this](const ActionQueue::Action& action) {
                          ++handlers;
                          action();
                      }};
};

TEST_F(ActionQueueTest, ActionsRunInTheirOrderEachAsAHandlerInOneTurn) {
    add(1);
    add(2);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(done.empty());
    queue.run();
    EXPECT_EQ(done, (std::vector<int>{1, 2}));
    EXPECT_EQ(handlers, 2);
    add(3);
    EXPECT_EQ(asked, 2);
}

TEST_F(ActionQueueTest, WhatAnActionAddsRunsInTheSameTurn) {
    queue.add([this] { add(2); });
    queue.run();
    EXPECT_EQ(done, std::vector<int>{2});
}

TEST_F(ActionQueueTest, APausedQueueWaitsUntilTheLastPauseEnds) {
    {
        const ActionQueue::Pause outer(queue);
        {
            const ActionQueue::Pause inner(queue);
            add(1);
            queue.run();
        }
        queue.run();
        EXPECT_TRUE(done.empty());
        asked = 0;
    }
    EXPECT_EQ(asked, 1) << "a turn for what has waited";
    queue.run();
    EXPECT_EQ(done, std::vector<int>{1});
}

TEST_F(ActionQueueTest, AnActionMayPauseTheQueueForTheNextOnes) {
    std::unique_ptr<ActionQueue::Pause> pause;
    queue.add([&] { pause = std::make_unique<ActionQueue::Pause>(queue); });
    add(2);
    queue.run();
    EXPECT_TRUE(done.empty());
    pause.reset();
    queue.run();
    EXPECT_EQ(done, std::vector<int>{2});
}

TEST_F(ActionQueueTest, WhatWasForgottenDoesNotRun) {
    add(1);
    queue.clear();
    queue.run();
    EXPECT_TRUE(done.empty());
}

}  // namespace
}  // namespace huebrush::view
