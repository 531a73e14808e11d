// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>

#include "addin/ConnectW2000.h"
#include "forms/Runtime.h"
#include "ports/libreoffice/entry/Application.h"
#include "ports/libreoffice/runtime/OfficeRuntime.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// The add-in in a running office, from the office's start to its end. For the main thread only.
class AddInSession {
 public:
    /// Connects the add-in. `folder` is the component's.
    AddInSession(const ContextReference& context, const std::string& folder);
    AddInSession(const AddInSession&) = delete;
    AddInSession& operator=(const AddInSession&) = delete;
    /// Disconnects it.
    ~AddInSession();

    /// Whether a handler runs, even if it only waits for the user. On any thread.
    bool isBusy() const { return application_.snapshot()->isInHandler(); }

    CommandStates& states() { return application_.CommandBars().states(); }
    /// The user has clicked a button of ours in a window. A click while the command of another
    /// still runs is lost: the classic host lets no event through to its buttons then.
    void click(const ActiveWindow::Frame& frame, const std::string& command);

 private:
    /// Every way from the office into the add-in: what is thrown is reported to the user, and
    /// nothing propagates into the office.
    void enter(const std::function<void()>& handler) noexcept;

    Application application_;
    OfficeRuntime runtime_;
    forms::RuntimeScope scope_;
    addin::ConnectW2000 addIn_;
    bool commandRuns_ = false;
};

}  // namespace huebrush::libreoffice
