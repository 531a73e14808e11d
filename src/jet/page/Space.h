#pragma once

#include "jet/page/UsageMap.h"

namespace huebrush::jet {

/// Gives out the pages of a file and takes them back, by the file's map of free pages.
class Space {
 public:
    Space(Pages& pages, RowId freeMap) : pages_(&pages), free_(pages, freeMap) {}

    /// A page of zeros: a free one of the file, else a new one at its end.
    PageNumber take();
    /// Gives a page back.
    void giveBack(PageNumber page);
    bool isFree(PageNumber page) const;
    /// Damage when the file lacks pages that are used: somebody has cut it off, and what a new page
    /// there gets would be taken for what the old one had.
    void requireWhole() const;
    const UsageMap& map() const { return free_; }

    /// What a usage map gets its bitmap pages from.
    UsageMap::NewPage pageSource() {
        return [this] { return take(); };
    }
    /// Forgets where the last search for a free page ended; after changes were taken back.
    void restart() { searchFrom_ = 0; }

 private:
    void markUsed(PageNumber page);
    void cover(PageNumber page);

    Pages* pages_;
    UsageMap free_;
    PageNumber searchFrom_ = 0;
};

}  // namespace huebrush::jet
