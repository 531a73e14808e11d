// SPDX-License-Identifier: MPL-2.0

#include "jet/page/UsageMap.h"

#include <algorithm>

namespace huebrush::jet {

namespace {

constexpr std::uint8_t kInline = 0;
constexpr std::uint8_t kReference = 1;
constexpr std::size_t kInlineHeader = 5;
constexpr std::size_t kBitmapHeader = 4;
constexpr std::size_t kBitmapBytes = kPageSize - kBitmapHeader;
constexpr PageNumber kPagesABitmap = kBitmapBytes * 8;
/// 5 bytes and 512 bits, or 17 page numbers.
constexpr std::size_t kUsualRow = 69;
/// This many bitmap pages have a bit for every page of the largest file. A row may be longer,
/// because it keeps the length that it had in form 0: what follows these numbers means nothing.
constexpr std::size_t kMostReferences = 17;

bool nowhere(PageNumber) {
    return false;
}

[[noreturn]] void throwTooSmall() {
    throw base::Error(ErrorNumber::kNotSupported, "a page map of the database cannot be extended");
}

void setBitIn(Bytes& row, std::size_t bit) {
    row[kInlineHeader + bit / 8] |= static_cast<std::uint8_t>(1U << (bit % 8));
}

}  // namespace

Bytes emptyMap() {
    Bytes row(kUsualRow, 0);
    return row;
}

RowId UsageMap::place() const {
    const DataPage page = DataPage::open(*pages_, where_.page);
    const DataPage::Slot slot = page.slot(where_.slot);
    return slot.flags == SlotFlag::kMoved ? RowId::of(page.row(slot).u32(0)) : where_;
}

Reader UsageMap::row(PagePointer& keep) const {
    DataPage page = DataPage::open(*pages_, where_.page);
    DataPage::Slot slot = page.slot(where_.slot);
    if (slot.flags == SlotFlag::kMoved) {
        const RowId at = RowId::of(page.row(slot).u32(0));
        page = DataPage::open(*pages_, at.page);
        slot = page.slot(at.slot);
    }
    keep = page.page();
    const Reader bytes = page.row(slot);
    bytes.require(!slot.deleted() && slot.flags != SlotFlag::kMoved && bytes.size() >= 1, 0,
                  rule::kRowExists);
    bytes.require(bytes.u8(0) <= kReference, 0, rule::kMapForm);
    return bytes;
}

Bytes UsageMap::copyOfRow() const {
    PagePointer keep;
    const Reader bytes = row(keep);
    return {bytes.all().begin(), bytes.all().end()};
}

/// Whether there was room for the row.
bool UsageMap::store(const Bytes& row) {
    const RowId at = place();
    const auto flags = at == where_ ? SlotFlag::kNone : SlotFlag::kTarget;
    return setRow(pages_->change(at.page), at.page, at.slot, row, flags);
}

bool UsageMap::inlineForm() const {
    PagePointer keep;
    return row(keep).u8(0) == kInline;
}

UsageMap::Bits UsageMap::inlineBits(const Reader& row) const {
    if (row.size() <= kInlineHeader) return {};
    return {row.page(), row.origin() + kInlineHeader, row.size() - kInlineHeader, row.u32(1)};
}

UsageMap::Bits UsageMap::bitmap(const Reader& row, std::size_t number) const {
    const std::size_t at = 1 + 4 * number;
    const PageNumber holder = number < kMostReferences && at + 4 <= row.size() ? row.u32(at) : 0;
    if (holder == 0) return {};
    row.require(holder < pages_->count(), at, rule::kPageExists);
    pages_->read(holder, PageType::kMap);
    return {holder, kBitmapHeader, kBitmapBytes, static_cast<PageNumber>(number) * kPagesABitmap};
}

std::vector<UsageMap::Bits> UsageMap::stretches() const {
    PagePointer keep;
    const Reader bytes = row(keep);
    std::vector<Bits> found;
    if (bytes.u8(0) == kInline) {
        found.push_back(inlineBits(bytes));
    } else {
        for (std::size_t i = 0; i < kMostReferences; ++i) found.push_back(bitmap(bytes, i));
    }
    std::erase_if(found, [](const Bits& bits) { return bits.size == 0; });
    return found;
}

std::optional<UsageMap::Bits> UsageMap::stretchOf(PageNumber page) const {
    PagePointer keep;
    const Reader bytes = row(keep);
    const Bits bits =
        bytes.u8(0) == kInline ? inlineBits(bytes) : bitmap(bytes, page / kPagesABitmap);
    if (page < bits.first || (page - bits.first) / 8 >= bits.size) return std::nullopt;
    return bits;
}

std::vector<PageNumber> UsageMap::bitmapPages() const {
    std::vector<PageNumber> found;
    if (inlineForm()) return found;
    for (const Bits& bits : stretches()) found.push_back(bits.holder);
    return found;
}

bool UsageMap::covers(PageNumber page) const {
    return stretchOf(page).has_value();
}

bool UsageMap::has(PageNumber page) const {
    const auto bits = stretchOf(page);
    if (!bits) return false;
    return bitOf(*pages_->read(bits->holder), *bits, page - bits->first);
}

bool UsageMap::bitOf(const Page& holder, const Bits& bits, std::uint64_t bit) {
    return (holder[bits.offset + static_cast<std::size_t>(bit / 8)] >> (bit % 8) & 1U) != 0;
}

std::optional<PageNumber> UsageMap::firstIn(const Bits& bits, PageNumber start, PageNumber end,
                                            bool inMap) const {
    const PagePointer page = pages_->read(bits.holder);
    const std::uint64_t last =
        std::min<std::uint64_t>(end, bits.first + bits.size * std::uint64_t{8});
    for (std::uint64_t at = std::max(start, bits.first); at < last;) {
        const auto bit = static_cast<std::size_t>(at - bits.first);
        const auto byte =
            static_cast<std::uint8_t>((*page)[bits.offset + bit / 8] ^ (inMap ? 0 : 0xFF));
        if (byte >> (bit % 8) == 0) {
            at += 8 - bit % 8;
        } else if ((byte >> (bit % 8) & 1U) != 0) {
            return static_cast<PageNumber>(at);
        } else {
            ++at;
        }
    }
    return std::nullopt;
}

std::optional<PageNumber> UsageMap::first(PageNumber start, PageNumber end, bool inMap) const {
    for (const Bits& bits : stretches()) {
        if (const auto found = firstIn(bits, start, end, inMap)) return found;
    }
    return std::nullopt;
}

std::vector<PageNumber> UsageMap::all() const {
    constexpr PageNumber kNoPage = 0xFFFFFFFF;
    std::vector<PageNumber> found;
    for (const Bits& bits : stretches()) {
        for (auto page = firstIn(bits, 0, kNoPage, true); page;
             page = firstIn(bits, *page + 1, kNoPage, true)) {
            found.push_back(*page);
        }
    }
    return found;
}

void UsageMap::setBit(PageNumber page, bool value) {
    const auto bits = stretchOf(page);
    if (!bits)
        throw base::Error(base::ErrorNumber::kInternal, "the page map has no bit for the page");
    const PageNumber bit = page - bits->first;
    std::uint8_t& byte = pages_->change(bits->holder)[bits->offset + bit / 8];
    const auto mask = static_cast<std::uint8_t>(1U << (bit % 8));
    byte = static_cast<std::uint8_t>(value ? byte | mask : byte & ~mask);
}

/// Lets the bits of form 0 begin elsewhere, if all that are set then fit.
bool UsageMap::moveBase(PageNumber page) {
    Bytes bytes = copyOfRow();
    if (bytes.size() <= kInlineHeader) return false;
    std::vector<PageNumber> set = all();
    set.push_back(page);
    const auto [low, high] = std::minmax_element(set.begin(), set.end());
    const PageNumber base = *low / 8 * 8;
    if ((*high - base) / 8 >= bytes.size() - kInlineHeader) return false;
    std::fill(bytes.begin() + kInlineHeader, bytes.end(), std::uint8_t{0});
    Writer(bytes).u32(1, base);
    set.pop_back();
    for (const PageNumber each : set) setBitIn(bytes, each - base);
    return store(bytes);
}

void UsageMap::add(PageNumber page, const NewPage& newPage) {
    if (!covers(page)) {
        if (inlineForm() && !moveBase(page)) useBitmapPages(newPage, nowhere);
        if (!inlineForm()) coverByBitmap(page, newPage, nowhere);
    }
    setBit(page, true);
}

void UsageMap::drop(PageNumber page) {
    if (has(page)) setBit(page, false);
}

void UsageMap::cover(PageNumber page, const NewPage& newPage, const Outside& outside) {
    if (covers(page)) return;
    if (inlineForm() && !extend(page, outside)) useBitmapPages(newPage, outside);
    if (!inlineForm()) coverByBitmap(page, newPage, outside);
}

/// Makes the row of form 0 longer by whole words, at its end or at its beginning. Whether it could.
bool UsageMap::extend(PageNumber page, const Outside& outside) {
    PagePointer keep;
    const Bits now = inlineBits(row(keep));
    const std::uint64_t oldEnd = now.first + now.size * std::uint64_t{8};
    const PageNumber first = now.size == 0 ? page / 8 * 8 : std::min(now.first, page / 8 * 8);
    const std::uint64_t end = std::max<std::uint64_t>(oldEnd, page + std::uint64_t{1});
    const auto words = static_cast<std::size_t>((end - first + 31) / 32);
    if (words * 4 + kInlineHeader >= kPageSize) return false;
    Bytes bytes(kInlineHeader + words * 4, 0);
    Writer(bytes).u32(1, first);
    for (std::size_t bit = 0; bit < words * 32; ++bit) {
        const std::uint64_t each = first + bit;
        const bool isKept = each >= now.first && each < oldEnd;
        if (isKept ? bitOf(*keep, now, each - now.first) : outside(static_cast<PageNumber>(each))) {
            setBitIn(bytes, bit);
        }
    }
    return store(bytes);
}

/// Turns form 0 into form 1.
void UsageMap::useBitmapPages(const NewPage& newPage, const Outside& outside) {
    PagePointer keep;
    const Reader before = row(keep);
    const Bits kept = inlineBits(before);
    Bytes bytes(std::max(kUsualRow, before.size()) / 4 * 4 + 1, 0);
    bytes[0] = kReference;
    if (!store(bytes)) throwTooSmall();
    // Pages beyond the largest file need no bits.
    const std::uint64_t end = std::min<std::uint64_t>(kept.first + kept.size * std::uint64_t{8},
                                                      kMostReferences * kPagesABitmap);
    for (std::uint64_t each = kept.first; each < end; ++each) {
        const auto page = static_cast<PageNumber>(each);
        const bool value = bitOf(*keep, kept, page - kept.first);
        if (value == outside(page)) continue;
        coverByBitmap(page, newPage, outside);
        setBit(page, value);
    }
}

/// Form 1: makes sure that there is a bitmap page for this page.
void UsageMap::coverByBitmap(PageNumber page, const NewPage& newPage, const Outside& outside) {
    if (covers(page)) return;
    const std::size_t number = page / kPagesABitmap;
    const std::size_t at = roomForReference(number);
    const PageNumber holder = newPage();
    Page& bitmap = pages_->change(holder);
    bitmap.fill(0);
    bitmap[0] = PageType::kMap;
    bitmap[1] = 1;
    for (std::size_t bit = 0; bit < kPagesABitmap; ++bit) {
        if (!outside(static_cast<PageNumber>(number * kPagesABitmap + bit))) continue;
        bitmap[kBitmapHeader + bit / 8] |= static_cast<std::uint8_t>(1U << (bit % 8));
    }
    Bytes bytes = copyOfRow();
    Writer(bytes).u32(at, holder);
    store(bytes);
}

/// Where in the row the number of a bitmap page is; makes the row longer if need be.
std::size_t UsageMap::roomForReference(std::size_t number) {
    if (number >= kMostReferences) throwTooSmall();
    const std::size_t at = 1 + 4 * number;
    Bytes bytes = copyOfRow();
    if (at + 4 > bytes.size()) {
        bytes.resize(kUsualRow, 0);
        if (!store(bytes)) throwTooSmall();
    }
    return at;
}

}  // namespace huebrush::jet
