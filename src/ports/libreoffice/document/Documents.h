// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/XWindowPeer.hpp>
#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/util/XCloseListener.hpp>
#include <functional>
#include <memory>
#include <utility>

#include "host/Application.h"
#include "host/Document.h"
#include "ports/libreoffice/document/DocumentModel.h"
#include "ports/libreoffice/uno/Services.h"
#include "ports/libreoffice/uno/Snapshot.h"

namespace huebrush::libreoffice {

struct OpenDocuments;

/// The text documents of the office as the object model sees them. The component makes one for its
/// lifetime; everything in here is for the main thread only.
class Documents final : public host::Documents {
 public:
    explicit Documents(const ContextReference& context);
    ~Documents() override;

    /// The document of an open model: what it knows lasts as long as the document is open, so that
    /// the names it has handed out stay good. An error when the model is gone or is no text
    /// document.
    std::shared_ptr<host::Document> documentOf(const ModelReference& model);

    /// A new document that nobody sees; closed by its Close(). Inside the owner's window where
    /// there is one, so that the office's dialogs for the document are modal to that window.
    std::shared_ptr<host::Document> addHidden() override;
    /// The hidden document made last that is still open; an error when there is none. The second
    /// brings its selection to the office, for one of the office's dialogs.
    std::shared_ptr<host::Document> newestHidden() const;
    ModelReference newestHiddenForDialog() const;

    /// A window, and what keeps the office's own dialogs from losing it while it lives.
    struct OwnerWindow {
        com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer> peer;
        std::shared_ptr<void> hold;
    };
    using Owner = std::function<OwnerWindow()>;
    /// Sets which window the hidden documents made from now on belong to; no peer for none.
    void setOwner(Owner owner) { owner_ = std::move(owner); }
    OwnerWindow owner() const { return owner_(); }

    /// What reads are answered from while a handler runs. The entry points hold a HandlerScope on
    /// it, the event pump invalidates it when events have run.
    const std::shared_ptr<Snapshot>& snapshot() const { return snapshot_; }

 private:
    class Listener;

    ContextReference context_;
    std::shared_ptr<Snapshot> snapshot_;
    com::sun::star::uno::Reference<com::sun::star::util::XCloseListener> listener_;
    std::shared_ptr<OpenDocuments> open_;
    Owner owner_ = [] { return OwnerWindow(); };
};

}  // namespace huebrush::libreoffice
