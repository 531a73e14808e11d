// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/WriterDocument.h"

#include <com/sun/star/util/XCloseable.hpp>

#include "ports/libreoffice/document/DocumentModel.h"
#include "ports/libreoffice/document/WriterSelection.h"
#include "ports/libreoffice/document/WriterShapes.h"
#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

std::shared_ptr<host::Shapes> WriterDocument::Shapes() {
    return std::make_shared<WriterShapes>(document_);
}

std::shared_ptr<host::Selection> WriterDocument::Selection() {
    return std::make_shared<WriterSelection>(document_);
}

void WriterDocument::Close() {
    officeCalls([&] {
        const com::sun::star::uno::Reference<com::sun::star::util::XCloseable> closeable(
            document_->model(), com::sun::star::uno::UNO_QUERY_THROW);
        closeable->close(true);
    });
    document_->close();
}

bool WriterDocument::isSame(const host::Document& other) const {
    const auto* const document = dynamic_cast<const WriterDocument*>(&other);
    return document != nullptr && document->document_ == document_;
}

bool WriterDocument::isReadOnly() {
    return document_->isReadOnly();
}

std::unique_ptr<host::UndoGroup> WriterDocument::undoGroup(const std::string& title) {
    return document_->undoGroup(title);
}

void WriterDocument::markModified() {
    libreoffice::markModified(document_->model());
}

}  // namespace huebrush::libreoffice
