#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "host/Document.h"

namespace huebrush::recolor {

using ShapeGroup = std::vector<host::ShapePointer>;

/// The shapes of a scan that have not found their group yet, in the order of the selection.
class ScanCollection {
 public:
    /// Adds the shape, or all that a group holds at any depth; groups themselves never enter.
    void add(const host::ShapePointer& shape);

    bool empty() const { return left_.empty(); }
    std::size_t size() const { return left_.size(); }

    /// Takes the first shape out.
    host::ShapePointer takeFirst();
    /// Offers every shape that is left, in order, and takes those out that `belongs` accepts;
    /// `taken` is called after each of them, with the number of shapes still left.
    void takeWhere(const std::function<bool(const host::ShapePointer&)>& belongs,
                   const std::function<void(const host::ShapePointer&, std::size_t)>& taken);

 private:
    void ShapeToCollection(host::ShapeList& GroupItems);

    std::vector<host::ShapePointer> left_;
};

}  // namespace huebrush::recolor
