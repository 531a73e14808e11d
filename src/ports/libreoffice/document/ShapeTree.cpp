// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/ShapeTree.h"

#include <algorithm>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <unordered_set>
#include <utility>

#include "ports/libreoffice/document/Anchors.h"
#include "ports/libreoffice/document/PageStyles.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace {

constexpr std::int32_t kObjectDeleted = 5825;
/// Holding up to this many objects does not slow down writing much.
constexpr std::size_t kFewHolders = 128;

ShapeReference memberAt(const Reference<css::container::XIndexAccess>& members,
                        std::int32_t index) {
    return {members->getByIndex(index), UNO_QUERY_THROW};
}

Reference<css::container::XIndexAccess> membersOfGroup(const ShapeReference& group) {
    return {group, UNO_QUERY_THROW};
}

void visitLeavesOf(const ShapeReference& group, const ShapeTree::LeafVisitor& visitor) {
    const auto members = membersOfGroup(group);
    const std::int32_t count = members->getCount();
    for (std::int32_t index = 0; index < count; ++index) {
        const ShapeReference member = memberAt(members, index);
        const ShapeKind kind = kindOf(member);
        if (kind.isGroup()) {
            visitLeavesOf(member, visitor);
        } else if (kind.isShape) {
            visitor(kind, member);
        }
    }
}

}  // namespace

void throwDeleted() {
    throw base::Error(kObjectDeleted,
                      "Objekt byl mezitím odstraněn, seskupen nebo vyjmut ze skupiny. "
                      "Vyberte ho a přidejte znovu.");
}

ShapeTree::ShapeTree(const ModelReference& model, std::shared_ptr<Snapshot> snapshot,
                     Visitor reader)
    : model_(model), page_(model), snapshot_(std::move(snapshot)), reader_(std::move(reader)) {}

std::vector<NodePointer> ShapeTree::topLevel() {
    if (!isStructureCurrent()) walk(reader_);
    if (structureRead_ == Snapshot::kNever) return std::exchange(topLevel_, {});
    return topLevel_;
}

std::int32_t ShapeTree::count() {
    if (snapshot_->isCurrent(countRead_)) return count_;
    const std::int32_t objects = page_.count();
    if (objects != countedObjects_) {
        count_ = static_cast<std::int32_t>(topLevel().size());
        countedObjects_ = objects;
    }
    countRead_ = snapshot_->generation();
    return count_;
}

std::vector<NodePointer> ShapeTree::membersOf(const NodePointer& group) {
    if (snapshot_->isCurrent(group->placed)) {
        if (!isEntered(*group)) enter(group, shapeOf(*group), reader_);
        return group->members;
    }
    std::vector<NodePointer> result;
    const auto members = membersOfGroup(shapeOf(*group));
    const std::int32_t count = members->getCount();
    for (std::int32_t index = 0; index < count; ++index) {
        const ShapeReference shape = memberAt(members, index);
        if (NodePointer node = nodeAt(shape, group, index)) {
            if (!node->shape.is()) hold(*node, shape);
            node->alive = snapshot_->generation();
            result.push_back(std::move(node));
        }
    }
    return result;
}

NodePointer ShapeTree::add(const ShapeReference& shape) {
    endGeneration();
    countRead_ = Snapshot::kNever;
    page_.page()->add(shape);
    return nodeOf(shape);
}

NodePointer ShapeTree::nodeOf(const ShapeReference& shape) {
    const ShapeKind kind = kindOf(shape);
    if (!kind.isShape) return nullptr;
    NodePointer node = holderOf(shape);
    if (!node) {
        // It may be one that has released the object, or does not hold it yet.
        holdStructure();
        node = holderOf(shape);
    }
    if (!node) {
        node = std::make_shared<ShapeNode>(kind, nullptr, 0);
        hold(*node, shape);
    }
    return node;
}

NodePointer ShapeTree::holderOf(const ShapeReference& shape) const {
    const auto found = holders_.find(shape.get());
    return found == holders_.end() ? nullptr : found->second.lock();
}

ShapeReference ShapeTree::shapeOf(ShapeNode& node) {
    if (!node.shape.is()) {
        if (!snapshot_->isCurrent(node.placed)) throwDeleted();
        return node.parent ? memberOf(*node.parent, node.index) : page_.at(node.index);
    }
    checkAlive(node);
    return node.shape;
}

ShapeTree::GroupOnWay ShapeTree::openGroup(ShapeNode& group) {
    const auto members = membersOfGroup(shapeOf(group));
    return {group.shared_from_this(), members, members->getCount()};
}

