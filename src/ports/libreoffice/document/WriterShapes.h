#pragma once

#include <memory>
#include <vector>

#include "host/Document.h"
#include "ports/libreoffice/document/BufferedFill.h"
#include "ports/libreoffice/document/OpenDocument.h"

namespace huebrush::libreoffice {

class WriterLine final : public host::LineFormat {
 public:
    WriterLine(std::shared_ptr<OpenDocument> document, NodePointer node)
        : document_(std::move(document)), node_(std::move(node)) {}

    host::MsoTriState Visible() override { return document_->lineOf(*node_).visible; }
    void setVisible(host::MsoTriState visible) override;
    std::int32_t ForeColorRGB() override { return document_->lineOf(*node_).color; }

 private:
    std::shared_ptr<OpenDocument> document_;
    NodePointer node_;
};

class WriterShape final : public host::Shape {
 public:
    WriterShape(const std::shared_ptr<OpenDocument>& document, const NodePointer& node)
        : document_(document), node_(node), fill_(document, node), line_(document, node) {}

    std::string Name() override;
    host::MsoShapeType Type() override;
    std::shared_ptr<host::ShapeList> GroupItems() override;
    host::FillFormat& Fill() override { return fill_; }
    host::LineFormat& Line() override { return line_; }
    void Select() override;

 private:
    std::shared_ptr<OpenDocument> document_;
    NodePointer node_;
    ShapeFillFormat fill_;
    WriterLine line_;
};

/// Some nodes as shapes, made when they are asked for.
class ShapesOfNodes {
 public:
    ShapesOfNodes(std::shared_ptr<OpenDocument> document, std::vector<NodePointer> nodes)
        : document_(std::move(document)), nodes_(std::move(nodes)) {}

    std::int32_t count() const { return static_cast<std::int32_t>(nodes_.size()); }
    /// Counts from 1; an error (9) outside the list.
    host::ShapePointer item(std::int32_t index) const;
    const std::vector<NodePointer>& nodes() const { return nodes_; }
    const std::shared_ptr<OpenDocument>& document() const { return document_; }

 private:
    std::shared_ptr<OpenDocument> document_;
    std::vector<NodePointer> nodes_;
};

class WriterGroupItems final : public host::ShapeList {
 public:
    explicit WriterGroupItems(ShapesOfNodes shapes) : shapes_(std::move(shapes)) {}

    std::int32_t Count() override { return shapes_.count(); }
    host::ShapePointer Item(std::int32_t index) override { return shapes_.item(index); }

 private:
    ShapesOfNodes shapes_;
};

class WriterShapeRange final : public host::ShapeRange {
 public:
    WriterShapeRange(const std::shared_ptr<OpenDocument>& document,
                     const std::vector<NodePointer>& nodes)
        : shapes_(document, nodes), fill_(document, nodes) {}

    std::int32_t Count() override { return shapes_.count(); }
    host::ShapePointer Item(std::int32_t index) override { return shapes_.item(index); }
    host::FillFormat& Fill() override { return fill_; }
    void Select() override { shapes_.document()->select(shapes_.nodes()); }

 private:
    ShapesOfNodes shapes_;
    RangeFillFormat fill_;
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
