// SPDX-License-Identifier: MPL-2.0

#include "ports/word/host/Shapes.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace huebrush::word {

namespace {

constexpr const char* kShape = "Shape";

/// The members of a group.
class WordGroupItems final : public host::ShapeList {
 public:
    explicit WordGroupItems(Object items) : items_(std::move(items)) {}

    std::int32_t Count() override { return items_.get("Count").toInteger(); }
    host::ShapePointer Item(std::int32_t index) override {
        return std::make_shared<WordShape>(items_.object(kShape, "Item", {index}));
    }

 private:
    Object items_;
};

class WordShapeEnumerator final : public host::ShapeEnumerator {
 public:
    explicit WordShapeEnumerator(Enumeration walk) : walk_(std::move(walk)) {}

    host::ShapePointer next() override {
        std::optional<Object> shape = walk_.next();
        return shape ? std::make_shared<WordShape>(std::move(*shape)) : nullptr;
    }

 private:
    Enumeration walk_;
};

}  // namespace

host::MsoShapeType WordShape::Type() {
    return static_cast<host::MsoShapeType>(shape_.get("Type").toInteger());
}

std::shared_ptr<host::ShapeList> WordShape::GroupItems() {
    return std::make_shared<WordGroupItems>(shape_.object("GroupShapes", "GroupItems"));
}

host::ShapePointer WordShapeRange::Item(std::int32_t index) {
    return std::make_shared<WordShape>(range_.object(kShape, "Item", {index}));
}

std::unique_ptr<host::ShapeEnumerator> PartShapes::enumerate() {
    return std::make_unique<WordShapeEnumerator>(shapes_.enumerate(kShape));
}

std::shared_ptr<host::ShapeRange> PartShapes::Range(const std::vector<std::string>& names) {
    return std::make_shared<WordShapeRange>(
        shapes_.object("ShapeRange", "Range", {Variant(names)}));
}

host::ShapePointer PartShapes::AddShape(host::MsoAutoShapeType type, float left, float top,
                                        float width, float height) {
    return std::make_shared<WordShape>(shapes_.object(
        kShape, "AddShape", {static_cast<std::int32_t>(type), left, top, width, height}));
}

}  // namespace huebrush::word
