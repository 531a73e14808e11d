// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/Document.h"
#include "ports/libreoffice/document/DocumentModel.h"
#include "ports/libreoffice/document/DocumentShapes.h"
#include "ports/libreoffice/document/FillUndo.h"

namespace huebrush::libreoffice {

/// Brings new fills to the shapes of an open document.
///
/// A fill goes three ways of waiting, because each write to the office costs as much as thousands
/// of reads here. What is set of one fill is gathered and carried out together, as an edit. What
/// edits change inside an undo group waits until the group or the generation ends, or the office's
/// objects are needed. And the office itself neither lays out nor paints between many writes. What
/// waits is read as if it were written. Every call may throw base::Error, and nothing else.
class FillWriter {
 public:
    FillWriter(const ModelReference& model, DocumentShapes& shapes,
               std::shared_ptr<Snapshot> snapshot, bool hasWindow);
    FillWriter(const FillWriter&) = delete;
    FillWriter& operator=(const FillWriter&) = delete;

    // The edit of one fill.

    /// What is gathered of one fill.
    struct Gathered {
        mapping::FillWrites edit;
        /// The name in the document's table of the picture of a user texture.
        std::string userPicture;
    };
    /// What is gathered of this fill, for it to be added to; what was gathered of another one is
    /// carried out first. `shapes` are those that the fill is of; an error when one is gone.
    Gathered& gather(const host::FillFormat& fill, const ShapeHandles& shapes);
    /// Whether something is gathered of this fill.
    bool gathers(const host::FillFormat& fill) const;
    /// Carries out what is gathered. Those of its shapes that can have no fill are left alone.
    void finishEdit();

    // Many writes.

    /// Brings what waits to the office; the undo group answers for what fails.
    void flush();
    void restore(const FillSteps& steps);
    /// Lets the office lay out and paint again.
    void unlock() { locked_.reset(); }

    // Undo.

    void openGroup();
    /// Brings what waits to the office, and makes one entry of all changes in its Undo list.
    /// `restore` is called by that entry, at any later time. What failed since the group was opened
    /// is the result. Never throws.
    std::vector<host::FailedWrite> closeGroup(const std::string& title,
                                              std::function<void(const FillSteps&)> restore);
    /// The document is closed: what failed, and that changes cannot be undone any more.
    std::vector<host::FailedWrite> abandon();

    /// Never throws.
    void endGeneration();

 private:
    struct Current {
        const host::FillFormat* fill;
        ShapeHandles leaves;
        Gathered gathered;
    };
    struct Write {
        ShapeHandle leaf;
        /// Where the leaf says that it stands.
        std::vector<std::int32_t> place;
        ShapeFill now;
        ShapeFill wanted;
    };

    void changeFills(const Current& edit);
    void changeFill(const NodePointer& leaf, const Gathered& gathered);
    void queue(const NodePointer& leaf, ShapeFill wanted);
    std::vector<host::FailedWrite> writeOut();
    void writeMany(const std::function<void()>& writes, std::size_t count);
    void writeEach(std::vector<Write>& writes);
    void write(Write& one, const ShapeReference& shape);
    std::vector<std::int32_t> placeOf(const Write& one, const ShapeReference& shape);
    void keepingError(const std::function<void()>& step);
    void addUndoAction(const std::string& title, std::function<void(const FillSteps&)> restore);

    ModelReference model_;
    DocumentShapes& shapes_;
    std::shared_ptr<Snapshot> snapshot_;
    bool hasWindow_;

    std::optional<Current> current_;
    std::vector<Write> writes_;
    std::unordered_map<const ShapeNode*, std::size_t> writeOf_;
    /// Of a document without a window, from the first write to the generation's end.
    std::unique_ptr<ControllerLock> locked_;

    std::int32_t groups_ = 0;
    /// Since the outermost group was opened.
    std::vector<host::FailedWrite> failed_;
    std::vector<FillChange> changes_;
};

}  // namespace huebrush::libreoffice
