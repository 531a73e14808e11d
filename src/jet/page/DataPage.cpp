// SPDX-License-Identifier: MPL-2.0

#include "jet/page/DataPage.h"

#include <algorithm>
#include <cstring>

namespace huebrush::jet {

namespace {

constexpr std::uint16_t kOffsetMask = 0x1FFF;
constexpr std::uint16_t kFlagMask = 0xC000;

/// A view of a page that is being changed, which must not outlive the change.
DataPage viewOf(const Page& page, PageNumber number) {
    return {PagePointer(page), number};
}

void setSlot(Page& page, std::size_t index, std::size_t offset, std::uint16_t flags) {
    Writer(page).u16(kDataPageHeader + 2 * index, offset | flags);
}

}  // namespace

DataPage DataPage::open(Pages& pages, PageNumber number) {
    return {pages.read(number, PageType::kData), number};
}

DataPage::DataPage(PagePointer page, PageNumber number)
    : page_(std::move(page)), number_(number), slotCount_(reader().u16(12)) {
    reader().require(kDataPageHeader + 2 * slotCount_ <= kPageSize, 12, rule::kSlotTable);
}

DataPage::Slot DataPage::slot(std::size_t index) const {
    const Reader bytes = reader();
    const std::size_t at = kDataPageHeader + 2 * index;
    bytes.require(index < slotCount_, 12, rule::kRowExists);
    const std::uint16_t value = bytes.u16(at);
    const std::size_t end = index == 0 ? kPageSize : bytes.u16(at - 2) & kOffsetMask;
    const std::size_t offset = value & kOffsetMask;
    bytes.require(offset >= kDataPageHeader + 2 * slotCount_ && offset <= end && end <= kPageSize,
                  at, rule::kSlotInside);
    return {offset, end, static_cast<std::uint16_t>(value & kFlagMask)};
}

std::size_t DataPage::freeBytes() const {
    const std::size_t lowest = slotCount_ == 0 ? kPageSize : slot(slotCount_ - 1).offset;
    return lowest - kDataPageHeader - 2 * slotCount_;
}

bool DataPage::hasRows() const {
    for (std::size_t i = 0; i < slotCount_; ++i) {
        if (!slot(i).deleted()) return true;
    }
    return false;
}

void clearDataPage(Page& page, std::uint32_t owner, std::uint32_t stamp) {
    page.fill(0);
    const Writer out(page);
    out.u8(0, PageType::kData);
    out.u8(1, 1);
    out.u16(2, kPageSize - kDataPageHeader);
    out.u32(4, owner);
    out.u32(8, stamp);
}

bool fitsOn(const DataPage& page, std::size_t size) {
    for (std::size_t i = 0; i < page.slotCount(); ++i) {
        const DataPage::Slot slot = page.slot(i);
        if (slot.deleted()) return page.freeBytes() + slot.size() >= size;
    }
    return page.slotCount() < kMaxSlots && page.freeBytes() >= size + 2;
}

std::uint8_t addRow(Page& page, PageNumber number, ByteView row, std::uint16_t flags) {
    const DataPage before = viewOf(page, number);
    const std::size_t count = before.slotCount();
    std::size_t index = 0;
    while (index < count && !before.slot(index).deleted()) ++index;
    if (index == count) {
        const std::size_t lowest = before.freeBytes() + kDataPageHeader + 2 * count;
        setSlot(page, count, lowest, SlotFlag::kDeleted);
        Writer(page).u16(12, count + 1);
    }
    const auto slot = static_cast<std::uint8_t>(index);
    if (!setRow(page, number, slot, row, flags)) {
        throw Error(base::ErrorNumber::kInternal, "Řádek se nevejde na stranu databáze.",
                    "a row does not fit on its page");
    }
    return slot;
}

bool setRow(Page& page, PageNumber number, std::uint8_t slot, ByteView row, std::uint16_t flags) {
    const DataPage view = viewOf(page, number);
    // On a damaged page the rows of later slots need not be below.
    for (std::size_t i = slot; i < view.slotCount(); ++i) view.slot(i);
    const DataPage::Slot old = view.slot(slot);
    const std::size_t free = view.freeBytes() + old.size();
    if (row.size() > free) return false;
    const std::size_t count = view.slotCount();
    const std::size_t lowest = view.slot(count - 1).offset;
    const std::size_t offset = old.end - row.size();
    // The rows below move by what this one grows or shrinks.
    std::memmove(page.data() + lowest + offset - old.offset, page.data() + lowest,
                 old.offset - lowest);
    if (offset > old.offset) {
        std::fill_n(page.begin() + static_cast<std::ptrdiff_t>(lowest), offset - old.offset,
                    std::uint8_t{0});
    }
    for (std::size_t i = slot + std::size_t{1}; i < count; ++i) {
        const std::uint16_t value = Reader(page, number).u16(kDataPageHeader + 2 * i);
        setSlot(page, i, (value & kOffsetMask) + offset - old.offset, value & kFlagMask);
    }
    const Writer out(page);
    out.bytes(offset, row);
    setSlot(page, slot, offset, flags);
    out.u16(2, free - row.size());
    return true;
}

void deleteRow(Page& page, PageNumber number, std::uint8_t slot) {
    setRow(page, number, slot, {}, SlotFlag::kDeleted);
}

}  // namespace huebrush::jet
