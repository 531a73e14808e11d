#pragma once

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/util/XCloseListener.hpp>
#include <memory>

#include "host/Application.h"
#include "host/Document.h"
#include "ports/libreoffice/Snapshot.h"
#include "ports/libreoffice/uno/Services.h"

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
    std::shared_ptr<host::Document> documentOf(
        const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& model);

    /// A new document without a window; closed by its Close().
    std::shared_ptr<host::Document> addHidden() override;

    /// What reads are answered from while a handler runs. The entry points hold a HandlerScope on
    /// it, the event pump tells it when events have run.
    const std::shared_ptr<Snapshot>& snapshot() const { return snapshot_; }

 private:
    class Listener;

    ContextReference context_;
    std::shared_ptr<Snapshot> snapshot_;
    com::sun::star::uno::Reference<com::sun::star::util::XCloseListener> listener_;
    std::shared_ptr<OpenDocuments> open_;
};

}  // namespace huebrush::libreoffice
