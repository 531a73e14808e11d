// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <iosfwd>

#include "forms/Runtime.h"

namespace huebrush::cli {

/// The forms runtime of a program in a terminal: message boxes are lines on the error output, and
/// Abort, Retry and Ignore is a question that the next line of input answers. Where nobody can be
/// asked, and at the end of the input, the answer is Abort. Everything else
/// is an internal error.
class ConsoleRuntime final : public forms::Runtime {
 public:
    /// `interactive`: whether a user reads `out` and answers on `in`.
    ConsoleRuntime(std::istream& in, std::ostream& out, bool interactive)
        : in_(in), out_(out), interactive_(interactive) {}

    forms::MsgBoxResult MsgBox(const std::string& text, std::int32_t style,
                               const std::string& title) override;
    void PopupMenu(forms::PopupMenu& menu, forms::Control& owner, double x, double y) override;
    std::string ChooseFile(const forms::FileDialog& dialog) override;
    void DoEvents() override {}
    forms::Clipboard& Clipboard() override;
    forms::Settings& Settings() override;
    const forms::Component& Component() override;
    forms::System& System() override;
    void showForm(forms::Form& form, bool modal) override;
    void closeForm(forms::Form& form) override;
    void setTopMost(forms::Form& form, bool topMost) override;

 private:
    forms::MsgBoxResult ask();

    std::istream& in_;
    std::ostream& out_;
    bool interactive_;
};

}  // namespace huebrush::cli
