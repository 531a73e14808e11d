// SPDX-License-Identifier: MPL-2.0

#include "jet/page/Space.h"

#include <algorithm>

namespace huebrush::jet {

namespace {

/// The header, the page of the free map and the definitions of the four system tables.
constexpr PageNumber kFirstPageToGive = 6;

}  // namespace

void Space::begin(PageOwners owners) {
    owners_ = std::move(owners);
    restart();
    for (auto page = free_.first(0, pages_->count()); page;
         page = free_.first(*page + 1, pages_->count())) {
        if (*page < kFirstPageToGive || owners_.has(*page)) {
            throwDamage(*page, 0, rule::kUsedNotFree);
        }
    }
}

/// Gives the page a bit of its own. Pages of the file that get one along with it count as used, as
/// they did without; future ones are free.
void Space::cover(PageNumber page) {
    const PageNumber end = pages_->count();
    free_.cover(
        page, [this] { return pages_->append(); }, [end](PageNumber each) { return each >= end; });
    // The bitmap pages themselves are used, too.
    for (PageNumber each = end; each < pages_->count(); ++each) markUsed(each);
}

void Space::markUsed(PageNumber page) {
    cover(page);
    free_.drop(page);
}

/// Whether a page that the map calls free is to be used. Other programs leave the content
/// of a freed page, so that it may still name a table that exists: such a page is left alone.
bool Space::mayUse(PageNumber page) const {
    if (page < kFirstPageToGive || owners_.has(page)) throwDamage(page, 0, rule::kUsedNotFree);
    const PagePointer content = pages_->read(page);
    const std::uint8_t type = (*content)[0];
    const bool namesTable =
        type == PageType::kData || type == PageType::kNode || type == PageType::kLeaf;
    return !namesTable || !owners_.tables.contains(Reader(*content, page).u32(4));
}

PageNumber Space::take() {
    while (const auto found = free_.first(searchFrom_, pages_->count())) {
        searchFrom_ = *found + 1;
        if (!mayUse(*found)) continue;
        markUsed(*found);
        pages_->change(*found).fill(0);
        return *found;
    }
    searchFrom_ = pages_->count();
    const PageNumber page = pages_->append();
    markUsed(page);
    return page;
}

void Space::giveBack(PageNumber page) {
    Page& content = pages_->change(page);
    const std::uint8_t type = content[0];
    content.fill(0);
    content[0] = type;
    if (type == PageType::kData) content[0] = PageType::kFreedData;
    if (type == PageType::kDefinition) content[0] = PageType::kFreedDefinition;
    content[1] = 1;
    cover(page);
    free_.add(page, [this] { return pages_->append(); });
    owners_.drop(page);
    searchFrom_ = std::min(searchFrom_, page);
}

void Space::requireWhole() const {
    constexpr PageNumber kNoPage = 0xFFFFFFFF;
    // What bitmap pages of other programs' files hold for future pages is not known.
    if (!free_.bitmapPages().empty()) return;
    if (const auto used = free_.first(pages_->count(), kNoPage, false)) {
        throwDamage(*used, 0, rule::kFileWhole);
    }
}

}  // namespace huebrush::jet
