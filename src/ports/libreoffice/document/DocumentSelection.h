// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <vector>

#include "ports/libreoffice/document/DocumentShapes.h"
#include "ports/libreoffice/document/WindowSelection.h"

namespace huebrush::libreoffice {

/// The selection of a document's window; of a document without one, what was last selected in it.
/// Every call may throw base::Error, and nothing else.
class DocumentSelection {
 public:
    DocumentSelection(const ContextReference& context, const ModelReference& model,
                      DocumentShapes& shapes, std::shared_ptr<Snapshot> snapshot, bool hasWindow);

    std::vector<NodePointer> selected();
    /// REQUIRES: not empty.
    void select(const std::vector<NodePointer>& nodes);
    /// Brings the selection of a document without a window, which is ours alone until one of the
    /// office's dialogs is to work on it, to the office: that costs as much as a picture of the
    /// shape.
    void show();

 private:
    void selectInWindow(const std::vector<NodePointer>& nodes);

    ContextReference context_;
    ModelReference model_;
    DocumentShapes& shapes_;
    std::shared_ptr<Snapshot> snapshot_;
    bool hasWindow_;
    /// Of a document without a window.
    ShapeHandles own_;
};

}  // namespace huebrush::libreoffice
