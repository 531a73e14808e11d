// SPDX-License-Identifier: MPL-2.0

#include "ports/word/host/Application.h"

#include <cstdint>
#include <utility>

namespace huebrush::word {

namespace {

class WordDialog final : public host::Dialog {
 public:
    WordDialog(Object dialog, WordDocuments& documents)
        : dialog_(std::move(dialog)), documents_(documents) {}

    std::int32_t Show() override {
        std::int32_t result = host::DialogResult::kCancelled;
        documents_.runOnHidden([&] { result = dialog_.get("Show").toInteger(); });
        return result;
    }

 private:
    Object dialog_;
    WordDocuments& documents_;
};

}  // namespace

Application::Application(Pointer<IDispatch> application, const Enter& enter)
    : application_(std::move(application), "Application"),
      documents_(application_),
      bars_(application_, documents_, enter) {}

std::shared_ptr<host::Selection> Application::Selection() {
    return std::make_shared<WordSelection>(application_.object("Selection", "Selection"));
}

std::shared_ptr<host::Document> Application::ActiveDocument() {
    return std::make_shared<WordDocument>(application_.object("Document", "ActiveDocument"));
}

void Application::setCursor(host::WdCursorType cursor) {
    application_.object("System", "System").put("Cursor", static_cast<std::int32_t>(cursor));
}

std::shared_ptr<host::Dialog> Application::Item(std::int32_t id) {
    return std::make_shared<WordDialog>(
        application_.object("Dialogs", "Dialogs").object("Dialog", "Item", {id}), documents_);
}

void Application::Save() {
    application_.object("Template", "NormalTemplate").call("Save");
}

}  // namespace huebrush::word
