#include "jet/page/Space.h"

#include <algorithm>

namespace huebrush::jet {

/// A page without a bit counts as free, so a page that gets used needs one.
void Space::cover(PageNumber page) {
    if (free_.covers(page) || free_.lengthen(page, 0xFF)) return;
    const auto appended = [this] { return pages_->append(); };
    const PageNumber before = pages_->count();
    if (free_.bitmapPages().empty()) free_.useBitmapPages(appended, true);
    free_.coverByBitmap(page, appended, true);
    // The bitmap pages themselves are used, too.
    for (PageNumber each = before; each < pages_->count(); ++each) markUsed(each);
}

void Space::markUsed(PageNumber page) {
    cover(page);
    free_.drop(page);
}

PageNumber Space::take() {
    if (const auto found = free_.first(searchFrom_, pages_->count())) {
        searchFrom_ = *found + 1;
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
    searchFrom_ = std::min(searchFrom_, page);
}

void Space::requireWhole() const {
    constexpr PageNumber kNoPage = 0xFFFFFFFF;
    // What bitmap pages hold for pages to come is not known of other programs' files.
    if (!free_.bitmapPages().empty()) return;
    if (const auto used = free_.first(pages_->count(), kNoPage, false)) {
        throwDamage(*used, 0, rule::kFileWhole);
    }
}

bool Space::isFree(PageNumber page) const {
    return !free_.covers(page) || free_.has(page);
}

}  // namespace huebrush::jet
