// SPDX-License-Identifier: MPL-2.0

#include "view/Scene.h"

#include <algorithm>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "view/NativeKinds.h"

namespace huebrush::view {

namespace {

/// A line has a thickness even where one of its sizes is 0.
constexpr double kLineThickness = 15;

Box boxOf(const forms::Control& control, double left, double top) {
    Box box{left + control.Left, top + control.Top, control.Width, control.Height};
    if (dynamic_cast<const forms::Line*>(&control) != nullptr) {
        box.width = std::max(box.width, kLineThickness);
        box.height = std::max(box.height, kLineThickness);
    }
    return box;
}

void collect(const forms::Control& container, double left, double top, const Box& clip,
             std::vector<Placed>& scene) {
    const std::vector<forms::Control*>& children = container.children();
    // What was made first lies above.
    std::for_each(children.rbegin(), children.rend(), [&](forms::Control* child) {
        forms::Control& control = *child;
        if (!control.Visible) return;
        const Box place = boxOf(control, left, top);
        const Box visible = intersection(place, clip);
        if (visible.empty()) return;
        scene.push_back({&control, place, visible});
        if (!isSurface(control)) collect(control, place.left, place.top, visible, scene);
    });
}

}  // namespace

bool isSurface(const forms::Control& control) {
    if (control.container() == nullptr) return true;
    if (dynamic_cast<const forms::PictureBox*>(&control) == nullptr) return false;
    for (const forms::Control* at = control.container(); at != nullptr; at = at->container()) {
        if (dynamic_cast<const forms::PictureBox*>(at) != nullptr) return false;
    }
    return true;
}

bool isNative(const forms::Control& control) {
    return visitNativeKind(control, [](const auto&) {});
}

std::vector<Placed> sceneOf(const forms::Control& surface, double width, double height) {
    std::vector<Placed> scene;
    collect(surface, 0, 0, {0, 0, width, height}, scene);
    return scene;
}

Box placeOnSurface(const forms::Control& control) {
    Box box = boxOf(control, 0, 0);
    for (const forms::Control* at = control.container(); !isSurface(*at); at = at->container()) {
        box.left += at->Left;
        box.top += at->Top;
    }
    return box;
}

std::vector<forms::VScrollBar*> barsAround(const forms::Control& surface) {
    std::vector<forms::VScrollBar*> bars;
    const forms::Control* around = surface.container() == nullptr ? &surface : surface.container();
    for (; around != nullptr; around = around->container()) {
        for (forms::Control* const child : around->children()) {
            auto* const bar = dynamic_cast<forms::VScrollBar*>(child);
            if (bar != nullptr) bars.push_back(bar);
        }
    }
    return bars;
}

forms::Control& surfaceOf(forms::Control& control) {
    forms::Control* at = control.container();
    while (!isSurface(*at)) at = at->container();
    return *at;
}

}  // namespace huebrush::view
