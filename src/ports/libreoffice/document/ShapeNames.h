// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "ports/libreoffice/document/ShapeHandle.h"
#include "ports/libreoffice/document/ShapeTree.h"

namespace huebrush::libreoffice {

/// The names that a document's shapes are known by here. They are unique; a name of the office's
/// own is taken as it is for the first shape that has it, those at the top level before members of
/// groups, else the shape's place makes it unique. A name lasts as long as its node, whatever other
/// shapes come and go, and a new node at the same place gets the same. The office's own names are
/// never changed.
class ShapeNames {
 public:
    ShapeNames(ShapeTree& tree, std::shared_ptr<Snapshot> snapshot)
        : tree_(tree), snapshot_(std::move(snapshot)) {}

    /// The name of a shape; given to it, and to others, when one is first asked for.
    const std::string& nameOf(ShapeNode& node);
    /// Gives a shape its name, if it has none. REQUIRES: called in a walk over the shapes.
    void give(ShapeNode& node, const ShapeReference& shape);
    /// Forgets the names of what is gone.
    void forgetDead();
    /// The shapes of these names, whether they were handed out or are the office's own. An error
    /// where no shape has the name.
    ShapeHandles find(const std::vector<std::string>& names);

 private:
    NodePointer given(const std::string& name) const;
    void giveUnique(ShapeNode& node, const std::string& own);
    void giveTopLevel();
    void giveAll();
    static std::string ownNameOf(const ShapeReference& shape);

    ShapeTree& tree_;
    std::shared_ptr<Snapshot> snapshot_;
    std::unordered_map<std::string, std::weak_ptr<ShapeNode>> given_;
    /// The reading of the top level of which all shapes have names.
    std::uint64_t named_ = 0;
};

}  // namespace huebrush::libreoffice
