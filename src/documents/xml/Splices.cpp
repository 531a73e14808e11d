// SPDX-License-Identifier: MPL-2.0

#include "documents/xml/Splices.h"

#include <algorithm>

#include "base/Error.h"

namespace huebrush::documents {

std::string Splices::applied(std::string_view text, const ByteRange& part) const {
    std::vector<const Splice*> inOrder;
    std::size_t size = part.size();
    for (const Splice& each : splices_) {
        inOrder.push_back(&each);
        size += each.with.size();
    }
    // What is inserted where something else begins comes before it.
    std::stable_sort(inOrder.begin(), inOrder.end(), [](const Splice* a, const Splice* b) {
        if (a->range.begin != b->range.begin) return a->range.begin < b->range.begin;
        return a->range.size() == 0 && b->range.size() != 0;
    });
    std::string out;
    out.reserve(size);
    std::size_t at = part.begin;
    for (const Splice* each : inOrder) {
        if (each->range.begin < at || each->range.end > part.end) {
            throw base::Error(base::ErrorNumber::kInternal, "Two changes of a document overlap.");
        }
        out += text.substr(at, each->range.begin - at);
        out += each->with;
        at = each->range.end;
    }
    out += text.substr(at, part.end - at);
    return out;
}

}  // namespace huebrush::documents
