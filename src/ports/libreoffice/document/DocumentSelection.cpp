// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/DocumentSelection.h"

#include <utility>

#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

DocumentSelection::DocumentSelection(const ContextReference& context, const ModelReference& model,
                                     DocumentShapes& shapes, std::shared_ptr<Snapshot> snapshot,
                                     bool hasWindow)
    : context_(context),
      model_(model),
      shapes_(shapes),
      snapshot_(std::move(snapshot)),
      hasWindow_(hasWindow) {}

std::vector<NodePointer> DocumentSelection::selected() {
    if (!hasWindow_) return nodesOf(own_);
    return officeCalls([&] {
        std::vector<NodePointer> nodes;
        for (const ShapeReference& shape : selectionInWindow(model_)) {
            if (NodePointer node = shapes_.tree().nodeOf(shape)) nodes.push_back(std::move(node));
        }
        return nodes;
    });
}

void DocumentSelection::select(const std::vector<NodePointer>& nodes) {
    if (hasWindow_) {
        selectInWindow(nodes);
    } else {
        own_ = handlesOf(nodes);
    }
}

void DocumentSelection::show() {
    if (!hasWindow_ && !own_.empty()) selectInWindow(nodesOf(own_));
}

void DocumentSelection::selectInWindow(const std::vector<NodePointer>& nodes) {
    const bool eventsHaveRun = officeCalls([&] {
        std::vector<ShapeReference> shapes;
        shapes.reserve(nodes.size());
        for (const NodePointer& node : nodes) shapes.push_back(shapes_.tree().shapeOf(*node));
        return libreoffice::selectInWindow(context_, model_, shapes);
    });
    if (eventsHaveRun) snapshot_->invalidate();
}

}  // namespace huebrush::libreoffice
