// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "ports/libreoffice/document/FillPool.h"
#include "ports/libreoffice/document/FillTables.h"
#include "ports/libreoffice/document/ShapeHandle.h"
#include "ports/libreoffice/document/ShapeNames.h"
#include "ports/libreoffice/document/ShapeTree.h"

namespace huebrush::libreoffice {

/// The shapes of an open document, and what was read of their fills and lines. What is current is
/// answered at once; an error of reading it is thrown again. Every call but those of the parts may
/// throw base::Error, and nothing else.
class DocumentShapes {
 public:
    DocumentShapes(const ContextReference& context, const ModelReference& model,
                   std::shared_ptr<Snapshot> snapshot);
    DocumentShapes(const DocumentShapes&) = delete;
    DocumentShapes& operator=(const DocumentShapes&) = delete;

    ShapeTree& tree() { return tree_; }
    ShapeNames& names() { return names_; }
    FillTables& tables() { return tables_; }

    /// Marks what was read of fills; zero outside a handler, where nothing read holds.
    using Stamp = std::uint64_t;
    /// For what is read now.
    Stamp stamp() const { return snapshot_->generation() == Snapshot::kNever ? 0 : stamp_; }
    /// Whether nothing was written, and no events ran, since the stamp was given.
    bool holds(Stamp stamp) const { return stamp == stamp_; }
    /// A write is begun or carried out.
    void invalidateStamps() { ++stamp_; }
    /// The fill's properties as this document keeps them: good while the present stamp holds.
    const host::FillProperties& keep(const mapping::HostFill& fill);

    const mapping::HostFill& fillOf(ShapeNode& node) {
        if (!snapshot_->isCurrent(node.fillRead)) readFillOf(node);
        if (node.fillError) throw base::Error(*node.fillError);
        return node.fill.host;
    }
    /// The common answer of several shapes.
    mapping::HostFill commonFillOf(const std::vector<NodePointer>& nodes);
    const ShapeLine& lineOf(ShapeNode& node) {
        if (!snapshot_->isCurrent(node.lineRead)) readLineOf(node);
        if (node.lineError) throw base::Error(*node.lineError);
        return node.line;
    }
    void setLineVisible(const NodePointer& node, bool visible);
    void setLineColor(const NodePointer& node, std::int32_t color);

    /// An error when one of the shapes has been deleted.
    void checkAlive(const std::vector<NodePointer>& nodes);
    /// These shapes, groups replaced by all of their members, down to the last, that are no groups.
    std::vector<NodePointer> leavesOf(const std::vector<NodePointer>& nodes);

    /// Never throws.
    void endGeneration();

 private:
    void readLeaf(ShapeNode& node, const ShapeReference& shape);
    void readFillOf(ShapeNode& node);
    void readLineOf(ShapeNode& node);
    mapping::HostFill commonFillIn(ShapeNode& group);
    ShapeLine commonLineIn(ShapeNode& group);
    void writeLines(const NodePointer& node,
                    const std::function<void(const ShapeReference&)>& write);
    void collectLeaves(const NodePointer& node, std::vector<NodePointer>& leaves);

    std::shared_ptr<Snapshot> snapshot_;
    FillTables tables_;
    ShapeTree tree_;
    ShapeNames names_;
    Stamp stamp_ = 1;
    FillPool pool_;
};

}  // namespace huebrush::libreoffice
