// SPDX-License-Identifier: MPL-2.0

#include "jet/page/IndexPage.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace huebrush::jet {

namespace {

constexpr std::size_t kFree = 2;
constexpr std::size_t kPrevious = 12;
constexpr std::size_t kNext = 16;
constexpr std::size_t kTail = 20;
constexpr std::size_t kPrefix = 24;
constexpr std::size_t kMask = 27;
constexpr std::size_t kMaskBytes = 453;
constexpr std::size_t kEntries = 480;

/// The mask of a page, whose bits say where its entries end, in words.
class Mask {
 public:
    static constexpr std::size_t kBits = 64;

    explicit Mask(const Page& page) : bytes_(page.data() + kMask) {}

    /// The first end beyond a place. REQUIRES: there is one.
    std::size_t nextEnd(std::size_t at) const {
        std::size_t number = (at + 1) / kBits;
        std::uint64_t bits = word(number) & ~std::uint64_t{0} << (at + 1) % kBits;
        while (bits == 0) bits = word(++number);
        return number * kBits + static_cast<std::size_t>(std::countr_zero(bits));
    }
    /// The last end up to a place, which is where an entry begins; 0 when there is none.
    std::size_t lastEnd(std::size_t at) const {
        std::size_t number = at / kBits;
        std::uint64_t bits = word(number) & ~std::uint64_t{0} >> (kBits - 1 - at % kBits);
        while (bits == 0 && number > 0) bits = word(--number);
        return bits == 0
                   ? 0
                   : (number + 1) * kBits - 1 - static_cast<std::size_t>(std::countl_zero(bits));
    }

    static constexpr std::size_t kWords = (kMaskBytes + 7) / 8;
    std::uint64_t word(std::size_t number) const {
        const std::uint8_t* const at = bytes_ + number * 8;
        if (number + 1 == kWords) return part(at, kMaskBytes - number * 8);
        return std::uint64_t{at[0]} | std::uint64_t{at[1]} << 8U | std::uint64_t{at[2]} << 16U |
               std::uint64_t{at[3]} << 24U | std::uint64_t{at[4]} << 32U |
               std::uint64_t{at[5]} << 40U | std::uint64_t{at[6]} << 48U |
               std::uint64_t{at[7]} << 56U;
    }

 private:
    static std::uint64_t part(const std::uint8_t* at, std::size_t count) {
        std::uint64_t value = 0;
        for (std::size_t i = count; i > 0; --i) value = value << 8U | at[i - 1];
        return value;
    }

    const std::uint8_t* bytes_;
};

/// Moves the ends beyond a place up, the last of which is `end`, and sets one in between.
void insertEnd(Page& page, std::size_t at, std::size_t size, std::size_t end) {
    const Mask mask(page);
    std::array<std::uint64_t, Mask::kWords> moved{};
    // The bits beyond the place, shifted; those below stay.
    const std::size_t words = size / Mask::kBits;
    const std::size_t bits = size % Mask::kBits;
    const auto beyond = [&](std::size_t number) {
        const std::size_t first = number * Mask::kBits;
        if (first + Mask::kBits <= at + 1) return std::uint64_t{0};
        if (first > at) return mask.word(number);
        return mask.word(number) & ~std::uint64_t{0} << (at + 1 - first);
    };
    for (std::size_t i = (at + 1) / Mask::kBits; i <= (end + size) / Mask::kBits; ++i) {
        std::uint64_t value = mask.word(i) & ~beyond(i);
        if (i >= words) value |= beyond(i - words) << bits;
        if (i > words && bits != 0) value |= beyond(i - words - 1) >> (Mask::kBits - bits);
        moved[i] = value;
    }
    moved[(at + size) / Mask::kBits] |= std::uint64_t{1} << (at + size) % Mask::kBits;
    for (std::size_t i = (at + 1) / 8; i <= (end + size) / 8; ++i) {
        page[kMask + i] = static_cast<std::uint8_t>(moved[i / 8] >> 8 * (i % 8));
    }
}

bool isLeaf(const Reader& in) {
    const std::uint8_t type = in.u8(0);
    in.require(type == PageType::kLeaf || type == PageType::kNode, 0, rule::kPageType);
    return type == PageType::kLeaf;
}

/// Calls `visit` with the stretch of each entry. Damage when one does not fit its page.
template <class Visit>
void visitStored(const Reader& in, const Visit& visit) {
    const std::size_t trailer = isLeaf(in) ? 0 : IndexPage::kChildPointer;
    const std::size_t least = IndexPage::kRowPointer + trailer;
    const std::size_t prefix = in.u16(kPrefix);
    const ByteView mask = in.bytes(kMask, kMaskBytes);
    std::size_t start = 0;
    std::size_t first = 0;
    for (std::size_t byte = 0; byte < mask.size(); ++byte) {
        for (unsigned bits = mask[byte]; bits != 0; bits &= bits - 1) {
            const std::size_t end = byte * 8 + static_cast<std::size_t>(std::countr_zero(bits));
            const std::size_t shared = start == 0 ? 0 : prefix;
            in.require(
                end <= IndexPage::kRoom && end - start + shared > least && end - start > trailer,
                kEntries + start, rule::kEntries);
            // The first entry is complete, and holds what the others share with it.
            if (start == 0) first = end - trailer;
            in.require(shared <= first, kPrefix, rule::kEntries);
            visit(start, end);
            start = end;
        }
    }
}

void checkStored(const Page& page, PageNumber number) {
    visitStored(Reader(page, number), [](std::size_t, std::size_t) {});
}

}  // namespace

