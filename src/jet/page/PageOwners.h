// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <set>
#include <vector>

#include "jet/file/Error.h"

namespace huebrush::jet {

/// Which pages of a file belong to something, according to its tables and maps, and which tables
/// there are. See readOwners.
class PageOwners {
 public:
    bool has(PageNumber page) const { return page < owned_.size() && owned_[page]; }
    /// Whether the page had no owner until now.
    bool add(PageNumber page) {
        if (page >= owned_.size()) owned_.resize(page + std::size_t{1});
        const bool added = !owned_[page];
        owned_[page] = true;
        return added;
    }
    void drop(PageNumber page) {
        if (page < owned_.size()) owned_[page] = false;
    }

    /// The pages on which the definitions of tables begin.
    std::set<PageNumber> tables;

 private:
    std::vector<bool> owned_;
};

}  // namespace huebrush::jet
