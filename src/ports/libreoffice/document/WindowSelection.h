// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <vector>

#include "ports/libreoffice/document/DocumentModel.h"
#include "ports/libreoffice/document/ShapeKind.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Whether the document was opened without a window.
bool isHidden(const ModelReference& model);

/// The drawing objects selected in the document's window, groups as one; none when text is
/// selected. Those in headers and footers are omitted.
std::vector<ShapeReference> selectionInWindow(const ModelReference& model);

/// Makes these the selection, in one call of the office; in two where it has not laid out all of
/// the document yet, which it is made to do in between. Whether that was so, and with it events of
/// the office may have run. REQUIRES: not empty.
bool selectInWindow(const ContextReference& context, const ModelReference& model,
                    const std::vector<ShapeReference>& shapes);

}  // namespace huebrush::libreoffice
