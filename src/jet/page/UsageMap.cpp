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

}  // namespace

Bytes emptyMap() {
    Bytes row(kUsualRow, 0);
    return row;
}

Reader UsageMap::row(PagePointer& keep) const {
    const DataPage page = DataPage::open(*pages_, where_.page);
    const DataPage::Slot slot = page.slot(where_.slot);
    keep = page.page();
    const Reader bytes = page.row(slot);
    bytes.require(!slot.deleted() && bytes.size() >= 1, 0, rule::kRowExists);
    bytes.require(bytes.u8(0) <= kReference, 0, rule::kMapForm);
    return bytes;
}

bool UsageMap::inlineForm() const {
    PagePointer keep;
    return row(keep).u8(0) == kInline;
}

UsageMap::Bits UsageMap::inlineBits(const Reader& row) const {
    if (row.size() <= kInlineHeader) return {};
    return {where_.page, row.origin() + kInlineHeader, row.size() - kInlineHeader, row.u32(1)};
}

UsageMap::Bits UsageMap::bitmap(const Reader& row, std::size_t number) const {
    const std::size_t at = 1 + 4 * number;
    const PageNumber holder = at + 4 <= row.size() ? row.u32(at) : 0;
    if (holder == 0) return {};
    row.require(holder < pages_->count(), at, rule::kPageExists);
    return {holder, kBitmapHeader, kBitmapBytes, static_cast<PageNumber>(number) * kPagesABitmap};
}

std::vector<UsageMap::Bits> UsageMap::stretches() const {
    PagePointer keep;
    const Reader bytes = row(keep);
    std::vector<Bits> found;
    if (bytes.u8(0) == kInline) {
        found.push_back(inlineBits(bytes));
    } else {
        for (std::size_t i = 0; i < bytes.size() / 4; ++i) found.push_back(bitmap(bytes, i));
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
    const PageNumber bit = page - bits->first;
    const std::uint8_t byte = (*pages_->read(bits->holder))[bits->offset + bit / 8];
    return (byte >> (bit % 8) & 1U) != 0;
}

std::optional<PageNumber> UsageMap::first(PageNumber start, PageNumber end, bool inMap) const {
    for (const Bits& bits : stretches()) {
        const PagePointer page = bits.holder == where_.page
                                     ? pages_->read(bits.holder)
                                     : pages_->read(bits.holder, PageType::kMap);
        const std::uint64_t last = bits.first + bits.size * std::uint64_t{8};
        if (last <= start) continue;
        for (std::uint64_t at = std::max(start, bits.first); at < last && at < end;) {
            const std::uint64_t bit = at - bits.first;
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
    }
    return std::nullopt;
}

std::vector<PageNumber> UsageMap::all() const {
    constexpr PageNumber kNoPage = 0xFFFFFFFF;
    std::vector<PageNumber> found;
    for (auto page = first(0, kNoPage); page; page = first(*page + 1, kNoPage)) {
        found.push_back(*page);
    }
    return found;
}

void UsageMap::setBit(PageNumber page, bool value) {
    const auto bits = stretchOf(page);
    if (!bits) throw base::Error(base::ErrorNumber::kInternal, "Strana leží mimo mapu stran.");
    const PageNumber bit = page - bits->first;
    std::uint8_t& byte = pages_->change(bits->holder)[bits->offset + bit / 8];
    const auto mask = static_cast<std::uint8_t>(1U << (bit % 8));
    byte = static_cast<std::uint8_t>(value ? byte | mask : byte & ~mask);
}

/// Lets the bits of form 0 begin elsewhere, if all that are set fit then.
bool UsageMap::moveBase(PageNumber page) {
    PagePointer keep;
    Bytes bytes;
    {
        const Reader now = row(keep);
        bytes.assign(now.all().begin(), now.all().end());
    }
    if (bytes.size() <= kInlineHeader) return false;
    std::vector<PageNumber> set = all();
    set.push_back(page);
    const auto [low, high] = std::minmax_element(set.begin(), set.end());
    const PageNumber base = *low / 8 * 8;
    if ((*high - base) / 8 >= bytes.size() - kInlineHeader) return false;
    std::fill(bytes.begin() + kInlineHeader, bytes.end(), std::uint8_t{0});
    Writer(bytes).u32(1, base);
    set.pop_back();
    for (const PageNumber each : set) {
        bytes[kInlineHeader + (each - base) / 8] |=
            static_cast<std::uint8_t>(1U << ((each - base) % 8));
    }
    return setRow(pages_->change(where_.page), where_.page, where_.slot, bytes, SlotFlag::kNone);
}

void UsageMap::add(PageNumber page, const NewPage& newPage) {
    if (!covers(page)) {
        if (inlineForm() && !moveBase(page)) useBitmapPages(newPage, false);
        if (!inlineForm()) coverByBitmap(page, newPage, false);
    }
    setBit(page, true);
}

void UsageMap::drop(PageNumber page) {
    if (has(page)) setBit(page, false);
}

bool UsageMap::lengthen(PageNumber page, std::uint8_t fill) {
    PagePointer keep;
    const Reader now = row(keep);
    if (now.u8(0) != kInline || page < now.u32(1)) return false;
    const std::size_t words = (page - now.u32(1)) / 32 + 1;
    Bytes bytes(now.all().begin(), now.all().end());
    if (bytes.size() < kInlineHeader + 4 * words) bytes.resize(kInlineHeader + 4 * words, fill);
    if (bytes.size() >= kPageSize) return false;
    return setRow(pages_->change(where_.page), where_.page, where_.slot, bytes, SlotFlag::kNone);
}

void UsageMap::useBitmapPages(const NewPage& newPage, bool outside) {
    const std::vector<PageNumber> set = all();
    const std::vector<Bits> kept = stretches();
    PagePointer keep;
    const std::size_t size = std::max(kUsualRow, row(keep).size()) / 4 * 4 + 1;
    Bytes bytes(size, 0);
    bytes[0] = kReference;
    if (!setRow(pages_->change(where_.page), where_.page, where_.slot, bytes, SlotFlag::kNone)) {
        throw base::Error(ErrorNumber::kNotSupported, "Mapu stran této databáze nelze rozšířit.");
    }
    for (const PageNumber each : set) {
        coverByBitmap(each, newPage, outside);
        setBit(each, true);
    }
    if (!outside) return;
    for (const Bits& bits : kept) {
        const auto end = static_cast<PageNumber>(bits.first + bits.size * 8);
        for (PageNumber page = bits.first; page < end; ++page) {
            coverByBitmap(page, newPage, outside);
            setBit(page, std::binary_search(set.begin(), set.end(), page));
        }
    }
}

void UsageMap::coverByBitmap(PageNumber page, const NewPage& newPage, bool value) {
    if (covers(page)) return;
    const std::size_t at = 1 + 4 * (page / kPagesABitmap);
    const PageNumber holder = newPage();
    Page& bitmap = pages_->change(holder);
    bitmap.fill(value ? 0xFF : 0);
    const Writer out(bitmap);
    out.u8(0, PageType::kMap);
    out.u8(1, 1);
    out.u16(2, 0);
    const DataPage view = DataPage::open(*pages_, where_.page);
    const DataPage::Slot slot = view.slot(where_.slot);
    if (at + 4 > slot.size()) {
        throw base::Error(ErrorNumber::kNotSupported, "Mapu stran této databáze nelze rozšířit.");
    }
    Writer(pages_->change(where_.page)).u32(slot.offset + at, holder);
}

}  // namespace huebrush::jet
