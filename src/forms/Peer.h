// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "forms/Property.h"

namespace huebrush::forms {

/// Represents a control on a platform's screen. It is notified of every change of the
/// control's properties and updates the screen when the program returns to its event loop; it
/// passes the user's input on as calls on the control. A control without a peer works just as well.
class Peer {
 public:
    Peer() = default;
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;
    virtual ~Peer() = default;

    virtual void changed(PropertyId id) = 0;
};

}  // namespace huebrush::forms