/// Within a handler.
const ShapeTree::GroupOnWay& ShapeTree::wayTo(ShapeNode& group) {
    const auto known = std::find_if(way_.begin(), way_.end(),
                                    [&](const GroupOnWay& on) { return on.group.get() == &group; });
    if (known != way_.end()) {
        way_.erase(known + 1, way_.end());
    } else {
        GroupOnWay opened = openGroup(group);
        while (!way_.empty() && way_.back().group != group.parent) way_.pop_back();
        way_.push_back(std::move(opened));
    }
    return way_.back();
}

ShapeReference ShapeTree::memberOf(ShapeNode& group, std::int32_t index) {
    return memberAt(wayTo(group).members, index);
}

void ShapeTree::checkAlive(ShapeNode& node) {
    if (!isAlive(node)) throwDeleted();
}

bool ShapeTree::isAlive(ShapeNode& node) {
    if (snapshot_->isCurrent(node.placed) || snapshot_->isCurrent(node.alive)) return true;
    if (!node.shape.is()) return false;
    // A member is looked for where it stood before it is asked where it stands: that costs less.
    if (!(node.parent && isMember(node)) && !isFoundByParent(node)) return false;
    node.alive = snapshot_->generation();
    return true;
}

bool ShapeTree::isFoundByParent(ShapeNode& node) {
    const Parent parent = parentOf(node.shape);
    if (parent.isPage) {
        node.parent.reset();
        return true;
    }
    if (parent.group.is()) {
        node.parent = nodeOf(parent.group);
        if (node.parent && isMember(node)) return true;
    }
    return isFoundOnWalk(node);
}

bool ShapeTree::isMember(ShapeNode& node) {
    if (!isAlive(*node.parent)) return false;
    const bool inHandler = snapshot_->generation() != Snapshot::kNever;
    const GroupOnWay group = inHandler ? wayTo(*node.parent) : openGroup(*node.parent);
    if (node.index < group.count && memberAt(group.members, node.index) == node.shape) return true;
    for (std::int32_t index = 0; index < group.count; ++index) {
        if (memberAt(group.members, index) == node.shape) {
            node.index = index;
            return true;
        }
    }
    return false;
}

/// The last resort: one walk finds all nodes that are anywhere.
bool ShapeTree::isFoundOnWalk(ShapeNode& node) {
    const HandlerScope scope(snapshot_);
    visitAll([](ShapeNode&, const ShapeReference&) {});
    return snapshot_->isCurrent(node.placed);
}

void ShapeTree::walk(const Visitor& reader) {
    forgetStructure();
    forgetDead();
    headers_ = hasHeadersOrFooters(model_);
    page_.visit([&](std::int32_t index, const ShapeReference& shape) {
        if (headers_ && isAnchoredInHeaderOrFooter(shape)) return;
        if (NodePointer node = place(shape, nullptr, index, reader))
            topLevel_.push_back(std::move(node));
    });
    structureRead_ = snapshot_->generation();
    ++readings_;
    count_ = static_cast<std::int32_t>(topLevel_.size());
    countedObjects_ = page_.count();
    countRead_ = structureRead_;
}

void ShapeTree::forgetStructure() {
    for (const NodePointer& group : groups_) {
        group->members.clear();
        group->entered = Snapshot::kNever;
    }
    groups_.clear();
    way_.clear();
    topLevel_.clear();
    structureRead_ = Snapshot::kNever;
}

void ShapeTree::forgetDead() {
    std::erase_if(holders_, [](const auto& holder) { return holder.second.expired(); });
}

/// The node for an object at this place; nothing for what is no shape.
NodePointer ShapeTree::nodeAt(const ShapeReference& shape, const NodePointer& parent,
                              std::int32_t index) {
    if (NodePointer node = holderOf(shape)) {
        node->parent = parent;
        node->index = index;
        return node;
    }
    const ShapeKind kind = kindOf(shape);
    if (!kind.isShape) return nullptr;
    return std::make_shared<ShapeNode>(kind, parent, index);
}

NodePointer ShapeTree::place(const ShapeReference& shape, const NodePointer& parent,
                             std::int32_t index, const Visitor& reader) {
    NodePointer node = nodeAt(shape, parent, index);
    if (!node) return nullptr;
    node->placed = snapshot_->generation();
    // Outside a handler there is no structure to find it again.
    if (!node->shape.is() && node->placed == Snapshot::kNever) hold(*node, shape);
    if (reader && node->placed != Snapshot::kNever) reader(*node, shape);
    return node;
}

