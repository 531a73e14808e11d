// SPDX-License-Identifier: MPL-2.0

#include "ports/documents/FileDocument.h"

#include <utility>

#include "base/Error.h"
#include "ports/documents/FileFill.h"

namespace huebrush::documents {

using host::MsoShapeType;
using host::MsoTriState;

namespace {

constexpr std::int32_t kCommandFailed = 4198;

[[noreturn]] void throwNotAvailable() {
    throw base::Error(base::ErrorNumber::kNotAvailable, "Soubor tuto možnost nemá.");
}

class FileLine final : public host::LineFormat {
 public:
    explicit FileLine(NodePointer shape) : shape_(std::move(shape)) {}

    MsoTriState Visible() override {
        const std::vector<NodePointer> leaves = this->leaves();
        for (const NodePointer& each : leaves) {
            if (each->lineVisible != leaves.front()->lineVisible) {
                return MsoTriState::msoTriStateMixed;
            }
        }
        const bool visible = !leaves.empty() && leaves.front()->lineVisible;
        return visible ? MsoTriState::msoTrue : MsoTriState::msoFalse;
    }
    /// Only of shapes that no file has: there is no way to show or hide a line of a file.
    void setVisible(MsoTriState visible) override {
        const std::vector<NodePointer> leaves = this->leaves();
        for (const NodePointer& each : leaves) {
            if (each->number) throwNotAvailable();
        }
        for (const NodePointer& each : leaves) {
            each->lineVisible = visible != MsoTriState::msoFalse;
        }
    }
    std::int32_t ForeColorRGB() override {
        const std::vector<NodePointer> leaves = this->leaves();
        for (const NodePointer& each : leaves) {
            if (each->lineColor != leaves.front()->lineColor) return host::kMixed;
        }
        return leaves.empty() ? 0 : leaves.front()->lineColor;
    }
    void setForeColorRGB(std::int32_t color) override {
        for (const NodePointer& each : leaves()) {
            each->lineColor = color;
            each->isLineWritten = true;
        }
    }

 private:
    std::vector<NodePointer> leaves() const {
        requireAlive(*shape_);
        std::vector<NodePointer> leaves;
        collectLeaves(shape_, leaves);
        return leaves;
    }

    NodePointer shape_;
};

/// Some shapes of a document as its logic addresses them.
class FileShapes {
 public:
    FileShapes(std::shared_ptr<ShapeTree> tree, std::vector<NodePointer> shapes)
        : tree_(std::move(tree)), shapes_(std::move(shapes)) {}

    std::int32_t count() const { return static_cast<std::int32_t>(shapes_.size()); }
    host::ShapePointer item(std::int32_t index) const;
    void select() const { tree_->selected = shapes_; }

 private:
    std::shared_ptr<ShapeTree> tree_;
    std::vector<NodePointer> shapes_;
};

class GroupItems final : public host::ShapeList {
 public:
    explicit GroupItems(FileShapes shapes) : shapes_(std::move(shapes)) {}
    std::int32_t Count() override { return shapes_.count(); }
    host::ShapePointer Item(std::int32_t index) override { return shapes_.item(index); }

 private:
    FileShapes shapes_;
};

class Range final : public host::ShapeRange {
 public:
    Range(std::shared_ptr<ShapeTree> tree, const std::vector<NodePointer>& shapes)
        : shapes_(std::move(tree), shapes), fill_(shapes) {}
    std::int32_t Count() override { return shapes_.count(); }
    host::ShapePointer Item(std::int32_t index) override { return shapes_.item(index); }
    host::FillFormat& Fill() override { return fill_; }
    void Select() override { shapes_.select(); }

 private:
    FileShapes shapes_;
    FileFill fill_;
};

class FileShape final : public host::Shape {
 public:
    FileShape(std::shared_ptr<ShapeTree> tree, const NodePointer& node)
        : tree_(std::move(tree)), node_(node), fill_({node}), line_(node) {}

