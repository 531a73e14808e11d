// SPDX-License-Identifier: MPL-2.0

#include "jet/page/RowPages.h"

namespace huebrush::jet {

namespace {

/// A page with less room than this is not considered for further rows.
constexpr std::size_t kUsefulRoom = 256;
/// The number of pages that are tried for a row before it gets a new one.
constexpr int kMostTries = 16;

}  // namespace

PageNumber RowPages::newPage(std::uint32_t stamp) {
    const PageNumber page = space_->take();
    clearDataPage(pages_->change(page), owner_, stamp);
    owned_.add(page, space_->pageSource());
    return page;
}

/// Keeps the map of pages with room in step with what a page has.
void RowPages::noteRoom(PageNumber page) {
    if (!keepsFreeMap_) return;
    const DataPage data = DataPage::open(*pages_, page);
    const bool useful = data.freeBytes() >= kUsefulRoom && fitsOn(data, kUsefulRoom - 2);
    if (useful == free_.has(page)) return;
    if (useful) {
        free_.add(page, space_->pageSource());
    } else {
        free_.drop(page);
    }
}

/// Maps may be wrong: the pages that they name are checked before they are written to.
DataPage RowPages::openOwn(PageNumber page) const {
    DataPage data = DataPage::open(*pages_, page);
    if (data.owner() != owner_) throwDamage(page, 4, rule::kOwner);
    if (!owned_.has(page)) throwDamage(page, 0, rule::kMapPage);
    return data;
}

RowId RowPages::add(ByteView row, std::uint16_t flags) {
    PageNumber start = 0;
    for (int tries = 0; keepsFreeMap_ && tries < kMostTries; ++tries) {
        const auto candidate = free_.first(start, pages_->count());
        if (!candidate) break;
        start = *candidate + 1;
        const DataPage page = openOwn(*candidate);
        if (!fitsOn(page, row.size())) continue;
        const RowId added{*candidate, addRow(pages_->change(*candidate), *candidate, row, flags)};
        noteRoom(*candidate);
        return added;
    }
    const PageNumber page = newPage(0);
    const RowId added{page, addRow(pages_->change(page), page, row, flags)};
    noteRoom(page);
    return added;
}

RowId RowPages::addOnNewPage(ByteView row, std::uint32_t stamp) {
    const PageNumber page = newPage(stamp);
    return {page, addRow(pages_->change(page), page, row, SlotFlag::kNone)};
}

void RowPages::remove(RowId row) {
    openOwn(row.page);
    deleteRow(pages_->change(row.page), row.page, row.slot);
    if (DataPage::open(*pages_, row.page).hasRows()) {
        noteRoom(row.page);
        return;
    }
    owned_.drop(row.page);
    if (keepsFreeMap_) free_.drop(row.page);
    space_->giveBack(row.page);
}

bool RowPages::replace(RowId row, ByteView bytes, std::uint16_t flags) {
    openOwn(row.page);
    if (!setRow(pages_->change(row.page), row.page, row.slot, bytes, flags)) return false;
    noteRoom(row.page);
    return true;
}

}  // namespace huebrush::jet
