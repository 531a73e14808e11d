// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <vector>

#include "host/Document.h"
#include "ports/libreoffice/document/BufferedFill.h"
#include "ports/libreoffice/document/OpenDocument.h"

namespace huebrush::libreoffice {

class WriterLine final : public host::LineFormat {
 public:
    WriterLine(std::shared_ptr<OpenDocument> document, ShapeHandle shape)
        : document_(std::move(document)), shape_(std::move(shape)) {}

    host::MsoTriState Visible() override { return read().visible; }
    void setVisible(host::MsoTriState visible) override;
    std::int32_t ForeColorRGB() override { return read().color; }
    void setForeColorRGB(std::int32_t color) override;

 private:
    const ShapeLine& read() const { return document_->shapes().lineOf(*shape_); }

    std::shared_ptr<OpenDocument> document_;
    ShapeHandle shape_;
};

class WriterShape final : public host::Shape {
 public:
    WriterShape(const std::shared_ptr<OpenDocument>& document, const ShapeHandle& shape)
        : document_(document), shape_(shape), fill_(document, {shape}), line_(document, shape) {}

    std::string Name() override;
    host::MsoShapeType Type() override;
    std::shared_ptr<host::ShapeList> GroupItems() override;
    host::FillFormat& Fill() override { return fill_; }
    host::LineFormat& Line() override { return line_; }
    void Select() override;

 private:
    std::shared_ptr<OpenDocument> document_;
    ShapeHandle shape_;
    BufferedFill fill_;
    WriterLine line_;
};

/// Some shapes as objects of the object model, made when they are asked for.
class ShapeObjects {
 public:
    ShapeObjects(std::shared_ptr<OpenDocument> document, ShapeHandles shapes)
        : document_(std::move(document)), shapes_(std::move(shapes)) {}

    std::int32_t count() const { return static_cast<std::int32_t>(shapes_.size()); }
    /// Counts from 1; an error (9) outside the list.
    host::ShapePointer item(std::int32_t index) const;
    void select() const { document_->select(nodesOf(shapes_)); }

 private:
    std::shared_ptr<OpenDocument> document_;
    ShapeHandles shapes_;
};

class WriterGroupItems final : public host::ShapeList {
 public:
    explicit WriterGroupItems(ShapeObjects shapes) : shapes_(std::move(shapes)) {}

    std::int32_t Count() override { return shapes_.count(); }
    host::ShapePointer Item(std::int32_t index) override { return shapes_.item(index); }

 private:
    ShapeObjects shapes_;
};

class WriterShapeRange final : public host::ShapeRange {
 public:
    WriterShapeRange(const std::shared_ptr<OpenDocument>& document, const ShapeHandles& shapes)
        : shapes_(document, shapes), fill_(document, shapes) {}

    std::int32_t Count() override { return shapes_.count(); }
    host::ShapePointer Item(std::int32_t index) override { return shapes_.item(index); }
    host::FillFormat& Fill() override { return fill_; }
    void Select() override { shapes_.select(); }

 private:
    ShapeObjects shapes_;
    BufferedFill fill_;
};

class WriterShapes final : public host::Shapes {
 public:
    explicit WriterShapes(std::shared_ptr<OpenDocument> document)
        : document_(std::move(document)) {}

    std::int32_t Count() override;
    std::unique_ptr<host::ShapeEnumerator> enumerate() override;
    std::shared_ptr<host::ShapeRange> Range(const std::vector<std::string>& names) override;
    host::ShapePointer AddShape(host::MsoAutoShapeType type, float left, float top, float width,
                                float height) override;

 private:
    std::shared_ptr<OpenDocument> document_;
};

}  // namespace huebrush::libreoffice
