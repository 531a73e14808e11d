// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>

#include "view/InputTarget.h"
#include "view/Key.h"

namespace huebrush::view {

/// The keys in a form's window that mean the same wherever the focus is: they go to an open menu,
/// move the focus, press the default and the cancel button, invoke controls by their access keys,
/// and close the form. Text boxes are notified of keys here, check boxes of released ones.
class Keyboard {
 public:
    explicit Keyboard(InputTarget& target) : target_(target) {}
    Keyboard(const Keyboard&) = delete;
    Keyboard& operator=(const Keyboard&) = delete;

    /// A key goes down. Whether it is used up: if not, it goes to the native control that has the
    /// focus.
    bool press(const Key& key);
    /// A key goes up. Whether it is used up.
    bool release(const Key& key);

 private:
    InputTarget& target_;
    /// The key that went down last, and the same if an open menu has had it: its release is the
    /// menu's, too.
    Key pressed_;
    std::optional<std::int16_t> menuKey_;
};

}  // namespace huebrush::view
