// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <utility>
#include <vector>

#include "ports/libreoffice/document/ShapeNode.h"

namespace huebrush::libreoffice {

/// Somebody's use of a shape, beyond the tree's own: what is in use is still found when events have
/// run and the places in the tree are not good any more. Whoever keeps a shape keeps one of these.
class ShapeHandle {
 public:
    explicit ShapeHandle(NodePointer node) : node_(std::move(node)) { ++node_->users; }
    ShapeHandle(const ShapeHandle& other) : ShapeHandle(other.node_) {}
    ShapeHandle(ShapeHandle&& other) noexcept : node_(std::move(other.node_)) {}
    ShapeHandle& operator=(ShapeHandle other) noexcept {
        std::swap(node_, other.node_);
        return *this;
    }
    ~ShapeHandle() {
        if (node_) --node_->users;
    }

    const NodePointer& node() const { return node_; }
    ShapeNode& operator*() const { return *node_; }
    ShapeNode* operator->() const { return node_.get(); }

 private:
    /// Nothing only after a move.
    NodePointer node_;
};

using ShapeHandles = std::vector<ShapeHandle>;

inline ShapeHandles handlesOf(const std::vector<NodePointer>& nodes) {
    ShapeHandles handles;
    handles.reserve(nodes.size());
    for (const NodePointer& node : nodes) handles.emplace_back(node);
    return handles;
}

inline std::vector<NodePointer> nodesOf(const ShapeHandles& handles) {
    std::vector<NodePointer> nodes;
    nodes.reserve(handles.size());
    for (const ShapeHandle& handle : handles) nodes.push_back(handle.node());
    return nodes;
}

}  // namespace huebrush::libreoffice
