// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/XWindowPeer.hpp>
#include <memory>
#include <vector>

#include "forms/Form.h"
#include "ports/libreoffice/app/ActiveWindow.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

class FormWindow;
class Snapshot;

/// The windows of the forms that are on the screen. For the main thread only.
class FormWindows {
 public:
    using Owner = com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>;

    /// A form appears over the active one of the office's text windows.
    FormWindows(const ContextReference& context, const ActiveWindow& window,
                std::shared_ptr<Snapshot> snapshot);
    FormWindows(const FormWindows&) = delete;
    FormWindows& operator=(const FormWindows&) = delete;
    ~FormWindows();

    /// Shows a form, or brings it to the front when it is shown. Returns when a modal one has
    /// ended.
    void show(forms::Form& form, bool modal);
    /// Removes a form from the screen; does nothing when it has no window.
    void close(forms::Form& form);

    /// The window of the form shown last, or else the active text window: what the office's own
    /// dialogs, boxes and menus open above. Nothing when there is neither.
    Owner owner() const;

    /// While what it returns lives, a dialog of the office's own may be open above the windows.
    /// Those that are closed are only hidden, and destroyed with it: destroying a window under such
    /// a dialog crashes the office. What the user did in them before is queued: it could open a
    /// second dialog beside the first, and end what that one belongs to.
    std::shared_ptr<void> hold();

    /// Brings the screen up to date with the controls, now rather than with the next turn of the
    /// event loop.
    void flush();

    /// The window of a form; nothing when it is not shown.
    std::shared_ptr<FormWindow> windowOf(const forms::Form& form) const;

 private:
    struct Held {
        std::vector<std::shared_ptr<FormWindow>> closed;
        std::vector<std::shared_ptr<void>> paused;
    };

    Owner documentWindow() const;
    std::vector<std::shared_ptr<void>> pauseActions() const;

    ContextReference context_;
    const ActiveWindow& window_;
    std::shared_ptr<Snapshot> snapshot_;
    std::vector<std::shared_ptr<FormWindow>> shown_;
    std::weak_ptr<Held> held_;
};

}  // namespace huebrush::libreoffice
