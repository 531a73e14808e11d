// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "forms/ForwardingRuntime.h"
#include "ports/word/runtime/WindowsClipboard.h"

namespace huebrush::word {

/// The host's side of the forms runtime: faces and pictures come and go by the system's clipboard,
/// which is all that it shares with an add-in in another module.
class HostRuntime final : public forms::ForwardingRuntime {
 public:
    using ForwardingRuntime::ForwardingRuntime;

    forms::Clipboard& Clipboard() override { return clipboard_; }

 private:
    WindowsClipboard clipboard_;
};

}  // namespace huebrush::word
