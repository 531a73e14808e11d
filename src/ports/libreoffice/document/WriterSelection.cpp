// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/WriterSelection.h"

#include "forms/Runtime.h"
#include "ports/libreoffice/document/ShapePicture.h"
#include "ports/libreoffice/document/WriterDocument.h"
#include "ports/libreoffice/document/WriterShapes.h"
#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

std::shared_ptr<host::ShapeRange> WriterSelection::ShapeRange() {
    return std::make_shared<WriterShapeRange>(document_, handlesOf(document_->selected()));
}

std::shared_ptr<host::Document> WriterSelection::Document() {
    return std::make_shared<WriterDocument>(document_);
}

void WriterSelection::Copy() {
    document_->finishWrites();
    const std::vector<NodePointer> selected = document_->selected();
    if (selected.empty()) {
        throw base::Error(HostErrorNumber::kCommandFailed, "Není vybrán žádný objekt.");
    }
    const ShapeHandle used(selected.front());
    ShapeNode& shape = *used;
    const bool shows = document_->fillOf(shape).shown() ||
                       document_->shapes().lineOf(shape).visible != host::MsoTriState::msoFalse;
    base::Picture picture;
    if (shows) {
        picture = officeCalls([&] {
            return pictureOf(document_->context(), document_->shapes().tree().shapeOf(shape));
        });
    }
    forms::Runtime::current().Clipboard().SetData(picture);
}

}  // namespace huebrush::libreoffice
