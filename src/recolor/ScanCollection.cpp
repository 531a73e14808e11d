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
    return std::move(left_[first_++]);
}

}  // namespace huebrush::recolor
