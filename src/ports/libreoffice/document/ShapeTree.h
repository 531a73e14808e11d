// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "ports/libreoffice/document/DrawPage.h"
#include "ports/libreoffice/document/ShapeNode.h"
#include "ports/libreoffice/uno/Snapshot.h"

namespace huebrush::libreoffice {

/// The shapes of one document, each with its one node, and where they stand.
///
/// A node holds the office's object, or its place in a structure that is current; either finds the
/// other. Shapes anchored in headers and footers are omitted, and so is what is not a shape. The
/// office's exceptions pass to the caller.
class ShapeTree {
 public:
    /// Called for a shape while the whole tree is walked, with the office's object.
    using Visitor = std::function<void(ShapeNode& node, const ShapeReference& shape)>;

    ShapeTree(const ModelReference& model, std::shared_ptr<Snapshot> snapshot, Visitor reader);

    /// All top-level shapes, in the page's order. Inside a handler the page is walked once, and the
    /// reader called for each; a group is entered when its members are asked for.
    std::vector<NodePointer> topLevel();
    /// The number of the current reading of these; 0 when they have to be read again.
    std::uint64_t reading() const { return isStructureCurrent() ? readings_ : 0; }
    /// Their number; while the number of the page's objects stays, it is not counted again.
    std::int32_t count();

    /// A group's members. Inside a handler they are placed once, and the reader called for each.
    std::vector<NodePointer> membersOf(const NodePointer& group);
    /// Whether the members of this group, and what is current of them, are known.
    bool isEntered(const ShapeNode& group) const { return snapshot_->isCurrent(group.entered); }

    /// Puts a new object on the page, in front of all others.
    NodePointer add(const ShapeReference& shape);

    /// The node of an object that the office gave us; nothing for what is no shape of ours.
    NodePointer nodeOf(const ShapeReference& shape);

    /// The office's object. An error when the shape has been deleted.
    ShapeReference shapeOf(ShapeNode& node);
    /// An error when the shape has been deleted.
    void checkAlive(ShapeNode& node);

    /// Walks the whole tree; each object is released after its visit, unless its node holds it.
    /// REQUIRES: inside a handler.
    void visitAll(const Visitor& visitor);
    /// Visits the objects in a group that are shapes but no groups, down to the last, without their
    /// nodes: for what is asked of a group as a whole.
    using LeafVisitor = std::function<void(const ShapeKind& kind, const ShapeReference& shape)>;
    void visitLeaves(ShapeNode& group, const LeafVisitor& visitor);
    /// The numbers of the groups' members and the page's object on the way to a shape.
    static std::vector<std::int32_t> placeOf(const ShapeNode& node);

    /// Releases the office's objects where many are held, before many are written.
    void letGo();
    /// Takes hold again of the objects of all nodes that somebody keeps (ShapeHandle), and forgets
    /// the structure: events are about to run.
    void endGeneration();
    /// Releases everything: the document is gone, and every node counts as deleted.
    void forget();

    const DrawPage& page() const { return page_; }

 private:
    bool isStructureCurrent() const { return snapshot_->isCurrent(structureRead_); }
    void walk(const Visitor& reader);
    void forgetStructure();
    NodePointer holderOf(const ShapeReference& shape) const;
    NodePointer nodeAt(const ShapeReference& shape, const NodePointer& parent, std::int32_t index);
    NodePointer place(const ShapeReference& shape, const NodePointer& parent, std::int32_t index,
                      const Visitor& reader);
    void enter(const NodePointer& group, const ShapeReference& shape, const Visitor& reader);
    enum class Groups { all, entered };
    void visit(Groups groups, const Visitor& visitor);
    void visitMembers(Groups groups, const NodePointer& group, const ShapeReference& shape,
                      const Visitor& visitor);
    struct GroupOnWay {
        NodePointer group;
        com::sun::star::uno::Reference<com::sun::star::container::XIndexAccess> members;
        std::int32_t count = 0;
    };
    GroupOnWay openGroup(ShapeNode& group);
    const GroupOnWay& wayTo(ShapeNode& group);
    ShapeReference memberOf(ShapeNode& group, std::int32_t index);
    static void letGo(const std::vector<NodePointer>& nodes);
    void holdStructure();
    void holdUsed();
    bool isAlive(ShapeNode& node);
    bool isFoundByParent(ShapeNode& node);
    bool isMember(ShapeNode& node);
    bool isFoundOnWalk(ShapeNode& node);
    void hold(ShapeNode& node, const ShapeReference& shape);
    void forgetDead();

    ModelReference model_;
    DrawPage page_;
    std::shared_ptr<Snapshot> snapshot_;
    Visitor reader_;

    /// Nodes that hold their object, by it.
    std::unordered_map<com::sun::star::drawing::XShape*, std::weak_ptr<ShapeNode>> holders_;

    Snapshot::Generation structureRead_ = Snapshot::kNever;
    std::uint64_t readings_ = 0;
    std::vector<NodePointer> topLevel_;
    /// The groups that have been entered.
    std::vector<NodePointer> groups_;
    /// The groups on the way to the member that was looked for last: one in the same group, or near
    /// it, is often next. Empty outside a handler.
    std::vector<GroupOnWay> way_;

    std::int32_t count_ = 0;
    std::int32_t countedObjects_ = -1;
    Snapshot::Generation countRead_ = Snapshot::kNever;
    bool headers_ = false;
};

[[noreturn]] void throwDeleted();

}  // namespace huebrush::libreoffice
