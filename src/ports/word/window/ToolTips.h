// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <map>
#include <string>

#include "ports/word/window/Window.h"

namespace huebrush::word {

/// The tool tips of the windows inside a form's window.
class ToolTips {
 public:
    /// The tips are above all windows; they go with that one.
    explicit ToolTips(HWND owner);
    ToolTips(const ToolTips&) = delete;
    ToolTips& operator=(const ToolTips&) = delete;
    ~ToolTips();

    /// The tip of a window from now on; empty for none. One that shows already, of another text,
    /// disappears.
    void set(HWND window, const std::string& text);
    /// The window is about to be destroyed.
    void forget(HWND window) { set(window, {}); }
    /// Each window with a tip passes on what the mouse does there.
    void relay(const Message& message) const;

    /// The system's window that shows the tips.
    HWND handle() const { return tips_; }

 private:
    void relayPointer(HWND window) const;

    HWND tips_ = nullptr;
    std::map<HWND, std::wstring> texts_;
};

}  // namespace huebrush::word
