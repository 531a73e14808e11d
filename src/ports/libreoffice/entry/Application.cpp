// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/entry/Application.h"

#include "ports/libreoffice/app/Pointer.h"
#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

Application::Application(const ContextReference& context, const std::string& folder)
    : context_(context),
      documents_(context),
      activeWindow_(context),
      statusBar_(context, activeWindow_, documents_.snapshot()),
      tools_(context, documents_),
      commandBars_(context, IconFiles(folder)),
      template_(commandBars_) {
    commandBars_.setBuiltIn([this](std::int32_t id) { return tools_.control(id); });
}

std::shared_ptr<host::Selection> Application::Selection() {
    return ActiveDocument()->Selection();
}

std::shared_ptr<host::Document> Application::ActiveDocument() {
    return documents_.documentOf(activeWindow_.model());
}

void Application::setCursor(host::WdCursorType cursor) {
    const ActiveWindow::Frame frame = activeWindow_.frame();
    if (waiting_.is() && waiting_ != frame) {
        setPointer(context_, waiting_, host::WdCursorType::wdCursorNormal);
    }
    if (frame.is()) setPointer(context_, frame, cursor);
    waiting_ = cursor == host::WdCursorType::wdCursorWait ? frame : ActiveWindow::Frame();
}

}  // namespace huebrush::libreoffice