    std::string Name() override {
        requireAlive(*node_);
        return node_->name;
    }
    MsoShapeType Type() override {
        requireAlive(*node_);
        return node_->type;
    }
    std::shared_ptr<host::ShapeList> GroupItems() override {
        requireAlive(*node_);
        if (!node_->isGroup()) throw base::Error(kCommandFailed, "Objekt není skupina.");
        return std::make_shared<documents::GroupItems>(FileShapes(tree_, node_->members));
    }
    host::FillFormat& Fill() override { return fill_; }
    host::LineFormat& Line() override { return line_; }
    void Select() override {
        requireAlive(*node_);
        tree_->selected = {node_};
    }

 private:
    std::shared_ptr<ShapeTree> tree_;
    NodePointer node_;
    FileFill fill_;
    FileLine line_;
};

host::ShapePointer FileShapes::item(std::int32_t index) const {
    if (index < 1 || index > count()) {
        throw base::Error(base::ErrorNumber::kSubscriptOutOfRange,
                          "Požadovaný prvek kolekce neexistuje.");
    }
    return std::make_shared<FileShape>(tree_, shapes_[static_cast<std::size_t>(index - 1)]);
}

class Enumerator final : public host::ShapeEnumerator {
 public:
    explicit Enumerator(FileShapes shapes) : shapes_(std::move(shapes)) {}
    host::ShapePointer next() override {
        if (at_ == shapes_.count()) return nullptr;
        return shapes_.item(++at_);
    }

 private:
    FileShapes shapes_;
    std::int32_t at_ = 0;
};

class AllShapes final : public host::Shapes {
 public:
    explicit AllShapes(std::shared_ptr<FileDocument> document) : document_(std::move(document)) {}

    std::int32_t Count() override {
        return static_cast<std::int32_t>(document_->tree()->topLevel().size());
    }
    std::unique_ptr<host::ShapeEnumerator> enumerate() override {
        return std::make_unique<Enumerator>(
            FileShapes(document_->tree(), document_->tree()->topLevel()));
    }
    std::shared_ptr<host::ShapeRange> Range(const std::vector<std::string>& names) override {
        std::vector<NodePointer> shapes;
        shapes.reserve(names.size());
        for (const std::string& name : names) shapes.push_back(document_->tree()->find(name));
        return std::make_shared<documents::Range>(document_->tree(), shapes);
    }
    /// Only in a document without a file.
    host::ShapePointer AddShape(host::MsoAutoShapeType, float, float, float, float) override {
        if (document_->hasFile()) throwNotAvailable();
        Node node;
        node.write().fill.visible = MsoTriState::msoTrue;
        node.lineVisible = true;
        return std::make_shared<FileShape>(document_->tree(),
                                           document_->tree()->add(std::move(node)));
    }

 private:
    std::shared_ptr<FileDocument> document_;
};

class FileSelection final : public host::Selection {
 public:
    explicit FileSelection(std::shared_ptr<FileDocument> document)
        : document_(std::move(document)) {}

    std::shared_ptr<host::ShapeRange> ShapeRange() override {
        return std::make_shared<Range>(document_->tree(), document_->tree()->selected);
    }
    std::shared_ptr<host::Document> Document() override { return document_; }
    /// There is nothing that could draw a picture of a shape: the clipboard stays as it is.
    void Copy() override {}

 private:
    std::shared_ptr<FileDocument> document_;
};

}  // namespace

std::shared_ptr<FileDocument> FileDocument::create() {
    return std::shared_ptr<FileDocument>(new FileDocument());
}

std::shared_ptr<FileDocument> FileDocument::of(std::unique_ptr<ShapeFile> file) {
    auto document = create();
    document->tree_->add(file->shapes());
    document->file_ = std::move(file);
    return document;
}

std::shared_ptr<host::Shapes> FileDocument::Shapes() {
    return std::make_shared<AllShapes>(shared_from_this());
}

std::shared_ptr<host::Selection> FileDocument::Selection() {
    return std::make_shared<FileSelection>(shared_from_this());
}

std::string FileDocument::content() const {
    return file_->with(tree_->changes());
}

host::Dialogs& FileApplication::Dialogs() {
    throwNotAvailable();
}
host::CommandBars& FileApplication::CommandBars() {
    throwNotAvailable();
}
host::Template& FileApplication::NormalTemplate() {
    throwNotAvailable();
}

}  // namespace huebrush::documents
