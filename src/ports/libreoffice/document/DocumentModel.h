// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/frame/XModel.hpp>

#include "base/Error.h"

namespace huebrush::libreoffice {

/// An open document, as the office has it.
using ModelReference = com::sun::star::uno::Reference<com::sun::star::frame::XModel>;

/// While it lives, the office does not lay out or paint after every write.
class ControllerLock {
 public:
    explicit ControllerLock(const ModelReference& model) : model_(model) {
        model_->lockControllers();
    }
    ControllerLock(const ControllerLock&) = delete;
    ControllerLock& operator=(const ControllerLock&) = delete;
    ~ControllerLock();

 private:
    ModelReference model_;
};

/// Marks the document as differing from its file.
void markModified(const ModelReference& model);

/// What any use of a document that has been closed ends in.
base::Error closedError();
[[noreturn]] void throwClosed();

}  // namespace huebrush::libreoffice
