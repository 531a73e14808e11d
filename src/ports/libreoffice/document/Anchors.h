// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "ports/libreoffice/document/ShapeKind.h"

namespace huebrush::libreoffice {

/// What contains an object. The office does not always know: neither is set then, also for an
/// object that has been deleted.
struct Parent {
    bool isPage = false;
    ShapeReference group;
};
Parent parentOf(const ShapeReference& shape);

/// Whether a top-level object is tied to text of a header or footer, also through a frame or a
/// table in it, or to a text that is no longer part of the document. REQUIRES: not a group's member
/// (asking for the anchor of one crashes the office).
bool isAnchoredInHeaderOrFooter(const ShapeReference& shape);

}  // namespace huebrush::libreoffice
