// SPDX-License-Identifier: MPL-2.0

#include "recolor/UndoSteps.h"

#include <utility>

namespace huebrush::recolor {

UndoSteps::UndoSteps(std::string title, Ended ended)
    : title_(std::move(title)), ended_(std::move(ended)) {}

bool UndoSteps::isIn(const host::Document& document) const {
    return document_ && document_->isSame(document);
}

void UndoSteps::begin(std::shared_ptr<host::Document> document) {
    document_ = std::move(document);
    group_ = document_->undoGroup(title_);
}

void UndoSteps::end() {
    if (const auto group = std::exchange(group_, nullptr)) ended_(group->finish());
}

}  // namespace huebrush::recolor
