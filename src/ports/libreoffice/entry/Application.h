// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "host/Application.h"
#include "ports/libreoffice/app/ActiveWindow.h"
#include "ports/libreoffice/app/StatusBar.h"
#include "ports/libreoffice/bar/CommandBars.h"
#include "ports/libreoffice/document/Documents.h"
#include "ports/libreoffice/tools/HostTools.h"

namespace huebrush::libreoffice {

/// The office as the word processor that the logic knows: its text documents, the active one of
/// their windows, and the tool bars of those windows.
class Application final : public host::Application {
 public:
    Application(const ContextReference& context, const std::string& folder);

    std::string Name() override { return "Microsoft Word"; }
    std::string Version() override { return "9.0"; }
    std::shared_ptr<host::Selection> Selection() override;
    std::shared_ptr<host::Document> ActiveDocument() override;
    libreoffice::Documents& Documents() override { return documents_; }
    host::Dialogs& Dialogs() override { return tools_; }
    libreoffice::CommandBars& CommandBars() override { return commandBars_; }
    host::Template& NormalTemplate() override { return template_; }
    void setStatusBar(const std::string& text) override { statusBar_.setText(text); }
    void setCursor(host::WdCursorType cursor) override;

    /// Sets above which window the host's own tools appear, and which one hidden documents belong
    /// to.
    void setOwner(const libreoffice::Documents::Owner& owner) { documents_.setOwner(owner); }

    ActiveWindow& activeWindow() { return activeWindow_; }
    const std::shared_ptr<Snapshot>& snapshot() const { return documents_.snapshot(); }

 private:
    /// The bars are what the classic host keeps in its template.
    class BarTemplate : public host::Template {
     public:
        explicit BarTemplate(libreoffice::CommandBars& bars) : bars_(bars) {}
        void Save() override { bars_.save(); }

     private:
        libreoffice::CommandBars& bars_;
    };

    ContextReference context_;
    libreoffice::Documents documents_;
    ActiveWindow activeWindow_;
    StatusBar statusBar_;
    HostTools tools_;
    libreoffice::CommandBars commandBars_;
    BarTemplate template_;
    /// The window that shows the wait pointer.
    ActiveWindow::Frame waiting_;
};

}  // namespace huebrush::libreoffice
