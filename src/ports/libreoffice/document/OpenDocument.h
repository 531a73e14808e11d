// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Document.h"
#include "ports/libreoffice/document/DocumentModel.h"
#include "ports/libreoffice/document/DocumentSelection.h"
#include "ports/libreoffice/document/DocumentShapes.h"
#include "ports/libreoffice/document/FillWriter.h"

namespace huebrush::libreoffice {

/// One open document: what there is of it while it is open, and what has to happen in one part of
/// it before another one is asked. Every call may throw base::Error, and nothing else; it does so
/// when the document has been closed.
class OpenDocument : public std::enable_shared_from_this<OpenDocument> {
 public:
    OpenDocument(const ContextReference& context, const ModelReference& model,
                 std::shared_ptr<Snapshot> snapshot);
    OpenDocument(const OpenDocument&) = delete;
    OpenDocument& operator=(const OpenDocument&) = delete;

    bool isOpen() const { return parts_.has_value(); }
    const ModelReference& model() const { return parts().model; }
    DocumentShapes& shapes() { return parts().shapes; }
    FillWriter& fills() { return parts().fills; }
    const ContextReference& context() const { return context_; }

    // Fills as they will be when all that is gathered of them is carried out.

    using Stamp = DocumentShapes::Stamp;
    bool holds(Stamp stamp) const { return parts_ && parts_->shapes.holds(stamp); }
    const mapping::HostFill& fillOf(ShapeNode& node);
    mapping::HostFill commonFillOf(const std::vector<NodePointer>& nodes);
    /// Before the office's own objects are used: brings all writes to them.
    void finishWrites();

    // Selection.

    std::vector<NodePointer> selected() { return parts().selection.selected(); }
    /// Nothing happens when no shape is given.
    void select(const std::vector<NodePointer>& nodes);
    /// Brings the selection to the office, for one of its dialogs.
    void showSelection();

    /// Whether it is shown to a user who may not change it. A document without a window is never
    /// read-only: it is stored elsewhere, if at all.
    bool isReadOnly();
    std::unique_ptr<host::UndoGroup> undoGroup(const std::string& title);

    /// A generation ends. Never throws.
    void endGeneration();
    /// The office closes the document, or has closed it: releases all of its objects.
    void close();

 private:
    class Group;
    struct Parts {
        Parts(const ContextReference& context, const ModelReference& document,
              const std::shared_ptr<Snapshot>& snapshot);

        ModelReference model;
        bool hasWindow;
        DocumentShapes shapes;
        FillWriter fills;
        DocumentSelection selection;
    };

    const Parts& parts() const {
        if (!parts_) throwClosed();
        return *parts_;
    }
    Parts& parts() {
        if (!parts_) throwClosed();
        return *parts_;
    }
    std::vector<host::FailedWrite> closeGroup(const std::string& title);

    ContextReference context_;
    std::optional<Parts> parts_;
    /// What an undo group that is still open answers for when the document has been closed.
    std::vector<host::FailedWrite> abandoned_;
};

}  // namespace huebrush::libreoffice
