// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <string>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "view/ControlPeer.h"
#include "view/Geometry.h"

namespace huebrush::view {

/// The mouse over a surface: presses and releases on images, the focus that a press gives, and the
/// dragging of controls.
class Mouse {
 public:
    /// Where the mouse is, in twips of a surface of that visible size.
    struct Place {
        forms::Control* surface = nullptr;
        double x = 0;
        double y = 0;
        double width = 0;
        double height = 0;
    };

    void press(const Place& at, forms::MouseEvent event, bool twice);
    void move(const Place& at, forms::MouseEvent event);
    void release(const Place& at, forms::MouseEvent event);
    /// The mouse has left the surface at a place, which is outside unless it moved onto a control
    /// inside: nothing is dragged over.
    void leave(const Place& at);

    /// Ends a drag without a drop.
    void cancelDrag(forms::Form& form);

    /// The uppermost control that shows at a place; nothing where there is none.
    static forms::Control* controlAt(const Place& at);
    /// The tool tip at a place: that of the uppermost control there, or else of what it lies in.
    static std::string toolTipAt(const Place& at);
    /// Which way the list around the dragged control is to scroll for a mouse that is beyond its
    /// edge: -1 for up, 1 for down, 0 for a mouse that is inside, or drags nothing.
    static int scrollWantedAt(const Place& at);

 private:
    void dragTo(const Place& at, forms::Form& form);
    void drop(forms::Form& form);
    void setTarget(forms::Form& form, forms::Control* target, const Place& at);

    /// The image that the button went down on, and what the dragged control is over.
    ControlReference pressed_;
    ControlReference target_;
    bool twice_ = false;
};

}  // namespace huebrush::view
