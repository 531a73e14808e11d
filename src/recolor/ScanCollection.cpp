// SPDX-License-Identifier: MPL-2.0

#include "recolor/ScanCollection.h"

#include <utility>

#include "fill/mFillGraficalObject.h"

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

void groupByFill(ScanCollection& shapes, const ScanSteps& steps) {
    const base::Count16 total = base::Count16::of(shapes.size());
    bool goesOn = true;
    const auto step = [&](std::size_t left) {
        goesOn = steps.taken(static_cast<std::size_t>(total) - left, total);
        return goesOn;
    };
    while (!shapes.empty() && step(shapes.size())) {
        const host::ShapePointer first = shapes.takeFirst();
        const auto group = std::make_shared<ShapeGroup>(1, first);
        shapes.takeWhere(
            [&](const host::ShapePointer& shape) {
                return fill::IsSameFill(first->Fill(), shape->Fill());
            },
            [&](const host::ShapePointer& shape, std::size_t left) {
                group->push_back(shape);
                return step(left);
            });
        if (!goesOn || !steps.found(group)) return;
    }
}

}  // namespace huebrush::recolor
