// SPDX-License-Identifier: MPL-2.0

#include "view/Mouse.h"

#include <algorithm>

#include "forms/UserControl.h"
#include "view/Scene.h"

namespace huebrush::view {

namespace {

constexpr std::int16_t kLeftButton = 1;

ControlReference referenceTo(const forms::Control* control) {
    const ControlPeer* const peer = ControlPeer::of(control);
    return peer == nullptr ? ControlReference() : peer->reference();
}

template <class Kind>
Kind* living(const ControlReference& reference) {
    return reference == nullptr ? nullptr : dynamic_cast<Kind*>(reference->control);
}

bool takesFocusInside(const forms::Control& control) {
    return std::ranges::any_of(control.children(), [](const forms::Control* child) {
        return child->takesFocus() || takesFocusInside(*child);
    });
}

/// The user control that a press on one of its painted parts activates: the innermost around it,
/// if that has something to take the focus.
forms::Control* activatedBy(forms::Control* pressed) {
    while (pressed != nullptr && dynamic_cast<forms::UserControl*>(pressed) == nullptr) {
        pressed = pressed->container();
    }
    return pressed != nullptr && pressed->isUsable() && takesFocusInside(*pressed) ? pressed
                                                                                   : nullptr;
}

/// The control that gets a drag over a control: itself, or the next one around it that listens.
forms::Control* dragTargetOf(forms::Control* control) {
    while (control != nullptr && !control->DragOver.connected()) control = control->container();
    return control;
}

/// The event in twips of the control that gets it.
forms::MouseEvent on(const forms::Control& control, const Mouse::Place& at,
                     forms::MouseEvent event) {
    const Box place = placeOnSurface(control);
    event.X = static_cast<float>(at.x - place.left);
    event.Y = static_cast<float>(at.y - place.top);
    return event;
}

}  // namespace

forms::Control* Mouse::controlAt(const Place& at) {
    const std::vector<Placed> scene = sceneOf(*at.surface, at.width, at.height);
    const auto found = std::find_if(scene.rbegin(), scene.rend(), [&](const Placed& placed) {
        return placed.visible.contains(at.x, at.y);
    });
    return found == scene.rend() ? nullptr : found->control;
}

std::string Mouse::toolTipAt(const Place& at) {
    for (const forms::Control* control = controlAt(at); control != nullptr && control != at.surface;
         control = control->container()) {
        const std::string& text = control->ToolTipText.get();
        if (!text.empty()) return text;
    }
    return {};
}

int Mouse::scrollWantedAt(const Place& at) {
    forms::Control* const dragged = at.surface->form().dragged();
    if (dragged == nullptr) return 0;
    const forms::Control& list = surfaceOf(*dragged);
    Box view{0, 0, at.width, at.height};
    if (at.surface != &list) {
        // A form is a surface on which the list has a place; other lists have none on each other.
        if (list.container() == nullptr || at.surface != &at.surface->form()) return 0;
        view = placeOnSurface(list);
    }
    if (at.y < view.top) return -1;
    return at.y >= view.bottom() ? 1 : 0;
}

void Mouse::press(const Place& at, forms::MouseEvent event, bool twice) {
    if (event.Button != kLeftButton) return;
    forms::Form& form = at.surface->form();
    // The button cannot go down twice: it was released outside.
    if (form.dragged() != nullptr) cancelDrag(form);
    forms::Control* const control = controlAt(at);
    if (forms::Control* const activated = activatedBy(control)) {
        form.handle([&] { activated->SetFocus(); });
    }
    auto* const image = dynamic_cast<forms::Image*>(control);
    if (image == nullptr || !image->isUsable()) return;
    pressed_ = referenceTo(image);
    twice_ = twice;
    form.handle([&] { image->MouseDown(on(*image, at, event)); });
}

/// A move without the button says nothing certain of a drag. There is no event for a button that is
/// released outside the window; but under load the office also passes on moves before the release
/// that came first, and it makes up a move of its own before each press and release. So nothing is
/// dragged over, and the next event decides: a release still drops, and a press shows that there
/// was a release which nobody saw.
void Mouse::move(const Place& at, forms::MouseEvent event) {
    forms::Form& form = at.surface->form();
    const bool held = event.Button != 0;
    if (form.dragged() != nullptr) {
        if (held) {
            dragTo(at, form);
            return;
        }
        setTarget(form, nullptr, at);
    }
    auto* image = held ? living<forms::Image>(pressed_) : nullptr;
    if (image == nullptr) image = dynamic_cast<forms::Image*>(controlAt(at));
    if (image == nullptr || !image->isUsable()) return;
    form.handle([&] { image->MouseMove(on(*image, at, event)); });
}

void Mouse::leave(const Place& at) {
    // For a control of the surface's own, which the office may report after the moves that follow.
    if (at.x >= 0 && at.x < at.width && at.y >= 0 && at.y < at.height) return;
    forms::Form& form = at.surface->form();
    if (form.dragged() != nullptr) setTarget(form, nullptr, at);
}

void Mouse::release(const Place& at, forms::MouseEvent event) {
    if (event.Button != kLeftButton) return;
    forms::Form& form = at.surface->form();
    if (form.dragged() != nullptr) {
        dragTo(at, form);
        drop(form);
        pressed_.reset();
        return;
    }
    const ControlReference pressed = std::exchange(pressed_, nullptr);
    auto* image = living<forms::Image>(pressed);
    if (image == nullptr || !image->isUsable()) return;
    const bool inside = controlAt(at) == image;
    form.handle([&] { image->MouseUp(on(*image, at, event)); });
    image = living<forms::Image>(pressed);
    if (!inside || image == nullptr || !image->isUsable()) return;
    form.handle([&] { image->Click(); });
    image = living<forms::Image>(pressed);
    if (twice_ && image != nullptr) form.handle([&] { image->DblClick(); });
}

void Mouse::dragTo(const Place& at, forms::Form& form) {
    setTarget(form, dragTargetOf(controlAt(at)), at);
    auto* const target = living<forms::Control>(target_);
    if (target == nullptr) return;
    const forms::MouseEvent event = on(*target, at, {});
    form.handle([&] { form.dragOver(*target, event.X, event.Y, forms::DragState::over); });
}

void Mouse::setTarget(forms::Form& form, forms::Control* target, const Place& at) {
    auto* const former = living<forms::Control>(target_);
    if (former == target) return;
    const auto tell = [&](forms::Control* control, forms::DragState state) {
        if (control == nullptr) return;
        const forms::MouseEvent event = on(*control, at, {});
        form.handle([&] { form.dragOver(*control, event.X, event.Y, state); });
    };
    target_ = referenceTo(target);
    tell(former, forms::DragState::leave);
    tell(target, forms::DragState::enter);
}

void Mouse::drop(forms::Form& form) {
    const ControlReference target = std::exchange(target_, nullptr);
    form.handle([&] { form.dropAt(living<forms::Control>(target), 0, 0); });
}

void Mouse::cancelDrag(forms::Form& form) {
    if (auto* const target = living<forms::Control>(target_)) {
        form.handle([&] { form.dragOver(*target, 0, 0, forms::DragState::leave); });
    }
    target_.reset();
    pressed_.reset();
    form.handle([&] { form.dropAt(nullptr, 0, 0); });
}

}  // namespace huebrush::view
