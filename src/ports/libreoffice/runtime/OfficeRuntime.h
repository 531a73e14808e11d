// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <string>

#include "forms/Runtime.h"
#include "ports/libreoffice/app/ActiveWindow.h"
#include "ports/libreoffice/runtime/EventPump.h"
#include "ports/libreoffice/runtime/OfficeComponent.h"
#include "ports/libreoffice/runtime/OfficeSettings.h"
#include "ports/libreoffice/runtime/OfficeSystem.h"
#include "ports/libreoffice/uno/Services.h"
#include "ports/libreoffice/window/FormWindows.h"

namespace huebrush::libreoffice {

/// The forms runtime inside the office.
class OfficeRuntime final : public forms::Runtime {
 public:
    /// `folder` is the component's. Forms and boxes appear over the active text window.
    OfficeRuntime(const ContextReference& context, const std::string& folder,
                  const ActiveWindow& window, std::shared_ptr<Snapshot> snapshot);

    forms::MsgBoxResult MsgBox(const std::string& text, std::int32_t style,
                               const std::string& title) override;
    void PopupMenu(forms::PopupMenu& menu, forms::Control& owner, double x, double y) override;
    std::string ChooseFile(const forms::FileDialog& dialog) override;
    void DoEvents() override;

    forms::Clipboard& Clipboard() override { return clipboard_; }
    forms::Settings& Settings() override { return settings_; }
    const forms::Component& Component() override { return component_; }
    forms::System& System() override { return system_; }

    void showForm(forms::Form& form, bool modal) override { windows_.show(form, modal); }
    void closeForm(forms::Form& form) override { windows_.close(form); }
    /// A form's window stays above its document's window; there is no higher level here.
    void setTopMost(forms::Form&, bool) override {}

    FormWindows& windows() { return windows_; }

    /// Events run neither inside the office's start nor inside its end; between the two they may.
    void setEventsMayRun(bool may) { eventsMayRun_ = may; }

 private:
    ContextReference context_;
    std::shared_ptr<Snapshot> snapshot_;
    FormWindows windows_;
    EventPump pump_;
    bool eventsMayRun_ = false;
    forms::PrivateClipboard clipboard_;
    OfficeSettings settings_;
    OfficeComponent component_;
    OfficeSystem system_;
};

}  // namespace huebrush::libreoffice
