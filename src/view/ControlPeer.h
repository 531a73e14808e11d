// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>

#include "forms/Control.h"
#include "view/Geometry.h"

namespace huebrush::view {

class ControlPeer;
class NativeControl;

/// Who is notified of the changes of controls.
class ChangeListener {
 public:
    ChangeListener() = default;
    ChangeListener(const ChangeListener&) = delete;
    ChangeListener& operator=(const ChangeListener&) = delete;
    /// A property of a control has changed.
    virtual void touch(forms::PropertyId id) = 0;

 protected:
    ~ChangeListener() = default;
};

/// A reference to a control for code that may outlive it: both are null once the control has ended
/// or its form has left the screen.
struct ControlHandle {
    forms::Control* control = nullptr;
    ControlPeer* peer = nullptr;
};
using ControlReference = std::shared_ptr<const ControlHandle>;

/// Represents a control on the screen: passes its changes on, and owns the native control while
/// there is one.
class ControlPeer final : public forms::Peer {
 public:
    ControlPeer(forms::Control& control, std::weak_ptr<ChangeListener> listener);
    ~ControlPeer() override;

    /// The peer of a control that is on the screen; nothing for any other.
    static ControlPeer* of(const forms::Control* control);

    void changed(forms::PropertyId id) override;

    const ControlReference& reference() const { return reference_; }

    /// The native control, its place on its surface, and the pass of the view in which the control
    /// was last shown.
    std::unique_ptr<NativeControl> native;
    Rectangle place;
    unsigned shownInPass = 0;

 private:
    std::weak_ptr<ChangeListener> listener_;
    std::shared_ptr<ControlHandle> handle_;
    ControlReference reference_;
};

}  // namespace huebrush::view
