// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/Event.h"

namespace huebrush::forms {

/// A line of a pop-up menu; the caption "-" makes it a separator.
class MenuItem {
 public:
    inline MenuItem(class PopupMenu& menu, std::string name, std::string caption);
    MenuItem(const MenuItem&) = delete;
    MenuItem& operator=(const MenuItem&) = delete;

    std::string Caption;
    bool Enabled = true;
    bool Checked = false;
    base::Event<> Click;

    const std::string& name() const { return name_; }
    bool isSeparator() const { return Caption == "-"; }

 private:
    std::string name_;
};

/// A menu that is shown as a pop-up only (Runtime::PopupMenu). Its items are members of whoever
/// owns it and live as long as it does.
class PopupMenu {
 public:
    explicit PopupMenu(std::string caption) : Caption(std::move(caption)) {}
    PopupMenu(const PopupMenu&) = delete;
    PopupMenu& operator=(const PopupMenu&) = delete;

    std::string Caption;
    /// Raised before the menu opens: ticks and enabled states are set here.
    base::Event<> Click;

    const std::vector<MenuItem*>& items() const { return items_; }

 private:
    friend class MenuItem;
    std::vector<MenuItem*> items_;
};

MenuItem::MenuItem(PopupMenu& menu, std::string name, std::string caption)
    : Caption(std::move(caption)), name_(std::move(name)) {
    menu.items_.push_back(this);
}

}  // namespace huebrush::forms
