#include "ports/libreoffice/window/Pointing.h"

#include <chrono>
#include <utility>

#include "forms/Form.h"
#include "ports/libreoffice/window/FormWindow.h"

namespace huebrush::libreoffice {

void Pointing::hear(const MouseInput& input) {
    if (input.kind == MouseInput::Kind::press) window_.menu().pressBeside();
    window_.post([this, input] { heard(input); });
}

void Pointing::turnWheel(int lines) {
    window_.post([this, lines] { scroll(lines); });
}

void Pointing::heard(const MouseInput& input) {
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
    if (window_.peer().is()) followPointer(onSurface(input), held);
}

/// What the place of the mouse means for the windows themselves.
void Pointing::followPointer(const Mouse::Place& at, bool held) {
    if (at.surface == nullptr) return;
    if (Surface* const surface = window_.windowOf(*at.surface)) {
        surface->setToolTip(Mouse::toolTipAt(at));
    }
    scrollWhileDragging(held ? Mouse::scrollWantedAt(at) : 0);
}

void Pointing::scrollWhileDragging(int direction) {
    constexpr std::chrono::milliseconds kInterval(100);
    if (direction == std::exchange(dragScrollDirection_, direction)) return;
    dragScroll_.reset();
    if (direction == 0) return;
    dragScroll_ = std::make_unique<Repeater>(
        context_, kInterval, [this, weak = window_.weak_from_this(), direction] {
            const auto window = weak.lock();
            if (window == nullptr || dragScrollDirection_ != direction) return;
            window->post([this, direction] {
                if (window_.form().dragged() == nullptr) {
                    scrollWhileDragging(0);
                } else {
                    scroll(direction);
                }
            });
        });
}

/// Where the mouse is on the surface that was told of it, or that the native control lies on.
Mouse::Place Pointing::onSurface(const MouseInput& input) const {
    const Scale& scale = window_.scale();
    const auto placeOn = [&](const Surface& surface, sal_Int32 left, sal_Int32 top) {
        return Mouse::Place{surface.control(), scale.toTwips(left + input.x),
                            scale.toTwips(top + input.y), scale.toTwips(surface.bounds().Width),
                            scale.toTwips(surface.bounds().Height)};
    };
    for (const Surface* const surface : window_.surfaces()) {
        if (surface->window() == input.window) return placeOn(*surface, 0, 0);
        for (const ControlReference& control : surface->shown) {
            const Native* const native =
                control->peer == nullptr ? nullptr : control->peer->native.get();
            if (native != nullptr && native->window() == input.window) {
                return placeOn(*surface, native->place().X, native->place().Y);
            }
        }
    }
    return {};
}

void Pointing::scroll(int lines) {
    for (forms::Control* const child : window_.form().children()) {
        auto* const bar = dynamic_cast<forms::VScrollBar*>(child);
        if (bar == nullptr || !bar->isUsable()) continue;
        bar->scrollTo(bar->value() + lines * bar->SmallChange);
        return;
    }
}

}  // namespace huebrush::libreoffice