int compareBytes(ByteView a, ByteView b) {
    const std::size_t common = std::min(a.size(), b.size());
    const int order = common == 0 ? 0 : std::memcmp(a.data(), b.data(), common);
    if (order != 0) return order;
    return a.size() < b.size() ? -1 : static_cast<int>(a.size() > b.size());
}

RowId rowOfEntry(ByteView entry) {
    const Reader in(entry.last(IndexPage::kRowPointer), 0);
    return {in.u24Big(0), in.u8(3)};
}

ByteView keyOfEntry(ByteView entry) {
    return entry.first(entry.size() - IndexPage::kRowPointer);
}

Bytes makeEntry(ByteView key, RowId row) {
    Bytes entry(key.begin(), key.end());
    appendBig(entry, row.page, 3);
    append8(entry, row.slot);
    return entry;
}

IndexPage IndexPage::read(Pages& pages, PageNumber number) {
    const PagePointer content = pages.read(number);
    const Reader in(*content, number);
    IndexPage page(number, isLeaf(in));
    page.previous = in.u32(kPrevious);
    page.next = in.u32(kNext);
    const std::size_t prefix = in.u16(kPrefix);
    const ByteView entries = in.bytes(kEntries, kRoom);
    page.data_.reserve(2 * kRoom);
    visitStored(in, [&](std::size_t start, std::size_t end) {
        page.readEntry(entries.subspan(start, end - start), start == 0 ? 0 : prefix);
    });
    if (!page.leaf) page.children.push_back(in.u32(kTail));
    return page;
}

void IndexPage::readEntry(ByteView stored, std::size_t shared) {
    const std::size_t at = data_.size();
    const std::size_t size = stored.size() - trailer();
    data_.resize(at + shared + size);
    std::copy_n(data_.begin(), shared, data_.begin() + static_cast<std::ptrdiff_t>(at));
    std::copy_n(stored.begin(), size, data_.begin() + static_cast<std::ptrdiff_t>(at + shared));
    ends_.push_back(data_.size());
    if (!leaf) children.push_back(Reader(stored, number, kEntries).u32Big(size));
}

