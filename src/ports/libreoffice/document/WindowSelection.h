#pragma once

#include <com/sun/star/frame/XModel.hpp>
#include <vector>

#include "ports/libreoffice/document/ShapeKind.h"
#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

using ModelReference = com::sun::star::uno::Reference<com::sun::star::frame::XModel>;

/// Whether the document was opened without a window.
bool isHidden(const ModelReference& model);

/// The drawing objects selected in the document's window, groups as one; none when text is
/// selected. Those in headers and footers are left out.
std::vector<ShapeReference> selectionInWindow(const ModelReference& model);

/// Makes these the selection, in one call of the office; in as many as it takes, with its events
/// run in between, while it is still laying the document out. Whether events have run. REQUIRES:
/// not empty.
bool selectInWindow(const ContextReference& context, const ModelReference& model,
                    const std::vector<ShapeReference>& shapes);

}  // namespace huebrush::libreoffice
