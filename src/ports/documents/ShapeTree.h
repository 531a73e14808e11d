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

/// A shape or a group, as it is now.
struct Node {
    std::string name = {};  ///< unique in its document
    host::MsoShapeType type = host::MsoShapeType::msoAutoShape;
    bool canHaveFill = true;
    mapping::HostFill fill = {};
    bool lineVisible = false;
    std::int32_t lineColor = 0;
    std::vector<std::shared_ptr<Node>> members = {};
    /// Its number in the file; nothing for a shape that was added here.
    std::optional<std::size_t> number = std::nullopt;
    /// The fill has been written, the colour of the line has.
    bool isChanged = false;
    bool isLineChanged = false;
    bool isDeleted = false;

    /// The fill in the file, and other colours of its stops if they have been written.
    SharedFill inFile = {};
    std::vector<std::int32_t> stops = {};
    /// The bytes of the file of a user texture that has been written.
    std::string picture = {};
    /// The fill as its properties answer, and whether it has been asked for since the last write.
    host::FillProperties answer = {};
    bool isAnswered = false;

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
    NodePointer nodeOf(const ShapeRecord& record, NodePointer node);
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
