// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "host/Document.h"
#include "ports/word/com/Object.h"
#include "ports/word/host/Fill.h"

namespace huebrush::word {

/// A shape of one of Word's documents.
class WordShape final : public host::Shape {
 public:
    explicit WordShape(Object shape) : shape_(std::move(shape)), fill_(shape_), line_(shape_) {}

    std::string Name() override { return shape_.get("Name").toText(); }
    host::MsoShapeType Type() override;
    std::shared_ptr<host::ShapeList> GroupItems() override;
    host::FillFormat& Fill() override { return fill_; }
    host::LineFormat& Line() override { return line_; }
    void Select() override { shape_.call("Select"); }

 private:
    Object shape_;
    WordFill fill_;
    WordLine line_;
};

/// Some shapes that Word addresses together.
class WordShapeRange final : public host::ShapeRange {
 public:
    explicit WordShapeRange(Object range) : range_(std::move(range)), fill_(range_) {}

    std::int32_t Count() override { return range_.get("Count").toInteger(); }
    host::ShapePointer Item(std::int32_t index) override;
    host::FillFormat& Fill() override { return fill_; }
    void Select() override { range_.call("Select"); }

 private:
    Object range_;
    WordFill fill_;
};

/// The floating shapes of one of Word's documents.
class PartShapes final : public host::Shapes {
 public:
    explicit PartShapes(Object shapes) : shapes_(std::move(shapes)) {}

    std::int32_t Count() override { return shapes_.get("Count").toInteger(); }
    std::unique_ptr<host::ShapeEnumerator> enumerate() override;
    std::shared_ptr<host::ShapeRange> Range(const std::vector<std::string>& names) override;
    host::ShapePointer AddShape(host::MsoAutoShapeType type, float left, float top, float width,
                                float height) override;

 private:
    Object shapes_;
};

}  // namespace huebrush::word
