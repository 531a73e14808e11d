// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Error.h"
#include "fill/CFill.h"
#include "host/Document.h"

namespace huebrush::recolor {

/// The shapes of one fill, in the order in which they were selected.
using ShapeGroup = std::vector<host::ShapePointer>;

/// Gives the destination of `fill` to the shapes, found again by their names in the document, in
/// one pass; it is the original then. What `fill` has reported of it; empty when all went well. An
/// error of the shapes or of the document passes to the caller.
std::string giveFill(fill::CFill& fill, const ShapeGroup& shapes, host::Document& document);

/// Takes all fills that were to reach one of the shapes out of those that have failed. The error of
/// the first of them, if any.
std::optional<base::Error> takeFailed(std::vector<host::FailedWrite>& failed,
                                      const ShapeGroup& shapes);

}  // namespace huebrush::recolor
