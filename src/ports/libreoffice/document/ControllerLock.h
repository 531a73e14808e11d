// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/frame/XModel.hpp>

#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

/// While it lives, the office does not lay out or paint after every write.
class ControllerLock {
 public:
    using Model = com::sun::star::uno::Reference<com::sun::star::frame::XModel>;

    explicit ControllerLock(const Model& model) : model_(model) { model_->lockControllers(); }
    ControllerLock(const ControllerLock&) = delete;
    ControllerLock& operator=(const ControllerLock&) = delete;
    ~ControllerLock() {
        ignoringOffice([this] { model_->unlockControllers(); });
    }

 private:
    Model model_;
};

}  // namespace huebrush::libreoffice
