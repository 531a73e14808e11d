// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "documents/xml/Outline.h"

namespace huebrush::documents {

/// Changes of a text by the places in its former state: everything else stays byte for byte.
class Splices {
 public:
    void replace(const ByteRange& range, std::string with) {
        splices_.push_back({range, std::move(with)});
    }
    void insert(std::size_t at, std::string what) { replace({at, at}, std::move(what)); }
    void remove(const ByteRange& range) { replace(range, {}); }

    bool empty() const { return splices_.empty(); }

    /// The changed text. Several insertions at one place come in the order in which they were asked
    /// for. A base::Error (51) when two changes overlap.
    std::string applied(std::string_view text) const { return applied(text, {0, text.size()}); }
    /// The same of a part of the text, which all changes are inside of.
    std::string applied(std::string_view text, const ByteRange& part) const;

 private:
    struct Splice {
        ByteRange range;
        std::string with;
    };
    std::vector<Splice> splices_;
};

}  // namespace huebrush::documents
