// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/DocumentShapes.h"

#include <optional>
#include <utility>

#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

namespace {

ShapeLine lineOfShape(const ShapeKind& kind, const ShapeReference& shape) {
    return kind.canHaveLine ? readLine(shape) : ShapeLine();
}

}  // namespace

DocumentShapes::DocumentShapes(const ContextReference& context, const ModelReference& model,
                               std::shared_ptr<Snapshot> snapshot)
    : snapshot_(std::move(snapshot)),
      tables_(context, model),
      // While the office's object is at hand.
      tree_(model, snapshot_,
            [this](ShapeNode& node, const ShapeReference& shape) {
                names_.give(node, shape);
                if (!node.kind.isGroup()) readLeaf(node, shape);
            }),
      names_(tree_, snapshot_) {}

const host::FillProperties& DocumentShapes::keep(const mapping::HostFill& fill) {
    if (stamp() == 0) pool_.clear();
    return pool_.keep(fill);
}

// Fills

void DocumentShapes::readLeaf(ShapeNode& node, const ShapeReference& shape) {
    node.fillError.reset();
    try {
        officeCalls([&] {
            if (!node.kind.canHaveFill) {
                node.fill = {};
            } else {
                const ShapeFill fill = readFill(shape);
                node.fill = knownFillOf(fill, shape, tables_);
                node.memory = fill.memory;
            }
        });
    } catch (const base::Error& error) {
        node.fillError = error;
    }
    node.fillRead = snapshot_->generation();
}

void DocumentShapes::readFillOf(ShapeNode& node) {
    node.fillError.reset();
    try {
        officeCalls([&] {
            if (node.kind.isGroup()) {
                node.fill = {};
                node.fill.host = commonFillIn(node);
                node.fillRead = snapshot_->generation();
            } else {
                readLeaf(node, tree_.shapeOf(node));
            }
        });
    } catch (const base::Error& error) {
        node.fillError = error;
        node.fillRead = snapshot_->generation();
    }
}

mapping::HostFill DocumentShapes::commonFillIn(ShapeNode& group) {
    // What was written in this generation may be known of the nodes alone.
    if (tree_.isEntered(group) || snapshot_->isCurrent(group.memberFillWritten)) {
        return commonFillOf(leavesOf({group.shared_from_this()}));
    }
    mapping::CommonFill common;
    tree_.visitLeaves(group, [&](const ShapeKind& kind, const ShapeReference& shape) {
        common.add(kind.canHaveFill ? knownFillOf(readFill(shape), shape, tables_).host
                                    : mapping::HostFill());
    });
    return common.value();
}

mapping::HostFill DocumentShapes::commonFillOf(const std::vector<NodePointer>& nodes) {
    mapping::CommonFill common;
    for (const NodePointer& node : nodes) common.add(fillOf(*node));
    return common.value();
}

// Lines

void DocumentShapes::readLineOf(ShapeNode& node) {
    node.lineError.reset();
    try {
        officeCalls([&] {
            tree_.checkAlive(node);
            if (node.kind.isGroup()) {
                node.line = commonLineIn(node);
            } else {
                node.line = lineOfShape(node.kind, tree_.shapeOf(node));
            }
        });
    } catch (const base::Error& error) {
        node.lineError = error;
    }
    node.lineRead = snapshot_->generation();
}

ShapeLine DocumentShapes::commonLineIn(ShapeNode& group) {
    std::optional<ShapeLine> common;
    tree_.visitLeaves(group, [&](const ShapeKind& kind, const ShapeReference& shape) {
        const ShapeLine line = lineOfShape(kind, shape);
        common = common ? commonLine(*common, line) : line;
    });
    return common.value_or(ShapeLine());
}

void DocumentShapes::setLineVisible(const NodePointer& node, bool visible) {
    writeLines(node, [&](const ShapeReference& shape) { writeLineVisible(shape, visible); });
}

void DocumentShapes::setLineColor(const NodePointer& node, std::int32_t color) {
    writeLines(node, [&](const ShapeReference& shape) { writeLineColor(shape, color); });
}

void DocumentShapes::writeLines(const NodePointer& node,
                                const std::function<void(const ShapeReference&)>& write) {
    officeCalls([&] {
        for (const NodePointer& leaf : leavesOf({node})) {
            if (!leaf->kind.canHaveLine) continue;
            write(tree_.shapeOf(*leaf));
            for (ShapeNode* at = leaf.get(); at != nullptr; at = at->parent.get()) {
                at->lineRead = Snapshot::kNever;
            }
        }
    });
}

// Shapes

void DocumentShapes::checkAlive(const std::vector<NodePointer>& nodes) {
    officeCalls([&] {
        for (const NodePointer& node : nodes) tree_.checkAlive(*node);
    });
}

std::vector<NodePointer> DocumentShapes::leavesOf(const std::vector<NodePointer>& nodes) {
    return officeCalls([&] {
        std::vector<NodePointer> leaves;
        for (const NodePointer& node : nodes) collectLeaves(node, leaves);
        return leaves;
    });
}

void DocumentShapes::collectLeaves(const NodePointer& node, std::vector<NodePointer>& leaves) {
    if (!node->kind.isGroup()) {
        leaves.push_back(node);
        return;
    }
    for (const NodePointer& member : tree_.membersOf(node)) collectLeaves(member, leaves);
}

void DocumentShapes::endGeneration() {
    invalidateStamps();
    pool_.clear();
    ignoringOffice([&] { tree_.endGeneration(); });
    names_.forgetDead();
    tables_.forgetRecognised();
}

}  // namespace huebrush::libreoffice
