// SPDX-License-Identifier: MPL-2.0

#include "view/Pointing.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "view/Native.h"
#include "view/Scene.h"

namespace huebrush::view {

void Pointing::handle(const MouseInput& input) {
    const Mouse::Place at = onSurface(input);
    if (at.surface == nullptr) return;
    const forms::MouseEvent event{input.button, input.shift};
    switch (input.kind) {
        case MouseInput::Kind::press:
            mouse_.press(at, event, input.twice);
            break;
        case MouseInput::Kind::release:
            mouse_.release(at, event);
            break;
        case MouseInput::Kind::move:
            mouse_.move(at, event);
            break;
        case MouseInput::Kind::leave:
            mouse_.leave(at);
            return;
    }
    const bool held = input.kind != MouseInput::Kind::release && input.button != 0;
    if (target_.isOpen()) followPointer(onSurface(input), held);
}

/// The effect of the mouse's place on the surfaces themselves.
void Pointing::followPointer(const Mouse::Place& at, bool held) {
    if (at.surface == nullptr) return;
    target_.setToolTip(*at.surface, Mouse::toolTipAt(at));
    scrollWhileDragging(held ? Mouse::scrollWantedAt(at) : 0);
}

void Pointing::scrollWhileDragging(int direction) {
    constexpr std::chrono::milliseconds kInterval(100);
    if (direction == std::exchange(dragScrollDirection_, direction)) return;
    dragScroll_.reset();
    if (direction == 0) return;
    dragScroll_ = target_.repeat(kInterval, [this, direction] {
        if (dragScrollDirection_ != direction) return;
        target_.post([this, direction] { scrollDragged(direction); });
    });
}

void Pointing::scrollDragged(int direction) {
    forms::Control* const dragged = target_.form().dragged();
    if (dragged == nullptr) {
        scrollWhileDragging(0);
    } else {
        scroll(surfaceOf(*dragged), direction);
    }
}

/// Where the mouse is on the surface whose window it is in, or that the native control lies on.
Mouse::Place Pointing::onSurface(const MouseInput& input) const {
    const ControlPeer* const peer = input.control == nullptr ? nullptr : input.control->peer;
    if (peer == nullptr) return {};
    forms::Control& control = *input.control->control;
    if (isSurface(control)) return target_.placeOn(control, input.at);
    if (peer->native == nullptr) return {};
    return target_.placeOn(surfaceOf(control),
                           {peer->place.left + input.at.x, peer->place.top + input.at.y});
}

void Pointing::scroll(const forms::Control& surface, int rows) {
    const std::vector<forms::VScrollBar*> bars = barsAround(surface);
    const auto bar = std::find_if(bars.begin(), bars.end(),
                                  [](const forms::VScrollBar* each) { return each->isUsable(); });
    if (bar != bars.end()) (*bar)->scrollTo((*bar)->value() + rows * (*bar)->SmallChange);
}

}  // namespace huebrush::view
