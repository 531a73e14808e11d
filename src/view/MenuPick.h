// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <optional>

#include "forms/MenuChoice.h"
#include "view/Key.h"

namespace huebrush::view {

/// What keys and the mouse do in an open menu, until a line is picked or the menu is closed
/// without. Lines are counted from 0; an empty value means that the mouse is on none.
class MenuPick {
 public:
    using Line = std::optional<std::size_t>;

    explicit MenuPick(const forms::PopupMenu& menu) : choice_(menu) {}

    const forms::MenuChoice& choice() const { return choice_; }
    bool isOpen() const { return open_; }
    /// The line that was picked, if any.
    Line picked() const { return picked_; }
    void close() { open_ = false; }

    void press(const Key& key);
    /// The mouse is over a line. Whether that has changed which one is highlighted.
    bool pointAt(Line line);
    /// A button goes down: beside all lines it closes the menu.
    void pressAt(Line line);
    /// A button comes up. On a line that cannot be picked the menu stays open.
    void releaseAt(Line line);

 private:
    void pickHighlighted();
    void call(char letter);

    forms::MenuChoice choice_;
    bool open_ = true;
    Line picked_;
};

}  // namespace huebrush::view
