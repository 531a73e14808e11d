// SPDX-License-Identifier: MPL-2.0

#include "batch/WholeDocument.h"

#include <utility>
#include <vector>

#include "base/Error.h"

namespace huebrush::batch {

namespace {

[[noreturn]] void throwReadOnly() {
    throw base::Error(base::ErrorNumber::kInvalidProcedureCall,
                      "Výběr celého dokumentu nelze takto použít.");
}

/// The list of all shapes, which nobody addresses at once.
class AllShapes final : public host::ShapeRange {
 public:
    explicit AllShapes(host::Shapes& shapes) {
        const auto walk = shapes.enumerate();
        while (host::ShapePointer shape = walk->next()) shapes_.push_back(std::move(shape));
    }

    std::int32_t Count() override { return static_cast<std::int32_t>(shapes_.size()); }
    host::ShapePointer Item(std::int32_t index) override {
        if (index < 1 || index > Count()) {
            throw base::Error(base::ErrorNumber::kSubscriptOutOfRange,
                              "Požadovaný člen kolekce neexistuje.");
        }
        return shapes_[static_cast<std::size_t>(index - 1)];
    }
    host::FillFormat& Fill() override { throwReadOnly(); }
    void Select() override { throwReadOnly(); }

 private:
    std::vector<host::ShapePointer> shapes_;
};

class EverythingSelected final : public host::Selection {
 public:
    explicit EverythingSelected(std::shared_ptr<host::Document> document)
        : document_(std::move(document)) {}

    std::shared_ptr<host::ShapeRange> ShapeRange() override {
        return std::make_shared<AllShapes>(*document_->Shapes());
    }
    std::shared_ptr<host::Document> Document() override { return document_; }
    void Copy() override { throwReadOnly(); }

 private:
    std::shared_ptr<host::Document> document_;
};

}  // namespace

std::shared_ptr<host::Selection> WholeDocument::Selection() {
    return std::make_shared<EverythingSelected>(document_);
}

}  // namespace huebrush::batch
