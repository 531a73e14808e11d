// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>

#include "view/InputTarget.h"
#include "view/Mouse.h"
#include "view/MouseInput.h"

namespace huebrush::view {

/// The mouse in a form's window: what it does affects the controls under it, and the surfaces
/// themselves, which show tool tips and scroll.
class Pointing {
 public:
    explicit Pointing(InputTarget& target) : target_(target) {}
    Pointing(const Pointing&) = delete;
    Pointing& operator=(const Pointing&) = delete;

    /// The mouse has done something in one of the native windows.
    void handle(const MouseInput& input);
    /// Scrolls what shows on a surface by a number of rows, downwards where that is more than 0: by
    /// the usable scroll bar beside it, or else the next one around it.
    static void scroll(const forms::Control& surface, int rows);
    /// Ends a drag without a drop.
    void cancelDrag(forms::Form& form) { mouse_.cancelDrag(form); }
    void stop() { scrollWhileDragging(0); }

 private:
    Mouse::Place onSurface(const MouseInput& input) const;
    void followPointer(const Mouse::Place& at, bool held);
    void scrollWhileDragging(int direction);
    void scrollDragged(int direction);

    InputTarget& target_;
    Mouse mouse_;
    /// Scrolls that way while a control is dragged beyond the edge of its list.
    std::shared_ptr<void> dragScroll_;
    int dragScrollDirection_ = 0;
};

}  // namespace huebrush::view