std::size_t IndexPage::lowerBound(ByteView wanted) const {
    std::size_t low = 0;
    std::size_t high = count();
    while (low < high) {
        const std::size_t middle = (low + high) / 2;
        if (compareBytes(entry(middle), wanted) < 0) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

void IndexPage::insert(std::size_t at, ByteView entry) {
    const std::size_t start = at == 0 ? 0 : ends_[at - 1];
    data_.insert(data_.begin() + static_cast<std::ptrdiff_t>(start), entry.begin(), entry.end());
    ends_.insert(ends_.begin() + static_cast<std::ptrdiff_t>(at), start);
    for (std::size_t i = at; i < ends_.size(); ++i) ends_[i] += entry.size();
}

void IndexPage::erase(std::size_t at) {
    const std::size_t start = at == 0 ? 0 : ends_[at - 1];
    const std::size_t size = ends_[at] - start;
    const auto first = data_.begin() + static_cast<std::ptrdiff_t>(start);
    data_.erase(first, first + static_cast<std::ptrdiff_t>(size));
    ends_.erase(ends_.begin() + static_cast<std::ptrdiff_t>(at));
    for (std::size_t i = at; i < ends_.size(); ++i) ends_[i] -= size;
}

void IndexPage::append(const IndexPage& other) {
    const std::size_t base = data_.size();
    jet::append(data_, other.data_);
    for (const std::size_t end : other.ends_) ends_.push_back(base + end);
    children.insert(children.end(), other.children.begin(), other.children.end());
}

IndexPage IndexPage::splitOff(std::size_t kept, PageNumber number) {
    IndexPage right(number, leaf);
    const std::size_t base = kept == 0 ? 0 : ends_[kept - 1];
    right.data_.assign(data_.begin() + static_cast<std::ptrdiff_t>(base), data_.end());
    for (std::size_t i = kept; i < ends_.size(); ++i) right.ends_.push_back(ends_[i] - base);
    data_.resize(base);
    ends_.resize(kept);
    return right;
}

std::size_t IndexPage::middle() const {
    const std::size_t half = data_.size() / 2;
    const auto found = std::lower_bound(ends_.begin(), ends_.end(), half);
    const auto at = static_cast<std::size_t>(found - ends_.begin());
    // The entry across the middle goes to the side that has more room for it.
    const std::size_t before = at == 0 ? 0 : ends_[at - 1];
    const bool left = ends_[at] - half <= half - before;
    return std::clamp<std::size_t>(left ? at + 1 : at, 1, count() - 1);
}

/// What all entries begin with, but for the last byte of a key.
std::size_t IndexPage::prefix() const {
    if (count() < 2) return 0;
    const ByteView low = entry(0);
    const ByteView high = last();
    std::size_t limit = std::min(low.size(), high.size());
    std::size_t common = 0;
    while (common < limit && low[common] == high[common]) ++common;
    if (common == 0) return 0;
    for (std::size_t i = 0; i < ends_.size(); ++i) {
        limit = std::min(limit, ends_[i] - (i == 0 ? 0 : ends_[i - 1]));
    }
    return std::min(common, limit - kRowPointer - 1);
}

std::size_t IndexPage::size() const {
    const std::size_t shared = count() < 2 ? 0 : prefix() * (count() - 1);
    return data_.size() - shared + count() * trailer();
}

void IndexPage::write(Pages& pages, PageNumber table) const {
    Page& page = pages.change(number);
    page.fill(0);
    const Writer out(page);
    const std::size_t shared = prefix();
    out.u8(0, leaf ? PageType::kLeaf : PageType::kNode);
    out.u8(1, 1);
    out.u32(4, table);
    out.u32(kPrevious, previous);
    out.u32(kNext, next);
    out.u32(kTail, leaf ? 0 : children.back());
    out.u16(kPrefix, shared);
    out.u8(26, leaf ? 0 : 1);
    std::size_t at = 0;
    for (std::size_t i = 0; i < count(); ++i) {
        const ByteView bytes = entry(i).subspan(i == 0 ? 0 : shared);
        out.bytes(kEntries + at, bytes);
        at += bytes.size();
        if (!leaf) {
            out.u32Big(kEntries + at, children[i]);
            at += kChildPointer;
        }
        page[kMask + at / 8] |= static_cast<std::uint8_t>(1U << (at % 8));
    }
    out.u16(kFree, kRoom - at);
}

StoredIndexPage StoredIndexPage::open(Pages& pages, PageNumber number) {
    return {pages.readSound(number, checkStored), number};
}

StoredIndexPage::StoredIndexPage(PagePointer page, PageNumber number)
    : page_(std::move(page)),
      number_(number),
      prefix_(Reader(*page_, number).u16(kPrefix)),
      end_(Mask(*page_).lastEnd(IndexPage::kRoom)) {}

bool StoredIndexPage::leaf() const {
    return (*page_)[0] == PageType::kLeaf;
}
PageNumber StoredIndexPage::previous() const {
    return Reader(*page_, number_).u32(kPrevious);
}
PageNumber StoredIndexPage::next() const {
    return Reader(*page_, number_).u32(kNext);
}

std::size_t StoredIndexPage::nextEnd(std::size_t at) const {
    return Mask(*page_).nextEnd(at);
}

/// What is stored of an entry, without the pointer to a child.
ByteView StoredIndexPage::stored(std::size_t at) const {
    const std::size_t trailer = leaf() ? 0 : IndexPage::kChildPointer;
    return ByteView(*page_).subspan(kEntries + at, nextEnd(at) - at - trailer);
}

/// What an entry has in common with the first one, and which is stored there.
ByteView StoredIndexPage::shared(std::size_t at) const {
    return ByteView(*page_).subspan(kEntries, at == 0 ? 0 : prefix_);
}

int StoredIndexPage::compare(std::size_t at, ByteView wanted) const {
    const ByteView start = shared(at);
    if (wanted.size() <= start.size()) {
        const int order = compareBytes(start.first(wanted.size()), wanted);
        return order != 0 ? order : 1;
    }
    const int order = compareBytes(start, wanted.first(start.size()));
    return order != 0 ? order : compareBytes(stored(at), wanted.subspan(start.size()));
}

std::size_t StoredIndexPage::lowerBound(ByteView wanted) const {
    std::size_t low = 0;
    std::size_t high = end_;
    while (low < high) {
        const std::size_t middle = Mask(*page_).lastEnd((low + high) / 2);
        if (compare(middle, wanted) < 0) {
            low = nextEnd(middle);
        } else {
            high = middle;
        }
    }
    return low;
}

std::size_t StoredIndexPage::before(std::size_t at) const {
    return Mask(*page_).lastEnd(at - 1);
}

bool StoredIndexPage::startsWith(std::size_t at, ByteView start) const {
    const ByteView first = shared(at);
    const ByteView rest = stored(at);
    if (start.size() > first.size() + rest.size()) return false;
    const std::size_t inFirst = std::min(first.size(), start.size());
    return compareBytes(first.first(inFirst), start.first(inFirst)) == 0 &&
           compareBytes(rest.first(start.size() - inFirst), start.subspan(inFirst)) == 0;
}

PageNumber StoredIndexPage::child(std::size_t at) const {
    const Reader in(*page_, number_);
    if (at == end_) return in.u32(kTail);
    return in.u32Big(kEntries + nextEnd(at) - IndexPage::kChildPointer);
}

bool StoredIndexPage::takes(std::size_t at, ByteView entry) const {
    // With one entry, what two entries will share is not known yet.
    if (at == 0 || nextEnd(0) == end_) return false;
    // Part of the key stays outside what is shared, as in every entry.
    if (entry.size() <= prefix_ + IndexPage::kRowPointer) return false;
    if (end_ + entry.size() - prefix_ > IndexPage::kRoom) return false;
    return compareBytes(shared(at), entry.first(prefix_)) == 0;
}

void insertStored(Pages& pages, PageNumber number, std::size_t at, ByteView entry) {
    Page& page = pages.change(number);
    const std::size_t end = Mask(page).lastEnd(IndexPage::kRoom);
    const ByteView added = entry.subspan(Reader(page, number).u16(kPrefix));
    std::uint8_t* const place = page.data() + kEntries + at;
    std::memmove(place + added.size(), place, end - at);
    std::memcpy(place, added.data(), added.size());
    insertEnd(page, at, added.size(), end);
    Writer(page).u16(kFree, IndexPage::kRoom - end - added.size());
    pages.noteSound(number);
}

}  // namespace huebrush::jet
