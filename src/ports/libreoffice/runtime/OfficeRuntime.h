#pragma once

#include <memory>
#include <string>

#include "forms/Runtime.h"
#include "ports/libreoffice/app/ActiveWindow.h"
#include "ports/libreoffice/runtime/EventPump.h"
#include "ports/libreoffice/runtime/OfficeComponent.h"
#include "ports/libreoffice/runtime/OfficeSettings.h"
#include "ports/libreoffice/runtime/PrivateClipboard.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// The forms runtime inside the office. Forms have no windows here: showing one does nothing.
class OfficeRuntime final : public forms::Runtime {
 public:
    /// `folder` is the component's. The window is asked over which one boxes are to appear.
    OfficeRuntime(const ContextReference& context, const std::string& folder,
                  const ActiveWindow& window, std::shared_ptr<Snapshot> snapshot);

    forms::MsgBoxResult MsgBox(const std::string& text, std::int32_t style,
                               const std::string& title) override;
    void PopupMenu(forms::PopupMenu& menu, forms::Control& owner, double x, double y) override;
    void DoEvents() override;

    forms::Clipboard& Clipboard() override { return clipboard_; }
    forms::Settings& Settings() override { return settings_; }
    const forms::Component& Component() override { return component_; }

    void showForm(forms::Form&, bool) override {}
    void closeForm(forms::Form&) override {}
    void setTopMost(forms::Form&, bool) override {}

    /// Events run neither inside the office's start nor inside its end; between the two they may.
    void setEventsMayRun(bool may) { eventsMayRun_ = may; }

 private:
    ContextReference context_;
    const ActiveWindow& window_;
    std::shared_ptr<Snapshot> snapshot_;
    EventPump pump_;
    bool eventsMayRun_ = false;
    PrivateClipboard clipboard_;
    OfficeSettings settings_;
    OfficeComponent component_;
};

}  // namespace huebrush::libreoffice
