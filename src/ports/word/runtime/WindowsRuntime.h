// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>
#include <utility>

#include "forms/Runtime.h"
#include "ports/word/runtime/RegistrySettings.h"
#include "ports/word/runtime/WindowsClipboard.h"
#include "ports/word/runtime/WindowsComponent.h"
#include "ports/word/runtime/WindowsSystem.h"
#include "ports/word/window/FormWindows.h"

namespace huebrush::word {

/// The forms runtime on Windows, for one thread.
class WindowsRuntime final : public forms::Runtime {
 public:
    /// By itself it keeps nothing alive, and is the runtime in force while the user's actions run.
    WindowsRuntime();
    /// With an owner whose `enter` does that and keeps what else is needed.
    explicit WindowsRuntime(Enter enter) : windows_(std::move(enter)) {}

    /// Boxes and file dialogs stand above the form shown last, or else the active window of the
    /// thread, and disable all windows of the thread.
    forms::MsgBoxResult MsgBox(const std::string& text, std::int32_t style,
                               const std::string& title) override;
    std::string ChooseFile(const forms::FileDialog& dialog) override;
    base::Picture DrawIcon(const base::Picture& icon, const base::Picture& canvas) override;
    void DoEvents() override;

    void PopupMenu(forms::PopupMenu& menu, forms::Control& owner, double x, double y) override;
    void showForm(forms::Form& form, bool modal) override;
    void closeForm(forms::Form& form) override { windows_.close(form); }
    void setTopMost(forms::Form& form, bool topMost) override {
        windows_.setTopMost(form, topMost);
    }

    FormWindows& windows() { return windows_; }

    forms::Clipboard& Clipboard() override { return clipboard_; }
    forms::Settings& Settings() override { return settings_; }
    const forms::Component& Component() override { return component_; }
    forms::System& System() override { return system_; }

 private:
    FormWindows windows_;
    WindowsClipboard clipboard_;
    RegistrySettings settings_;
    WindowsComponent component_;
    WindowsSystem system_;
};

}  // namespace huebrush::word
