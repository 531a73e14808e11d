#pragma once

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "ports/libreoffice/document/ShapeTree.h"

namespace huebrush::libreoffice {

/// The names that a document's shapes are known by here. They are unique and last as long as the
/// node; the office's own name is taken where no other shape has been given it, and is never
/// changed. Other shapes may come and go meanwhile.
class ShapeNames {
 public:
    explicit ShapeNames(ShapeTree& tree) : tree_(tree) {}

    /// The name of a shape; given to it when it is first asked for.
    const std::string& nameOf(ShapeNode& node);
    /// The shapes of these names, whether they were handed out or are the office's own. An error
    /// where no shape has the name.
    std::vector<NodePointer> find(const std::vector<std::string>& names);

 private:
    NodePointer given(const std::string& name) const;
    void give(ShapeNode& node, const std::string& own);
    void giveAll();
    static std::string ownNameOf(const ShapeReference& shape);

    ShapeTree& tree_;
    std::unordered_map<std::string, std::weak_ptr<ShapeNode>> given_;
    /// The last number tried behind a name that several shapes have.
    std::map<std::string, std::int32_t> lastNumber_;
};

}  // namespace huebrush::libreoffice
