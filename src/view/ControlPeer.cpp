#include "view/ControlPeer.h"

#include <utility>

#include "view/FormView.h"
#include "view/Native.h"

namespace huebrush::view {

ControlPeer::ControlPeer(forms::Control& control, std::weak_ptr<FormView> view)
    : view_(std::move(view)),
      handle_(std::make_shared<ControlHandle>(ControlHandle{&control, this})),
      reference_(handle_) {}

ControlPeer::~ControlPeer() {
    *handle_ = {};
    if (const auto view = view_.lock()) view->touch(forms::PropertyId::Children);
}

ControlPeer* ControlPeer::of(const forms::Control* control) {
    return control == nullptr ? nullptr : dynamic_cast<ControlPeer*>(control->peer());
}

void ControlPeer::changed(forms::PropertyId id) {
    if (const auto view = view_.lock()) view->touch(id);
}

}  // namespace huebrush::view
