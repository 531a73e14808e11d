// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/DocumentModel.h"

#include <com/sun/star/util/XModifiable.hpp>

#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

ControllerLock::~ControllerLock() {
    ignoringOffice([this] { model_->unlockControllers(); });
}

void markModified(const ModelReference& model) {
    officeCalls([&] {
        css::uno::Reference<css::util::XModifiable>(model, css::uno::UNO_QUERY_THROW)
            ->setModified(true);
    });
}

base::Error closedError() {
    return {HostErrorNumber::kNoDocument, "Dokument byl zavřen."};
}

void throwClosed() {
    throw closedError();
}

}  // namespace huebrush::libreoffice
