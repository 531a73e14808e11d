// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>

#include "host/Application.h"

namespace huebrush::recolor {

/// A rectangle without outline in a hidden document of its own, which serves to show a fill: to
/// render its preview, or for the host's own tools to edit it. The document stays open until
/// close() is called: an error on the way leaves it, as the dialog's rules want it.
class ScratchShape {
 public:
    explicit ScratchShape(host::Application& application);

    host::FillFormat& Fill() const { return rectangle_->Fill(); }
    /// Makes the rectangle the selection of its document.
    void select() const { rectangle_->Select(); }
    /// Puts a picture of the selected rectangle onto the clipboard.
    void copy() const { document_->Selection()->Copy(); }
    void close() const { document_->Close(); }

 private:
    std::shared_ptr<host::Document> document_;
    host::ShapePointer rectangle_;
};

}  // namespace huebrush::recolor
