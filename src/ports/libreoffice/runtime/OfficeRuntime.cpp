#include "ports/libreoffice/runtime/OfficeRuntime.h"

#include <utility>

#include "base/Error.h"
#include "ports/libreoffice/Snapshot.h"
#include "ports/libreoffice/runtime/MessageBox.h"

namespace huebrush::libreoffice {

OfficeRuntime::OfficeRuntime(const ContextReference& context, const std::string& folder,
                             const ActiveWindow& window, std::shared_ptr<Snapshot> snapshot)
    : context_(context),
      window_(window),
      snapshot_(std::move(snapshot)),
      pump_(context, snapshot_),
      settings_(context),
      component_(context, folder) {}

forms::MsgBoxResult OfficeRuntime::MsgBox(const std::string& text, std::int32_t style,
                                          const std::string& title) {
    snapshot_->invalidate();
    const forms::MsgBoxResult result =
        showMessageBox(context_, window_.frame(), text, style, title);
    snapshot_->invalidate();
    return result;
}

void OfficeRuntime::DoEvents() {
    if (eventsMayRun_) pump_.run();
}

void OfficeRuntime::PopupMenu(forms::PopupMenu&, forms::Control&, double, double) {
    throw base::Error(base::ErrorNumber::kInternal,
                      "Nabídka nemá v kancelářském balíku okno, nad kterým by se otevřela.");
}

}  // namespace huebrush::libreoffice
