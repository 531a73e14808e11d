// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Error.h"
#include "ports/libreoffice/document/ShapeFill.h"
#include "ports/libreoffice/document/ShapeKind.h"
#include "ports/libreoffice/document/ShapeLine.h"
#include "ports/libreoffice/uno/Snapshot.h"

namespace huebrush::libreoffice {

class ShapeNode;
using NodePointer = std::shared_ptr<ShapeNode>;

/// One shape of an open document: its identity, its place, and what was read from it.
///
/// Its identity is the office's object. Holding thousands of these slows every write to any of them
/// down (each listens to all changes of the document), so it is released while a place suffices: as
/// long as no events run, the place in the tree says the same.
class ShapeNode : public std::enable_shared_from_this<ShapeNode> {
 public:
    ShapeNode(ShapeKind kind, NodePointer parent, std::int32_t index)
        : kind(kind), parent(std::move(parent)), index(index) {}
    ShapeNode(const ShapeNode&) = delete;
    ShapeNode& operator=(const ShapeNode&) = delete;

    const ShapeKind kind;

    /// The group it stands in, if any, and its number there or on the draw page.
    NodePointer parent;
    std::int32_t index;
    /// When a walk of the whole tree has found it there, and when it was last known to exist.
    Snapshot::Generation placed = Snapshot::kNever;
    Snapshot::Generation alive = Snapshot::kNever;

    /// How many keep the shape (ShapeHandle); the tree itself does not count.
    std::int32_t users = 0;

    /// The office's object; nothing while the place stands for it.
    ShapeReference shape;

    /// The name it has been given; empty before.
    std::string name;

    /// What was read of its fill, or the error of reading it. A group has only the common answer.
    Snapshot::Generation fillRead = Snapshot::kNever;
    mapping::KnownFill fill;
    std::string memory;
    std::optional<base::Error> fillError;
    /// Of a group: when the fill of a member was last written; the office may not have it yet.
    Snapshot::Generation memberFillWritten = Snapshot::kNever;

    Snapshot::Generation lineRead = Snapshot::kNever;
    ShapeLine line;
    std::optional<base::Error> lineError;

    /// A group's members, and when they were placed; while the structure is current that lists
    /// them.
    std::vector<NodePointer> members;
    Snapshot::Generation entered = Snapshot::kNever;
};

}  // namespace huebrush::libreoffice
