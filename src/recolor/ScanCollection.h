// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "base/Count16.h"
#include "host/Document.h"
#include "recolor/ShapeGroup.h"

namespace huebrush::recolor {

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

/// How a scan is watched, and ended: each call says whether to go on.
struct ScanSteps {
    /// Before each group, and after each further shape of one: how many shapes have their group.
    std::function<bool(std::size_t taken, base::Count16 total)> taken;
    /// A group is complete.
    std::function<bool(std::shared_ptr<const ShapeGroup> group)> found;
};

/// Takes all shapes out, in groups of equal fill; the groups come in the order of their first
/// shapes. An error for more shapes than a 16-bit counter holds.
void groupByFill(ScanCollection& shapes, const ScanSteps& steps);

}  // namespace huebrush::recolor
