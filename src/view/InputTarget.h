// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "forms/Form.h"
#include "view/ActionQueue.h"
#include "view/Mouse.h"

namespace huebrush::view {

class Menu;

/// What the mouse and the keyboard act on: a form in its window.
class InputTarget {
 public:
    InputTarget() = default;
    InputTarget(const InputTarget&) = delete;
    InputTarget& operator=(const InputTarget&) = delete;

    virtual forms::Form& form() const = 0;
    virtual bool isOpen() const = 0;
    virtual Menu& menu() = 0;

    /// Runs an action soon, from the event loop, unless the window is closed by then.
    virtual void post(ActionQueue::Action action) = 0;
    /// Calls `work` from the event loop again and again, for as long as what it returns lives and
    /// the window exists.
    virtual std::shared_ptr<void> repeat(std::chrono::milliseconds interval,
                                         std::function<void()> work) = 0;
    virtual void cancelDrag() = 0;

    /// The place of the mouse at pixels of a surface; without a surface where that is not shown.
    virtual Mouse::Place placeOn(forms::Control& surface, const Point& at) const = 0;
    virtual void setToolTip(const forms::Control& surface, const std::string& text) = 0;

 protected:
    ~InputTarget() = default;
};

}  // namespace huebrush::view
