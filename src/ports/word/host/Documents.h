// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "host/Application.h"
#include "ports/word/com/Object.h"

namespace huebrush::word {

/// One of Word's documents.
class WordDocument final : public host::Document {
 public:
    explicit WordDocument(Object document) : document_(std::move(document)) {}

    std::shared_ptr<host::Shapes> Shapes() override;
    /// Goes through the document's own window, so that the document need not be active.
    std::shared_ptr<host::Selection> Selection() override;
    void Close() override;
    bool isSame(const host::Document& other) const override;

    void activate() const { document_.call("Activate"); }
    bool isClosed() const { return closed_; }

 private:
    Object document_;
    bool closed_ = false;
};

/// What is selected in one of Word's windows.
class WordSelection final : public host::Selection {
 public:
    explicit WordSelection(Object selection) : selection_(std::move(selection)) {}

    std::shared_ptr<host::ShapeRange> ShapeRange() override;
    std::shared_ptr<host::Document> Document() override;
    void Copy() override { selection_.call("Copy"); }

 private:
    Object selection_;
};

/// The open documents, and those of them that nobody sees.
class WordDocuments final : public host::Documents {
 public:
    explicit WordDocuments(Object application) : application_(std::move(application)) {}

    std::shared_ptr<host::Document> addHidden() override;

    /// Runs one of Word's own tools, which work on what is selected in the active document: the
    /// newest hidden document is active meanwhile, and afterwards the one that was active before,
    /// however the tool has ended.
    void runOnHidden(const std::function<void()>& tool);

 private:
    Object addWithoutWindow() const;
    Object addAndHide(const Object& documents) const;
    /// The active document; none where no document is open.
    Object active() const;
    std::shared_ptr<WordDocument> newestHidden();

    Object application_;
    std::vector<std::weak_ptr<WordDocument>> hidden_;
};

}  // namespace huebrush::word
