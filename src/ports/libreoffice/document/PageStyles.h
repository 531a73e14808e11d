// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "ports/libreoffice/document/DocumentModel.h"

namespace huebrush::libreoffice {

/// Whether any page of the document may have a header or footer.
bool hasHeadersOrFooters(const ModelReference& model);

}  // namespace huebrush::libreoffice
