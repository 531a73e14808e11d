// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "forms/PopupMenu.h"
#include "view/Key.h"

namespace huebrush::view {

/// The window of an open menu, as a toolkit shows it.
class NativeMenu {
 public:
    NativeMenu() = default;
    NativeMenu(const NativeMenu&) = delete;
    NativeMenu& operator=(const NativeMenu&) = delete;
    virtual ~NativeMenu() = default;

    /// A key goes down in the window below, which keeps the keyboard.
    virtual void press(const Key& key) = 0;
    /// Closes it without a pick, and removes the window.
    virtual void end() = 0;
};

/// The pop-up menu of a form's window, while one is open.
class Menu {
 public:
    Menu() = default;
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;

    bool isOpen() const { return open_ != nullptr; }
    /// Whether a menu may open: none may while one is open, nor may the one that the press of the
    /// same click has just closed.
    bool mayOpen(const forms::PopupMenu& menu);
    /// Closes it without a pick. Harmless when none is open.
    void close();
    /// A key goes down in the form's window. Whether it went to the menu.
    bool press(const Key& key);
    /// A button of the mouse goes down beside the menu, which closes it.
    void pressBeside();
    /// The open menu was closed by a press of the mouse that will be reported only after it: the
    /// next pressBeside() is that press.
    void closedByPressToCome() { pressToCome_ = menu_; }

    /// While it lives, a menu is open.
    class Opened {
     public:
        Opened(Menu& owner, NativeMenu& window, const forms::PopupMenu& menu);
        Opened(const Opened&) = delete;
        Opened& operator=(const Opened&) = delete;
        ~Opened();

     private:
        Menu& owner_;
    };

 private:
    NativeMenu* open_ = nullptr;
    const forms::PopupMenu* menu_ = nullptr;
    /// The menu closed by a press of the mouse whose release is still to come: what opened it must
    /// not open it again with the same click.
    const forms::PopupMenu* closedByPress_ = nullptr;
    const forms::PopupMenu* pressToCome_ = nullptr;
};

}  // namespace huebrush::view
