// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <string>

#include "host/Application.h"
#include "ports/word/com/Object.h"
#include "ports/word/host/CommandBars.h"
#include "ports/word/host/Documents.h"

namespace huebrush::word {

/// Word, called by the names of its object model. Nothing that it says is kept: each read goes to
/// Word. Its errors are base::Error with its own numbers and texts.
class Application final : public host::Application, private host::Dialogs, private host::Template {
 public:
    /// `enter` runs what a click on one of our buttons leads to.
    Application(Pointer<IDispatch> application, const Enter& enter);

    std::string Name() override { return application_.get("Name").toText(); }
    std::string Version() override { return application_.get("Version").toText(); }
    std::shared_ptr<host::Selection> Selection() override;
    std::shared_ptr<host::Document> ActiveDocument() override;
    host::Documents& Documents() override { return documents_; }
    host::Dialogs& Dialogs() override { return *this; }
    host::CommandBars& CommandBars() override { return bars_; }
    host::Template& NormalTemplate() override { return *this; }
    void setStatusBar(const std::string& text) override { application_.put("StatusBar", text); }
    void setCursor(host::WdCursorType cursor) override;

 private:
    std::shared_ptr<host::Dialog> Item(std::int32_t id) override;
    void Save() override;

    Object application_;
    WordDocuments documents_;
    WordBars bars_;
};

}  // namespace huebrush::word