/// Places the members of a group that is placed itself.
void ShapeTree::enter(const NodePointer& group, const ShapeReference& shape,
                      const Visitor& reader) {
    const auto members = membersOfGroup(shape);
    const std::int32_t count = members->getCount();
    group->members.clear();
    for (std::int32_t index = 0; index < count; ++index) {
        if (NodePointer member = place(memberAt(members, index), group, index, reader)) {
            group->members.push_back(std::move(member));
        }
    }
    group->entered = group->placed;
    groups_.push_back(group);
}

void ShapeTree::visitAll(const Visitor& visitor) {
    if (!isStructureCurrent()) walk({});
    visit(Groups::all, visitor);
}

void ShapeTree::visit(Groups groups, const Visitor& visitor) {
    for (const NodePointer& node : topLevel_) {
        const ShapeReference shape = page_.at(node->index);
        visitor(*node, shape);
        if (node->kind.isGroup()) visitMembers(groups, node, shape, visitor);
    }
}

void ShapeTree::visitMembers(Groups groups, const NodePointer& group, const ShapeReference& shape,
                             const Visitor& visitor) {
    if (!isEntered(*group)) {
        if (groups == Groups::entered) return;
        enter(group, shape, {});
    }
    const auto members = membersOfGroup(shape);
    for (const NodePointer& node : group->members) {
        const ShapeReference member = memberAt(members, node->index);
        visitor(*node, member);
        if (node->kind.isGroup()) visitMembers(groups, node, member, visitor);
    }
}

void ShapeTree::visitLeaves(ShapeNode& group, const LeafVisitor& visitor) {
    visitLeavesOf(shapeOf(group), visitor);
}

std::vector<std::int32_t> ShapeTree::placeOf(const ShapeNode& node) {
    std::vector<std::int32_t> place;
    for (const ShapeNode* at = &node; at != nullptr; at = at->parent.get()) {
        place.push_back(at->index);
    }
    std::reverse(place.begin(), place.end());
    return place;
}

void ShapeTree::letGo() {
    if (holders_.size() <= kFewHolders) return;
    if (snapshot_->generation() == Snapshot::kNever) return;
    visitAll([](ShapeNode&, const ShapeReference&) {});
    // The office looks for each listener that leaves from the oldest on, and gives the place left
    // last to the next one: so the youngest leave first.
    letGo(topLevel_);
    // One that was not met on the walk has been deleted, and stays so.
    for (const auto& [object, weak] : holders_) {
        if (const NodePointer node = weak.lock()) node->shape.clear();
    }
    holders_.clear();
}

void ShapeTree::letGo(const std::vector<NodePointer>& nodes) {
    std::for_each(nodes.rbegin(), nodes.rend(), [](const NodePointer& node) {
        letGo(node->members);
        node->shape.clear();
    });
}

/// Holds everything in a current structure.
void ShapeTree::holdStructure() {
    if (!isStructureCurrent()) return;
    visit(Groups::entered, [this](ShapeNode& node, const ShapeReference& shape) {
        if (!node.shape.is()) hold(node, shape);
    });
}

/// Holds what somebody uses, and the groups that it is in.
void ShapeTree::holdUsed() {
    std::unordered_set<ShapeNode*> used;
    const std::function<bool(const NodePointer&)> collectUsed = [&](const NodePointer& node) {
        bool isUsed = node->users > 0;
        if (isEntered(*node)) {
            for (const NodePointer& member : node->members) isUsed |= collectUsed(member);
        }
        if (isUsed && !node->shape.is()) used.insert(node.get());
        return isUsed;
    };
    for (const NodePointer& node : topLevel_) collectUsed(node);
    if (used.empty()) return;
    visit(Groups::entered, [&](ShapeNode& node, const ShapeReference& shape) {
        if (used.contains(&node)) hold(node, shape);
    });
}

void ShapeTree::endGeneration() {
    way_.clear();
    if (isStructureCurrent()) holdUsed();
    forgetStructure();
}

void ShapeTree::forget() {
    forgetStructure();
    for (const auto& [object, weak] : holders_) {
        if (const NodePointer node = weak.lock()) node->shape.clear();
    }
    holders_.clear();
}

void ShapeTree::hold(ShapeNode& node, const ShapeReference& shape) {
    node.shape = shape;
    holders_[shape.get()] = node.weak_from_this();
}

}  // namespace huebrush::libreoffice
