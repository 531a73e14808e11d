// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "documents/model/ShapeFile.h"
#include "host/Document.h"
#include "mapping/HostFill.h"

namespace huebrush::documents {

/// A fill that a shape has been given.
struct WrittenFill {
    mapping::HostFill fill = {};
    /// The bytes of a user texture's file.
    std::string picture = {};
    /// Other colours of the gradient's stops.
    std::vector<std::int32_t> stops = {};
};

/// A shape or a group, as it is now. There may be tens of thousands of them, most of which are
/// never written and share their fills.
struct Node {
    std::string name = {};  ///< unique in its document
    host::MsoShapeType type = host::MsoShapeType::msoAutoShape;
    bool canHaveFill = true;
    bool lineVisible = false;
    std::int32_t lineColor = 0;
    std::vector<std::shared_ptr<Node>> members = {};
    /// Its number in the file; nothing for a shape that was added here.
    std::optional<std::size_t> number = std::nullopt;
    SharedFill inFile = {};
    std::unique_ptr<WrittenFill> written = {};
    bool isLineWritten = false;
    bool isDeleted = false;
    /// The fill as its properties answer; nothing until it is asked for.
    std::shared_ptr<const host::FillProperties> answer = {};

    const mapping::HostFill& fill() const;
    /// The fill to be changed, as it is now.
    WrittenFill& write();

    bool isGroup() const { return type == host::MsoShapeType::msoGroup; }
};

using NodePointer = std::shared_ptr<Node>;

/// The shapes of one document with their names and their fills, and what is selected of them.
class ShapeTree {
 public:
    ShapeTree() = default;
    ShapeTree(const ShapeTree&) = delete;
    ShapeTree& operator=(const ShapeTree&) = delete;

    /// Adds the shapes of a file, from back to front.
    void add(const std::vector<ShapeRecord>& records);
    /// Adds a shape in front of all others, and gives it a name that no other has.
    NodePointer add(Node node);
    /// Puts shapes into a new group in front of all others.
    NodePointer group(const std::string& name, const std::vector<NodePointer>& members);
    /// Removes a top-level shape with its members: every use of them is an error from now on.
    void remove(const NodePointer& node);

    const std::vector<NodePointer>& topLevel() const { return topLevel_; }
    /// An error (5941) where no shape has the name.
    NodePointer find(const std::string& name) const;

    /// What has been written, by the shapes' numbers in the file.
    ShapeChanges changes() const;

    std::vector<NodePointer> selected;

 private:
    using Answers =
        std::unordered_map<const mapping::KnownFill*, std::shared_ptr<const host::FillProperties>>;

    NodePointer nodeOf(const ShapeRecord& record, NodePointer node, Answers& answers);
    std::string uniqueName(const std::string& wanted);

    std::vector<NodePointer> topLevel_;
    std::unordered_map<std::string, std::weak_ptr<Node>> names_;
    std::unordered_map<std::string, int> numbers_;
};

/// An error (5825) when the shape has been deleted.
void requireAlive(const Node& node);
/// The shapes that are no groups, in a shape or group.
void collectLeaves(const NodePointer& node, std::vector<NodePointer>& leaves);

}  // namespace huebrush::documents
