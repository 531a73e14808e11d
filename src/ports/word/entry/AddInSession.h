// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <memory>

#include "addin/ConnectW2000.h"
#include "forms/Runtime.h"
#include "ports/word/com/Pointer.h"
#include "ports/word/host/Application.h"
#include "ports/word/window/Window.h"

namespace huebrush::word {

/// Makes the runtime of a session; whatever comes to its windows enters the session by that.
using MakeRuntime = std::function<std::unique_ptr<forms::Runtime>(Enter)>;

/// The add-in in a running Word. Each call from Word and each message to a window of ours keeps it
/// until the outermost one has returned: Word may disconnect while a box of ours is open, or while
/// events run.
class AddInSession : public std::enable_shared_from_this<AddInSession> {
 public:
    /// Made by std::make_shared. `application` is Word's own.
    AddInSession(Pointer<IDispatch> application, const MakeRuntime& makeRuntime);
    AddInSession(const AddInSession&) = delete;
    AddInSession& operator=(const AddInSession&) = delete;
    ~AddInSession();

    void connect();
    void disconnect();

 private:
    /// Every way from Word, or from the system, into the add-in: what is thrown is reported to the
    /// user, and nothing gets into Word.
    void enter(const std::function<void()>& handler) noexcept;

    std::unique_ptr<forms::Runtime> runtime_;
    Application application_;
    addin::ConnectW2000 addIn_;
};

}  // namespace huebrush::word
