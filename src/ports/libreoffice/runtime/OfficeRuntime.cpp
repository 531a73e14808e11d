// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/runtime/OfficeRuntime.h"

#include <utility>

#include "base/Error.h"
#include "ports/libreoffice/runtime/FilePicker.h"
#include "ports/libreoffice/runtime/MessageBox.h"
#include "ports/libreoffice/uno/Snapshot.h"
#include "ports/libreoffice/window/FormWindow.h"

namespace huebrush::libreoffice {

OfficeRuntime::OfficeRuntime(const ContextReference& context, const std::string& folder,
                             const ActiveWindow& window, std::shared_ptr<Snapshot> snapshot)
    : context_(context),
      snapshot_(std::move(snapshot)),
      windows_(context, window, snapshot_),
      pump_(context, snapshot_, [this] { windows_.flush(); }),
      settings_(context),
      component_(context, folder) {}

forms::MsgBoxResult OfficeRuntime::MsgBox(const std::string& text, std::int32_t style,
                                          const std::string& title) {
    windows_.flush();
    const auto held = windows_.hold();
    const EventsRun running(snapshot_);
    return showMessageBox(context_, windows_.owner(), text, style, title);
}

std::string OfficeRuntime::ChooseFile(const forms::FileDialog& dialog) {
    windows_.flush();
    const auto held = windows_.hold();
    const EventsRun running(snapshot_);
    const FileDialogOwner owner(windows_.owner(), com::sun::star::uno::UNO_QUERY);
    return pickFile(context_, owner, dialog);
}

void OfficeRuntime::DoEvents() {
    if (eventsMayRun_) pump_.run();
}

void OfficeRuntime::PopupMenu(forms::PopupMenu& menu, forms::Control& owner, double x, double y) {
    const forms::Form& form = owner.form();
    const auto window = windows_.windowOf(form);
    if (window == nullptr) {
        throw base::Error(base::ErrorNumber::kInternal,
                          "Nabídka nemá okno, nad kterým by se otevřela.");
    }
    menu.Click();
    windows_.flush();
    forms::MenuItem* const item = [&] {
        const EventsRun running(snapshot_);
        return window->pickFrom(menu, owner, x, y);
    }();
    if (item != nullptr && !form.isUnloaded()) item->Click();
}

}  // namespace huebrush::libreoffice
