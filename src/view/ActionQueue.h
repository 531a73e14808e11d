// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace huebrush::view {

/// What the user has done in a window: actions that are run from the event loop, one after the
/// other.
class ActionQueue {
 public:
    using Action = std::function<void()>;

    /// `askForTurn` arranges one call of run() from the event loop; `runAction` runs one of the
    /// actions.
    ActionQueue(std::function<void()> askForTurn, std::function<void(const Action&)> runAction)
        : askForTurn_(std::move(askForTurn)), runAction_(std::move(runAction)) {}
    ActionQueue(const ActionQueue&) = delete;
    ActionQueue& operator=(const ActionQueue&) = delete;

    void add(Action action);
    /// Arranges a call of run() soon, even without an action.
    void wake();
    /// Runs all pending actions, and those that are added meanwhile.
    void run();
    /// Forgets those that have not been run.
    void clear() { waiting_.clear(); }

    /// While it lives, the queue pauses.
    class Pause {
     public:
        explicit Pause(ActionQueue& queue) : queue_(queue) { ++queue_.pauses_; }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;
        ~Pause() {
            if (--queue_.pauses_ == 0 && !queue_.waiting_.empty()) queue_.wake();
        }

     private:
        ActionQueue& queue_;
    };

 private:
    std::function<void()> askForTurn_;
    std::function<void(const Action&)> runAction_;
    std::vector<Action> waiting_;
    bool woken_ = false;
    int pauses_ = 0;
};

}  // namespace huebrush::view
