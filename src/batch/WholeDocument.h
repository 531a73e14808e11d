// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <string>

#include "host/Application.h"

namespace huebrush::batch {

/// A host in which the one document is active and all its shapes are selected: the way to work on a
/// document as a whole without a window to select in. Everything else is the real host's.
class WholeDocument final : public host::Application {
 public:
    WholeDocument(host::Application& host, std::shared_ptr<host::Document> document)
        : host_(host), document_(std::move(document)) {}

    std::string Name() override { return host_.Name(); }
    std::string Version() override { return host_.Version(); }
    std::shared_ptr<host::Selection> Selection() override;
    std::shared_ptr<host::Document> ActiveDocument() override { return document_; }
    host::Documents& Documents() override { return host_.Documents(); }
    host::Dialogs& Dialogs() override { return host_.Dialogs(); }
    host::CommandBars& CommandBars() override { return host_.CommandBars(); }
    host::Template& NormalTemplate() override { return host_.NormalTemplate(); }
    /// There is no user to read it.
    void setStatusBar(const std::string& text) override { static_cast<void>(text); }
    void setCursor(host::WdCursorType cursor) override { static_cast<void>(cursor); }

 private:
    host::Application& host_;
    std::shared_ptr<host::Document> document_;
};

}  // namespace huebrush::batch
