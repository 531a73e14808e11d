// SPDX-License-Identifier: MPL-2.0

#include "forms/Form.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "base/Error.h"
#include "base/NonNegative.h"
#include "forms/Controls.h"
#include "forms/Runtime.h"

namespace huebrush::forms {

namespace {

/// The control and the user controls around it that have the focus along with it, innermost first.
std::vector<Control*> focusChain(Control* control) {
    std::vector<Control*> chain;
    for (Control* at = control; at != nullptr; at = at->container()) {
        if (at == control || at->sharesFocusOfParts()) chain.push_back(at);
    }
    return chain;
}

bool isIn(const std::vector<Control*>& chain, const Control* control) {
    return std::find(chain.begin(), chain.end(), control) != chain.end();
}

/// The form's button that has a role; nothing where none has.
CommandButton* buttonWith(const Property<bool> CommandButton::*role, const Control& from) {
    for (Control* const child : from.children()) {
        auto* const button = dynamic_cast<CommandButton*>(child);
        if (button != nullptr && (button->*role).get()) return button;
        if (CommandButton* const inside = buttonWith(role, *child)) return inside;
    }
    return nullptr;
}

/// Passes on what a handler has thrown. Where reporting it fails too, there is nobody left to
/// report to. REQUIRES: called inside a catch block.
void reportUnhandled() noexcept {
    base::ignoring([] { Runtime::current().UnhandledError(base::currentError()); });
}

}  // namespace

double Form::ScaleWidth() const {
    return base::NonNegative(Width - frameWidth_);
}
double Form::ScaleHeight() const {
    return base::NonNegative(Height - frameHeight_);
}

void Form::setFrameSize(double width, double height) {
    frameWidth_ = width;
    frameHeight_ = height;
}

void Form::Show(bool modal) {
    if (!unloaded_) Runtime::current().showForm(*this, modal);
}

void Form::Unload() {
    if (unloaded_) return;
    const std::shared_ptr<Form> self = shared_from_this();
    unloaded_ = true;
    focused_ = nullptr;
    dragged_ = nullptr;
    unloadElements();
    // Whatever becomes of its window, the form is gone, and whoever holds it releases it.
    std::exception_ptr failed;
    try {
        Runtime::current().closeForm(*this);
    } catch (...) {
        failed = std::current_exception();
    }
    Unloaded();
    if (handlersRunning_ == 0) kept_.clear();
    if (failed) std::rethrow_exception(failed);
}

void Form::moveFocus(Control* target) {
    if (unloaded_ || target == focused_) return;
    Control* const previous = std::exchange(focused_, target);
    if (peer() != nullptr) peer()->changed(PropertyId::Focus);
    if (previous != nullptr) previous->focusLeft();
    const std::vector<Control*> left = focusChain(previous);
    std::vector<Control*> entered = focusChain(target);
    for (Control* const control : left) {
        if (!isIn(entered, control)) control->LostFocus();
    }
    std::reverse(entered.begin(), entered.end());
    for (Control* const control : entered) {
        // A handler called above may have moved the focus on.
        if (focused_ == target && !isIn(left, control)) control->GotFocus();
    }
}

void Form::collectTabOrder(Control& from, std::vector<Control*>& order) const {
    for (Control* const child : from.children()) {
        if (child->takesFocus()) order.push_back(child);
        collectTabOrder(*child, order);
    }
}

void Form::focusNext(bool backwards) {
    std::vector<Control*> order;
    collectTabOrder(*this, order);
    if (backwards) std::reverse(order.begin(), order.end());
    auto start = std::find(order.begin(), order.end(), focused_);
    if (start != order.end()) ++start;
    std::rotate(order.begin(), start, order.end());
    const auto next = std::find_if(order.begin(), order.end(),
                                   [](const Control* control) { return control->isUsable(); });
    moveFocus(next == order.end() ? nullptr : *next);
}

void Form::pressReturn() {
    auto* button = dynamic_cast<CommandButton*>(focused_);
    if (button == nullptr) button = buttonWith(&CommandButton::Default, *this);
    if (button != nullptr) button->press();
}

void Form::pressEscape() {
    if (CommandButton* const button = buttonWith(&CommandButton::Cancel, *this)) {
        button->press();
        return;
    }
    handle([this] {
        if (endsByEscape()) Unload();
    });
}

void Form::moveFocusOff(const Control& control) {
    if (focused_ != nullptr && control.contains(*focused_)) focusNext();
}

void Form::dragOver(Control& target, float x, float y, DragState state) {
    if (dragged_ != nullptr) target.DragOver(*dragged_, x, y, state);
}

void Form::dropAt(Control* target, float x, float y) {
    Control* const source = std::exchange(dragged_, nullptr);
    if (source != nullptr && target != nullptr) target->DragDrop(*source, x, y);
}

void Form::handle(const std::function<void()>& handlers) noexcept {
    const std::shared_ptr<Form> self = weak_from_this().lock();
    if (!self) return;  // Input that arrives while the form is ending.
    ++handlersRunning_;
    try {
        handlers();
    } catch (...) {
        reportUnhandled();
    }
    if (--handlersRunning_ == 0) kept_.clear();
}

void Form::keepWhileHandling(std::shared_ptr<Control> element) {
    if (dragged_ != nullptr && element->contains(*dragged_)) dragged_ = nullptr;
    if (handlersRunning_ > 0) kept_.push_back(std::move(element));
}

void Form::propertyChanged(PropertyId id) {
    Control::propertyChanged(id);
    if (id == PropertyId::TopMost) Runtime::current().setTopMost(*this, TopMost);
    if ((id == PropertyId::Width || id == PropertyId::Height) && !unloaded_) Resize();
}

}  // namespace huebrush::forms
