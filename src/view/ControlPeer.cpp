// SPDX-License-Identifier: MPL-2.0

#include "view/ControlPeer.h"

#include <utility>

#include "view/Native.h"

namespace huebrush::view {

ControlPeer::ControlPeer(forms::Control& control, std::weak_ptr<ChangeListener> listener)
    : listener_(std::move(listener)),
      handle_(std::make_shared<ControlHandle>(ControlHandle{&control, this})),
      reference_(handle_) {}

ControlPeer::~ControlPeer() {
    *handle_ = {};
    if (const auto listener = listener_.lock()) listener->touch(forms::PropertyId::Children);
}

ControlPeer* ControlPeer::of(const forms::Control* control) {
    return control == nullptr ? nullptr : dynamic_cast<ControlPeer*>(control->peer());
}

void ControlPeer::changed(forms::PropertyId id) {
    if (const auto listener = listener_.lock()) listener->touch(id);
}

}  // namespace huebrush::view
