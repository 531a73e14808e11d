#pragma once

#include <com/sun/star/frame/XModel.hpp>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/Document.h"
#include "ports/libreoffice/document/FillPool.h"
#include "ports/libreoffice/document/FillTables.h"
#include "ports/libreoffice/document/FillUndo.h"
#include "ports/libreoffice/document/ShapeNames.h"
#include "ports/libreoffice/document/ShapeTree.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Snapshot.h"

namespace huebrush::libreoffice {

class BufferedFill;

/// One open document: its shapes, what is known of their fills, and the writes under way. Every
/// call may throw base::Error, and nothing else.
class OpenDocument : public std::enable_shared_from_this<OpenDocument> {
 public:
    using Model = DrawPage::Model;

    OpenDocument(const ContextReference& context, const Model& model,
                 std::shared_ptr<Snapshot> snapshot);
    OpenDocument(const OpenDocument&) = delete;
    OpenDocument& operator=(const OpenDocument&) = delete;
    ~OpenDocument();

    /// The model, its tree, names and tables; an error when the document has been closed.
    const Model& model() const;
    ShapeTree& tree();
    ShapeNames& names();
    FillTables& tables();
    const ContextReference& context() const { return context_; }
    const std::shared_ptr<Snapshot>& snapshot() const { return snapshot_; }

    // Reading. What is current is answered at once; an error of reading it is thrown again.

    /// Marks what was read of fills; zero outside a handler, where nothing read holds.
    using Stamp = std::uint64_t;
    /// For what is read now.
    Stamp stamp() const { return snapshot_->generation() == Snapshot::kNever ? 0 : stamp_; }
    /// Whether nothing was written, and no events ran, since the stamp was given.
    bool holds(Stamp stamp) const { return stamp == stamp_; }
    const HostFill& fillOf(ShapeNode& node) {
        if (buffered_ != nullptr) commitBuffered();
        parts();
        if (!snapshot_->isCurrent(node.fillRead)) readFillOf(node);
        if (node.fillError) throw base::Error(*node.fillError);
        return node.fill.host;
    }
    const ShapeLine& lineOf(ShapeNode& node) {
        parts();
        if (!snapshot_->isCurrent(node.lineRead)) readLineOf(node);
        if (node.lineError) throw base::Error(*node.lineError);
        return node.line;
    }
    /// The fill's properties as this document keeps them: good while the present stamp holds.
    const host::FillProperties& keep(const HostFill& fill);
    /// The common answer of several shapes.
    HostFill commonFillOf(const std::vector<NodePointer>& nodes);
    /// The shape, or all members of a group down to the last, that are no groups.
    void collectLeaves(const NodePointer& node, std::vector<NodePointer>& leaves);

    // Writing.

    /// Fills of these shapes are being written: writes begun elsewhere are carried out before.
    void buffer(BufferedFill* fill);
    void unbuffer(const BufferedFill* fill) {
        if (buffered_ == fill) buffered_ = nullptr;
    }
    /// Carries out writes that are still buffered.
    void commitBuffered();
    /// Changes the fills of shapes that are no groups; those that can have none are left alone. In
    /// an undo group the office is told when the group or the generation ends, or its objects are
    /// needed; else at once. `userPicture` is the table's name of a user texture's picture.
    void changeFills(const std::vector<NodePointer>& leaves, const FillEdit& edit,
                     const std::string& userPicture);
    void setLineVisible(ShapeNode& node, bool visible);
    /// Carries out the writes that wait in an undo group, which answers for those that fail.
    void flush();

    /// Runs a change of many fills that goes to the office's objects directly.
    void changeFills(const std::function<void()>& change, std::size_t count);

    /// Whether it is shown to a user who may not change it. A document without a window is never
    /// read-only: it is stored elsewhere, if at all.
    bool isReadOnly();
    std::unique_ptr<host::UndoGroup> undoGroup(const std::string& title);
    void markModified();

    // Selection.

    std::vector<NodePointer> selected();
    /// Nothing happens when no shape is given.
    void select(const std::vector<NodePointer>& nodes);
    /// Tells the office of the selection of a document without a window, which is ours alone until
    /// one of its dialogs is to work on it: telling costs as much as a picture of the shape.
    void showSelection();

    /// A generation ends. Never throws.
    void endGeneration();
    /// The office closes the document, or has closed it: lets go of all of its objects.
    void close();

 private:
    class Group;
    class LockedControllers;
    struct Parts;
    struct Write {
        NodePointer node;
        /// Where the node says that it stands.
        std::vector<std::int32_t> place;
        ShapeFill now;
        ShapeFill wanted;
    };

    Parts& parts() const {
        if (!parts_) throwClosed();
        return *parts_;
    }
    [[noreturn]] static void throwClosed();
    void readFillOf(ShapeNode& node);
    void readLineOf(ShapeNode& node);
    ShapeLine commonLineIn(ShapeNode& group);
    HostFill commonFillIn(ShapeNode& group);
    void readFromShape(ShapeNode& node, const ShapeReference& shape);
    void changeFill(const NodePointer& leaf, const FillEdit& edit, const std::string& userPicture);
    void write(Write& one, const ShapeReference& shape);
    void writeEach(std::vector<Write>& writes);
    std::vector<std::int32_t> placeOf(const Write& one, const ShapeReference& shape);
    std::vector<host::FailedWrite> writeOut();
    void keepingError(const std::function<void()>& step);
    std::vector<host::FailedWrite> endUndoGroup(const std::string& title);
    void addUndoAction(const std::string& title);
    void selectInWindow(const std::vector<NodePointer>& nodes);
    void lockUntilGenerationEnds();

    ContextReference context_;
    std::shared_ptr<Snapshot> snapshot_;
    std::unique_ptr<Parts> parts_;
    BufferedFill* buffered_ = nullptr;
    /// Grows with every write that is begun or carried out, and with every generation's end.
    Stamp stamp_ = 1;
    FillPool pool_;

    /// Of a document without a window, from the first write to the generation's end.
    std::unique_ptr<LockedControllers> locked_;
    std::vector<Write> writes_;
    std::unordered_map<const ShapeNode*, std::size_t> writeOf_;
    std::int32_t undoGroups_ = 0;
    /// Writes of the undo group that have failed.
    std::vector<host::FailedWrite> failed_;
    std::vector<FillChange> changes_;

    /// Of a document without a window, whose selection is ours alone.
    std::vector<NodePointer> selection_;
};

}  // namespace huebrush::libreoffice
