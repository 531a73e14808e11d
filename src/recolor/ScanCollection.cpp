#include "recolor/ScanCollection.h"

#include <utility>

namespace huebrush::recolor {

void ScanCollection::add(const host::ShapePointer& shape) {
    if (shape->Type() == host::MsoShapeType::msoGroup) {
        ShapeToCollection(*shape->GroupItems());
    } else {
        left_.push_back(shape);
    }
}

void ScanCollection::ShapeToCollection(host::ShapeList& GroupItems) {
    const std::int32_t count = GroupItems.Count();
    for (std::int32_t i = 1; i <= count; ++i) add(GroupItems.Item(i));
}

host::ShapePointer ScanCollection::takeFirst() {
    host::ShapePointer first = std::move(left_.front());
    left_.erase(left_.begin());
    return first;
}

void ScanCollection::takeWhere(
    const std::function<bool(const host::ShapePointer&)>& belongs,
    const std::function<void(const host::ShapePointer&, std::size_t)>& taken) {
    // Moving those that stay together once, instead of closing the gap at each removal, keeps a
    // pass linear.
    std::vector<host::ShapePointer> staying;
    staying.reserve(left_.size());
    const std::size_t total = left_.size();
    for (std::size_t at = 0; at < total; ++at) {
        if (belongs(left_[at])) {
            taken(left_[at], staying.size() + (total - at - 1));
        } else {
            staying.push_back(std::move(left_[at]));
        }
    }
    left_ = std::move(staying);
}

}  // namespace huebrush::recolor
