// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/entry/AddInSession.h"

#include "error/mError.h"
#include "palette/OwnDataFile.h"
#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

AddInSession::AddInSession(const ContextReference& context, const std::string& folder)
    : application_(context, folder),
      runtime_(context, folder, application_.activeWindow(), application_.snapshot()),
      scope_(runtime_) {
    application_.setOwner([this] {
        FormWindows& windows = runtime_.windows();
        return Documents::OwnerWindow{windows.owner(), windows.hold()};
    });
    runtime_.UnhandledError.connect(&error::reportUnhandled);
    enter([&] { addIn_.OnConnection(application_); });
    // A user whose first palettes cannot be made has none to begin with.
    error::ignoring([] { palette::makeOwnDataFile(); });
    runtime_.setEventsMayRun(true);
}

AddInSession::~AddInSession() {
    runtime_.setEventsMayRun(false);
    enter([&] { addIn_.OnDisconnection(); });
    enter([&] { application_.CommandBars().removeLeftBehind(); });
}

void AddInSession::click(const ActiveWindow::Frame& frame, const std::string& command) {
    if (commandRuns_) return;
    application_.activeWindow().activate(frame);
    commandRuns_ = true;
    enter([&] { application_.CommandBars().click(command); });
    commandRuns_ = false;
}

void AddInSession::enter(const std::function<void()>& handler) noexcept {
    const HandlerScope scope(application_.snapshot());
    error::ignoring([&] {
        try {
            handler();
        } catch (...) {
            runtime_.UnhandledError(currentFailure());
        }
    });
}

}  // namespace huebrush::libreoffice
