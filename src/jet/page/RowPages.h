// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "jet/page/Space.h"

namespace huebrush::jet {

/// The data pages of one table or of one long-value column: finds room for rows, and frees
/// pages that have none left. Damage when a page is written to that is not in the map of owned
/// pages or names another owner.
class RowPages {
 public:
    /// With page 0 as the free map, each row gets a page of its own.
    RowPages(Pages& pages, Space& space, RowId owned, RowId free, std::uint32_t owner)
        : pages_(&pages),
          space_(&space),
          owned_(pages, owned),
          free_(pages, free),
          keepsFreeMap_(free.page != 0),
          owner_(owner) {}

    RowId add(ByteView row, std::uint16_t flags = SlotFlag::kNone);
    /// A row on a new page that bears a stamp.
    RowId addOnNewPage(ByteView row, std::uint32_t stamp = 0);
    void remove(RowId row);
    /// Gives a row other bytes in its place. Whether there was room.
    bool replace(RowId row, ByteView bytes, std::uint16_t flags);

 private:
    DataPage openOwn(PageNumber page) const;
    PageNumber newPage(std::uint32_t stamp);
    void noteRoom(PageNumber page);

    Pages* pages_;
    Space* space_;
    UsageMap owned_;
    UsageMap free_;
    bool keepsFreeMap_;
    std::uint32_t owner_;
};

}  // namespace huebrush::jet
