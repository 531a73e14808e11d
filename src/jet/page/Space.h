// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "jet/page/PageOwners.h"
#include "jet/page/UsageMap.h"

namespace huebrush::jet {

/// Gives out the pages of a file and takes them back, by the file's map of free pages. The map is
/// not trusted: other programs keep it in several forms, and it may be damaged.
///
/// A page is free only if the map has a bit for it that says so. A page without a bit counts as
/// used: other programs let the map begin after pages that are in use.
class Space {
 public:
    Space(Pages& pages, RowId freeMap) : pages_(&pages), free_(pages, freeMap) {}

    /// What the pages of the file belong to, before anything is taken. Damage when one of them is
    /// free according to the map.
    void begin(PageOwners owners);

    /// A page of zeros: a free one of the file, else a new one at its end. Damage when the map
    /// calls a page free that belongs to something.
    PageNumber take();
    /// Gives a page back.
    void giveBack(PageNumber page);
    bool isFree(PageNumber page) const { return free_.has(page); }
    /// Damage when the file lacks pages that are used: it was truncated, and the content of a new
    /// page there would be taken for that of the old one.
    void requireWhole() const;
    const UsageMap& map() const { return free_; }

    /// What a usage map gets its bitmap pages from.
    UsageMap::NewPage pageSource() {
        return [this] { return take(); };
    }
    /// Forgets where the last search for a free page ended; after changes were undone.
    void restart() { searchFrom_ = 0; }

 private:
    bool mayUse(PageNumber page) const;
    void markUsed(PageNumber page);
    void cover(PageNumber page);

    Pages* pages_;
    UsageMap free_;
    PageOwners owners_;
    PageNumber searchFrom_ = 0;
};

}  // namespace huebrush::jet
