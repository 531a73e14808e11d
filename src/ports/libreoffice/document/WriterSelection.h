// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>

#include "host/Document.h"
#include "ports/libreoffice/document/OpenDocument.h"

namespace huebrush::libreoffice {

/// The selection of a document's window; of a document without one, what was last selected in it.
class WriterSelection final : public host::Selection {
 public:
    explicit WriterSelection(std::shared_ptr<OpenDocument> document)
        : document_(std::move(document)) {}

    std::shared_ptr<host::ShapeRange> ShapeRange() override;
    std::shared_ptr<host::Document> Document() override;
    void Copy() override;

 private:
    std::shared_ptr<OpenDocument> document_;
};

}  // namespace huebrush::libreoffice
