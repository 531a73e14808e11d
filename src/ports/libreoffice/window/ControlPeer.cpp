#include "ports/libreoffice/window/ControlPeer.h"

#include <utility>

#include "ports/libreoffice/window/FormWindow.h"
#include "ports/libreoffice/window/native/Native.h"

namespace huebrush::libreoffice {

ControlPeer::ControlPeer(forms::Control& control, std::weak_ptr<FormWindow> window)
    : window_(std::move(window)),
      handle_(std::make_shared<ControlHandle>(ControlHandle{&control, this})),
      reference_(handle_) {}

ControlPeer::~ControlPeer() {
    *handle_ = {};
    if (const auto window = window_.lock()) window->touch(forms::PropertyId::Children);
}

ControlPeer* ControlPeer::of(const forms::Control* control) {
    return control == nullptr ? nullptr : dynamic_cast<ControlPeer*>(control->peer());
}

void ControlPeer::changed(forms::PropertyId id) {
    if (const auto window = window_.lock()) window->touch(id);
}

}  // namespace huebrush::libreoffice
