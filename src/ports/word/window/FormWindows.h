// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <vector>

#include "forms/Form.h"
#include "ports/word/window/DisabledWindows.h"
#include "ports/word/window/KeyHook.h"
#include "ports/word/window/Window.h"

namespace huebrush::word {

class FormWindow;

/// The windows of the forms that are on the screen, for one thread.
class FormWindows {
 public:
    /// A form appears over the host's active window.
    explicit FormWindows(Enter enter);
    FormWindows(const FormWindows&) = delete;
    FormWindows& operator=(const FormWindows&) = delete;
    ~FormWindows();

    /// Shows a form, or brings it to the front when it is shown. Returns when a modal one has
    /// ended.
    void show(forms::Form& form, bool modal);
    /// Removes a form from the screen; does nothing when it has no window.
    void close(forms::Form& form);
    void setTopMost(forms::Form& form, bool topMost);

    /// The window of the form shown last, or else the host's active one: what boxes open above.
    /// Null when there is neither.
    HWND owner() const;

    /// While what it returns lives, a box of the system's may be open above the windows, and takes
    /// all input. Those that are closed are only hidden, and destroyed with it: the box would go
    /// with the window below it. What the user did in them before is queued.
    std::shared_ptr<void> hold();

    /// Brings the screen up to date with the controls, now rather than with the next turn of the
    /// event loop.
    void flush();

    const Enter& enter() const { return enter_; }

    /// The window of a form; nothing when it is not shown.
    std::shared_ptr<FormWindow> windowOf(const forms::Form& form) const;

 private:
    struct Held;

    std::vector<std::shared_ptr<void>> pauseActions() const;

    Enter enter_;
    std::vector<std::shared_ptr<FormWindow>> shown_;
    /// While any is shown.
    std::optional<KeyHook> hook_;
};

}  // namespace huebrush::word
