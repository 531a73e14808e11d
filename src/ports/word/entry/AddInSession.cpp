// SPDX-License-Identifier: MPL-2.0

#include "ports/word/entry/AddInSession.h"

#include <utility>

#include "base/Error.h"
#include "error/mError.h"
#include "ports/word/com/ModuleUse.h"

namespace huebrush::word {

AddInSession::AddInSession(Pointer<IDispatch> application, const MakeRuntime& makeRuntime)
    : runtime_(makeRuntime([this](const std::function<void()>& handler) { enter(handler); })),
      application_(std::move(application),
                   [this](const std::function<void()>& handler) { enter(handler); }) {
    runtime_->UnhandledError.connect(&error::reportUnhandled);
}

AddInSession::~AddInSession() {
    // What the add-in still holds, it gives back through the runtime that it had.
    const forms::RuntimeScope scope(*runtime_);
    base::ignoring([this] { addIn_.OnDisconnection(); });
}

void AddInSession::connect() {
    enter([this] { addIn_.OnConnection(application_); });
}

void AddInSession::disconnect() {
    enter([this] { addIn_.OnDisconnection(); });
}

void AddInSession::enter(const std::function<void()>& handler) noexcept {
    const ModuleUse loaded;
    // Nothing while it is made or ends: then somebody else's call keeps it.
    const std::shared_ptr<AddInSession> alive = weak_from_this().lock();
    // Calls may be nested, also those of two sessions: the runtime is that of the innermost.
    const forms::RuntimeScope scope(*runtime_);
    base::ignoring([&] {
        try {
            handler();
        } catch (...) {
            runtime_->UnhandledError(base::currentError());
        }
    });
}

}  // namespace huebrush::word
