// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "jet/page/Pages.h"
#include "jet/page/RowId.h"

namespace huebrush::jet {

/// The owner field of pages that hold long values ("LVAL").
inline constexpr std::uint32_t kLongValueOwner = 0x4C41564C;
/// A row number fits a byte, and 255 slots are the most that a page has.
inline constexpr std::size_t kMaxSlots = 255;
inline constexpr std::size_t kMaxRowSize = 4060;
inline constexpr std::size_t kDataPageHeader = 14;

namespace SlotFlag {
inline constexpr std::uint16_t kNone = 0;
inline constexpr std::uint16_t kMoved = 0x4000;   ///< a pointer to where the row is now
inline constexpr std::uint16_t kTarget = 0x8000;  ///< reached only through a moved slot
inline constexpr std::uint16_t kDeleted = 0xC000;
}  // namespace SlotFlag

/// What the slots of a data page say: table rows, long values, or usage maps. Reading a slot checks
/// that its row lies on the page (rules D1, D2).
class DataPage {
 public:
    struct Slot {
        std::size_t offset;
        std::size_t end;
        std::uint16_t flags;

        std::size_t size() const { return end - offset; }
        bool deleted() const { return flags == SlotFlag::kDeleted; }
    };

    /// Damage when the page is not one of rows.
    static DataPage open(Pages& pages, PageNumber number);
    DataPage(PagePointer page, PageNumber number);

    PageNumber number() const { return number_; }
    std::uint32_t owner() const { return reader().u32(4); }
    std::uint32_t stamp() const { return reader().u32(8); }
    std::size_t statedFreeBytes() const { return reader().u16(2); }
    std::size_t slotCount() const { return slotCount_; }
    Slot slot(std::size_t index) const;
    Reader row(const Slot& slot) const { return reader().part(slot.offset, slot.size()); }
    /// What is really free: the gap between slot table and rows.
    std::size_t freeBytes() const;
    bool hasRows() const;
    const PagePointer& page() const { return page_; }

 private:
    Reader reader() const { return {*page_, number_}; }

    PagePointer page_;
    PageNumber number_;
    std::size_t slotCount_;
};

/// Turns a page into an empty data page.
void clearDataPage(Page& page, std::uint32_t owner, std::uint32_t stamp = 0);

/// Whether a row of that size can be added.
bool fitsOn(const DataPage& page, std::size_t size);

/// Adds a row, in a deleted slot if there is one. REQUIRES: it fits.
std::uint8_t addRow(Page& page, PageNumber number, ByteView row, std::uint16_t flags);

/// Gives a slot other bytes; the rows below it move. Whether there was room.
bool setRow(Page& page, PageNumber number, std::uint8_t slot, ByteView row, std::uint16_t flags);

/// Marks a slot as deleted and gives its bytes back.
void deleteRow(Page& page, PageNumber number, std::uint8_t slot);

}  // namespace huebrush::jet
