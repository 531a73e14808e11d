// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Error.h"
#include "host/Shape.h"

namespace huebrush::host {

/// One walk over the shapes of a document, in their order; nothing at the end.
class ShapeEnumerator {
 public:
    ShapeEnumerator() = default;
    ShapeEnumerator(const ShapeEnumerator&) = delete;
    ShapeEnumerator& operator=(const ShapeEnumerator&) = delete;
    virtual ~ShapeEnumerator() = default;

    virtual ShapePointer next() = 0;
};

/// The floating shapes of a document: a group is one member, inline pictures are none.
class Shapes {
 public:
    Shapes() = default;
    Shapes(const Shapes&) = delete;
    Shapes& operator=(const Shapes&) = delete;
    virtual ~Shapes() = default;

    virtual std::int32_t Count() = 0;
    virtual std::unique_ptr<ShapeEnumerator> enumerate() = 0;
    /// The shapes of these names, in the order given. A name that no shape has is an error.
    virtual std::shared_ptr<ShapeRange> Range(const std::vector<std::string>& names) = 0;
    /// Places and sizes in points.
    virtual ShapePointer AddShape(MsoAutoShapeType type, float left, float top, float width,
                                  float height) = 0;
};

/// What the user, or our own code in a hidden document, has selected.
class Selection {
 public:
    Selection() = default;
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    virtual ~Selection() = default;

    virtual std::shared_ptr<host::ShapeRange> ShapeRange() = 0;
    virtual std::shared_ptr<class Document> Document() = 0;
    /// Puts a picture of the selected shape onto the clipboard of the forms runtime; no picture for
    /// a shape that shows nothing, neither fill nor outline.
    virtual void Copy() = 0;
};

/// A fill that did not reach its shape.
struct FailedWrite {
    std::string shape;  ///< Its name; empty where that is not known.
    base::Error error;
};

/// While it lives, all changes of shapes of its document go into one step of the host's Undo list.
/// A group in which nothing was written leaves no step. Ends on every path.
class UndoGroup {
 public:
    UndoGroup() = default;
    UndoGroup(const UndoGroup&) = delete;
    UndoGroup& operator=(const UndoGroup&) = delete;
    virtual ~UndoGroup() = default;

    /// Ends the group: carries out the writes that the host has gathered in it, and returns those
    /// that failed. An error of a write that was not gathered is that call's own. Never throws.
    virtual std::vector<FailedWrite> finish() { return {}; }
};

class Document {
 public:
    Document() = default;
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
    virtual ~Document() = default;

    virtual std::shared_ptr<host::Shapes> Shapes() = 0;
    /// The selection of the document's own window, whichever document is active.
    virtual std::shared_ptr<host::Selection> Selection() = 0;
    /// Closes without saving and without asking.
    virtual void Close() = 0;

    /// Whether both stand for the same open document.
    virtual bool isSame(const Document& other) const = 0;
    /// Whether the user may only look at the document. Its shapes can still be changed, but
    /// such a change could not be saved.
    virtual bool isReadOnly() { return false; }
    /// Optional ability: without it the host keeps its own undo steps, and the result is empty.
    virtual std::unique_ptr<UndoGroup> undoGroup(const std::string& title) {
        static_cast<void>(title);
        return nullptr;
    }
    /// Optional ability, for a host that does not notice a changed fill by itself: the user is
    /// asked about saving the document when it is closed.
    virtual void markModified() {}
};

}  // namespace huebrush::host
