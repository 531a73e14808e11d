// SPDX-License-Identifier: MPL-2.0

#include "view/ActionQueue.h"

#include <utility>

namespace huebrush::view {

void ActionQueue::add(Action action) {
    waiting_.push_back(std::move(action));
    wake();
}

void ActionQueue::wake() {
    if (std::exchange(woken_, true)) return;
    askForTurn_();
}

void ActionQueue::run() {
    woken_ = false;
    while (!waiting_.empty() && pauses_ == 0) {
        const Action action = std::move(waiting_.front());
        waiting_.erase(waiting_.begin());
        runAction_(action);
    }
}

}  // namespace huebrush::view
