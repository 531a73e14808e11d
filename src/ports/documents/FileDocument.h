// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <string>

#include "host/Application.h"
#include "ports/documents/ShapeTree.h"

namespace huebrush::documents {

/// A document that is worked on as a file: its shapes and their fills are all that there is of it.
class FileDocument final : public host::Document,
                           public std::enable_shared_from_this<FileDocument> {
 public:
    /// An empty document without a file.
    static std::shared_ptr<FileDocument> create();
    /// The document of a file.
    static std::shared_ptr<FileDocument> of(std::unique_ptr<ShapeFile> file);

    std::shared_ptr<host::Shapes> Shapes() override;
    std::shared_ptr<host::Selection> Selection() override;
    void Close() override {}
    bool isSame(const host::Document& other) const override { return this == &other; }

    /// The bytes of the file with the fills as they are now. DocumentError where that cannot be.
    /// REQUIRES: the document has a file.
    std::string content() const;

    const std::shared_ptr<ShapeTree>& tree() const { return tree_; }
    bool hasFile() const { return file_ != nullptr; }

 private:
    FileDocument() = default;

    std::unique_ptr<ShapeFile> file_;
    std::shared_ptr<ShapeTree> tree_ = std::make_shared<ShapeTree>();
};

/// A word processor that has nothing but one document, and scratch documents beside it.
class FileApplication final : public host::Application, private host::Documents {
 public:
    explicit FileApplication(std::shared_ptr<FileDocument> document)
        : document_(std::move(document)) {}

    std::string Name() override { return "Huebrush"; }
    std::string Version() override { return "9.0"; }
    std::shared_ptr<host::Selection> Selection() override { return document_->Selection(); }
    std::shared_ptr<host::Document> ActiveDocument() override { return document_; }
    host::Documents& Documents() override { return *this; }
    // There is nobody who could see or use these: an error (4605).
    host::Dialogs& Dialogs() override;
    host::CommandBars& CommandBars() override;
    host::Template& NormalTemplate() override;
    void setStatusBar(const std::string&) override {}
    void setCursor(host::WdCursorType) override {}

 private:
    std::shared_ptr<host::Document> addHidden() override { return FileDocument::create(); }

    std::shared_ptr<FileDocument> document_;
};

}  // namespace huebrush::documents
