// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/Documents.h"

#include <algorithm>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/util/XCloseBroadcaster.hpp>
#include <com/sun/star/util/XCloseListener.hpp>
#include <rtl/ref.hxx>
#include <utility>
#include <vector>

#include "ports/libreoffice/document/EmbeddedDocument.h"
#include "ports/libreoffice/document/OpenDocument.h"
#include "ports/libreoffice/document/WindowSelection.h"
#include "ports/libreoffice/document/WriterDocument.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Properties.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

ModelReference openWithoutWindow(const ContextReference& context) {
    return officeCalls([&] {
        const auto loader =
            createService<css::frame::XComponentLoader>(context, "com.sun.star.frame.Desktop");
        return ModelReference(
            loader->loadComponentFromURL("private:factory/swriter", "_blank", 0,
                                         properties({property("Hidden", css::uno::Any(true))})),
            UNO_QUERY);
    });
}

}  // namespace

/// The documents that were asked for and are still open.
struct OpenDocuments {
    std::vector<std::shared_ptr<OpenDocument>> list;

    std::shared_ptr<OpenDocument> find(const ModelReference& model) const {
        for (const std::shared_ptr<OpenDocument>& document : list) {
            if (document->model() == model) return document;
        }
        return nullptr;
    }

    std::shared_ptr<OpenDocument> newestHidden() const {
        const auto found = std::find_if(list.rbegin(), list.rend(), [](const auto& document) {
            return isHidden(document->model());
        });
        if (found == list.rend()) {
            throw base::Error(HostErrorNumber::kNoDocument, "Není otevřen žádný pomocný dokument.");
        }
        return *found;
    }

    /// Holding the office's objects makes closing a big document very slow, so they are released as
    /// soon as its closing is known.
    void closed(const Reference<css::uno::XInterface>& model) {
        const auto found = std::find_if(list.begin(), list.end(), [&](const auto& document) {
            return document->model() == model;
        });
        if (found == list.end()) return;
        const std::shared_ptr<OpenDocument> document = *found;
        list.erase(found);
        document->close();
    }

    void endGeneration() {
        for (const auto& document : std::vector(list)) document->endGeneration();
    }
};

/// Is notified that a document is closed.
class Documents::Listener final : public WeakImplHelper<css::util::XCloseListener> {
 public:
    explicit Listener(std::weak_ptr<OpenDocuments> open) : open_(std::move(open)) {}

    void SAL_CALL queryClosing(const css::lang::EventObject&, sal_Bool) override {}
    void SAL_CALL notifyClosing(const css::lang::EventObject& event) override { forget(event); }
    void SAL_CALL disposing(const css::lang::EventObject& event) override { forget(event); }

 private:
    void forget(const css::lang::EventObject& event) {
        if (const auto open = open_.lock()) open->closed(event.Source);
    }

    std::weak_ptr<OpenDocuments> open_;
};

Documents::Documents(const ContextReference& context)
    : context_(context),
      snapshot_(std::make_shared<Snapshot>()),
      open_(std::make_shared<OpenDocuments>()) {
    listener_ = new Listener(open_);
    snapshot_->connectBeforeEnd([open = open_] { open->endGeneration(); });
}

Documents::~Documents() {
    for (const auto& document : std::exchange(open_->list, {})) {
        ignoringOffice([&] {
            const Reference<css::util::XCloseBroadcaster> broadcaster(document->model(), UNO_QUERY);
            if (broadcaster.is()) broadcaster->removeCloseListener(listener_);
        });
        document->close();
    }
}

std::shared_ptr<host::Document> Documents::documentOf(const ModelReference& model) {
    const Reference<css::lang::XServiceInfo> info(model, UNO_QUERY);
    if (!info.is() || !info->supportsService("com.sun.star.text.TextDocument")) {
        throw base::Error(HostErrorNumber::kNoDocument, "Není otevřen žádný textový dokument.");
    }
    std::shared_ptr<OpenDocument> document = open_->find(model);
    if (!document) {
        document = std::make_shared<OpenDocument>(context_, model, snapshot_);
        const Reference<css::util::XCloseBroadcaster> broadcaster(model, UNO_QUERY);
        if (broadcaster.is()) broadcaster->addCloseListener(listener_);
        open_->list.push_back(document);
    }
    return std::make_shared<WriterDocument>(std::move(document));
}

std::shared_ptr<host::Document> Documents::addHidden() {
    const auto owner = owner_().peer;
    return documentOf(owner.is() ? openInside(context_, owner) : openWithoutWindow(context_));
}

std::shared_ptr<host::Document> Documents::newestHidden() const {
    return std::make_shared<WriterDocument>(open_->newestHidden());
}

ModelReference Documents::newestHiddenForDialog() const {
    const std::shared_ptr<OpenDocument> document = open_->newestHidden();
    document->showSelection();
    return document->model();
}

}  // namespace huebrush::libreoffice
