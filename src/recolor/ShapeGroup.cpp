// SPDX-License-Identifier: MPL-2.0

#include "recolor/ShapeGroup.h"

#include <algorithm>
#include <set>

#include "error/mError.h"

namespace huebrush::recolor {

namespace {

/// The names of those shapes that still have one.
std::set<std::string> knownNames(const ShapeGroup& shapes) {
    std::set<std::string> names;
    for (const host::ShapePointer& shape : shapes) {
        error::ignoring([&] { names.insert(shape->Name()); });
    }
    return names;
}

}  // namespace

std::string giveFill(fill::CFill& fill, const ShapeGroup& shapes, host::Document& document) {
    std::vector<std::string> names;
    names.reserve(shapes.size());
    for (const host::ShapePointer& shape : shapes) names.push_back(shape->Name());
    const auto range = document.Shapes()->Range(names);
    const std::string notWritten = fill.SetFormat(range->Fill());
    document.markModified();
    const std::string notKept = fill.ApplyChange();
    return notWritten.empty() ? notKept : notWritten;
}

std::optional<base::Error> takeFailed(std::vector<host::FailedWrite>& failed,
                                      const ShapeGroup& shapes) {
    const auto own = std::stable_partition(
        failed.begin(), failed.end(), [names = knownNames(shapes)](const host::FailedWrite& each) {
            return !names.contains(each.shape);
        });
    if (own == failed.end()) return std::nullopt;
    base::Error first = own->error;
    failed.erase(own, failed.end());
    return first;
}

}  // namespace huebrush::recolor
