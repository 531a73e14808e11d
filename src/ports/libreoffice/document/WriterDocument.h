// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>

#include "host/Document.h"
#include "ports/libreoffice/document/OpenDocument.h"

namespace huebrush::libreoffice {

/// A document of the office as an object of the object model.
class WriterDocument final : public host::Document {
 public:
    explicit WriterDocument(std::shared_ptr<OpenDocument> document)
        : document_(std::move(document)) {}

    std::shared_ptr<host::Shapes> Shapes() override;
    std::shared_ptr<host::Selection> Selection() override;
    void Close() override;
    bool isSame(const host::Document& other) const override;
    bool isReadOnly() override;
    std::unique_ptr<host::UndoGroup> undoGroup(const std::string& title) override;
    void markModified() override;

 private:
    std::shared_ptr<OpenDocument> document_;
};

}  // namespace huebrush::libreoffice
