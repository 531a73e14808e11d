// SPDX-License-Identifier: MPL-2.0

#include "forms/Control.h"

#include <algorithm>

#include "base/Error.h"
#include "forms/Form.h"

namespace huebrush::forms {

Control::Control(std::string name) : name_(std::move(name)) {}

Control::Control(Control& container, std::string name)
    : name_(std::move(name)), container_(&container) {
    container.children_.push_back(this);
    container.childrenChanged();
}

Control::~Control() {
    if (container_ != nullptr) container_->removeChild(*this);
}

void Control::removeChild(const Control& child) {
    // The newest is the likeliest to go: rows are unloaded from the end.
    const auto found = std::find(children_.rbegin(), children_.rend(), &child);
    if (found != children_.rend()) children_.erase(std::next(found).base());
    childrenChanged();
}

void Control::childrenChanged() const {
    if (peer_) peer_->changed(PropertyId::Children);
}

Form& Control::form() const {
    for (const Control* control = this; control != nullptr; control = control->container_) {
        if (Form* const form = const_cast<Control*>(control)->asForm()) return *form;
    }
    throw base::Error(base::ErrorNumber::kInternal, "Prvek neleží na žádném formuláři.");
}

bool Control::isShown() const {
    for (const Control* control = this; control->container_ != nullptr;
         control = control->container_) {
        if (!control->Visible) return false;
    }
    return true;
}

bool Control::isEnabledInAll() const {
    for (const Control* control = this; control != nullptr; control = control->container_) {
        if (!control->Enabled) return false;
    }
    return true;
}

bool Control::contains(const Control& other) const {
    for (const Control* control = &other; control != nullptr; control = control->container_) {
        if (control == this) return true;
    }
    return false;
}

Control* Control::firstFocusable() {
    if (!Visible || !Enabled) return nullptr;
    if (takesFocus()) return this;
    for (Control* const child : children_) {
        if (Control* const found = child->firstFocusable()) return found;
    }
    return nullptr;
}

void Control::SetFocus() {
    Control* const target = isUsable() ? firstFocusable() : nullptr;
    if (target == nullptr) {
        throw base::Error(base::ErrorNumber::kInvalidProcedureCall,
                          "Neplatné volání procedury: prvek nemůže převzít zaměření.");
    }
    form().moveFocus(target);
}

void Control::Drag() {
    form().beginDrag(*this);
}

void Control::Move(double left, double top, double width, double height) {
    Left = left;
    Top = top;
    Width = width;
    Height = height;
}

void Control::propertyChanged(PropertyId id) {
    if (id == PropertyId::Visible || id == PropertyId::Enabled) {
        const bool lost = (id == PropertyId::Visible && !Visible) || !Enabled;
        if (lost && container_ != nullptr) form().moveFocusOff(*this);
    }
    if (peer_) peer_->changed(id);
}

}  // namespace huebrush::forms
