// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "forms/ForwardingRuntime.h"

namespace huebrush::batch {

/// A message box that the logic wanted to show.
struct Message {
    enum class Kind { information, warning, error };
    Kind kind = Kind::information;
    std::string text;
};

/// The forms runtime for work without a user at the screen. Boxes are kept instead of shown: Abort,
/// Retry and Ignore is answered with Abort, any other question is an error of whoever asks it.
/// No events are let through. Settings and component are those of the platform, the clipboard is
/// its own.
class BatchRuntime final : public forms::ForwardingRuntime {
 public:
    using ForwardingRuntime::ForwardingRuntime;

    forms::MsgBoxResult MsgBox(const std::string& text, std::int32_t style,
                               const std::string& title) override;
    void PopupMenu(forms::PopupMenu& menu, forms::Control& owner, double x, double y) override;
    std::string ChooseFile(const forms::FileDialog& dialog) override;
    void DoEvents() override;
    forms::Clipboard& Clipboard() override { return clipboard_; }
    void showForm(forms::Form& form, bool modal) override;
    void closeForm(forms::Form& form) override;
    void setTopMost(forms::Form& form, bool topMost) override;

    const std::vector<Message>& messages() const { return messages_; }

 private:
    forms::PrivateClipboard clipboard_;
    std::vector<Message> messages_;
};

}  // namespace huebrush::batch
