#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "host/Document.h"

namespace huebrush::recolor {

using ShapeGroup = std::vector<host::ShapePointer>;

/// The shapes of a scan that have not found their group yet, in the order of the selection.
class ScanCollection {
 public:
    /// Adds the shape, or all that a group holds at any depth; groups themselves never enter.
    void add(const host::ShapePointer& shape);

    bool empty() const { return size() == 0; }
    std::size_t size() const { return left_.size() - first_; }

    /// Takes the first shape out.
    host::ShapePointer takeFirst();
    /// Offers every shape that is left, in order, and takes those out that `belongs` accepts;
    /// `taken` is called after each of them, with the number of shapes still left, and says whether
    /// to go on.
    template <class Belongs, class Taken>
    void takeWhere(const Belongs& belongs, const Taken& taken) {
        // Those that stay close up on the way: a gap closed at each removal would not be linear.
        const std::size_t total = left_.size();
        std::size_t staying = 0;
        bool goesOn = true;
        for (std::size_t at = first_; at < total; ++at) {
            if (goesOn && belongs(std::as_const(left_[at]))) {
                goesOn = taken(std::as_const(left_[at]), staying + (total - at - 1));
            } else {
                if (staying != at) left_[staying] = std::move(left_[at]);
                ++staying;
            }
        }
        left_.resize(staying);
        first_ = 0;
    }

 private:
    void ShapeToCollection(host::ShapeList& GroupItems);

    std::vector<host::ShapePointer> left_;
    /// Those before it have been taken.
    std::size_t first_ = 0;
};

}  // namespace huebrush::recolor
