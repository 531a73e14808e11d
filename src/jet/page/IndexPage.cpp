#include "jet/page/IndexPage.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace huebrush::jet {

namespace {

constexpr std::size_t kMask = 27;
constexpr std::size_t kMaskBytes = 453;
constexpr std::size_t kEntries = 480;

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
    append24Big(entry, row.page);
    append8(entry, row.slot);
    return entry;
}

IndexPage IndexPage::read(Pages& pages, PageNumber number) {
    const PagePointer content = pages.read(number);
    const Reader in(*content, number);
    const std::uint8_t type = in.u8(0);
    in.require(type == PageType::kLeaf || type == PageType::kNode, 0, rule::kPageType);
    IndexPage page(number, type == PageType::kLeaf);
    page.previous = in.u32(12);
    page.next = in.u32(16);
    const std::size_t prefix = in.u16(24);
    const std::size_t least = kRowPointer + page.trailer();
    const ByteView mask = in.bytes(kMask, kMaskBytes);
    const ByteView entries = in.bytes(kEntries, kRoom);
    page.data_.reserve(2 * kRoom);
    std::size_t start = 0;
    for (std::size_t byte = 0; byte < mask.size(); ++byte) {
        for (unsigned bits = mask[byte]; bits != 0; bits &= bits - 1) {
            const std::size_t end = byte * 8 + static_cast<std::size_t>(std::countr_zero(bits));
            const std::size_t shared = page.ends_.empty() ? 0 : prefix;
            in.require(end <= kRoom && end - start + shared > least && end - start > page.trailer(),
                       kEntries + start, rule::kEntries);
            in.require(page.ends_.empty() || shared <= page.ends_[0], 24, rule::kEntries);
            page.readEntry(entries.subspan(start, end - start), shared);
            start = end;
        }
    }
    if (!page.leaf) page.children.push_back(in.u32(20));
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
    // The entry over the middle goes to the side that has more room for it.
    const std::size_t before = at == 0 ? 0 : ends_[at - 1];
    const bool left = ends_[at] - half <= half - before;
    return std::clamp<std::size_t>(left ? at + 1 : at, 1, count() - 1);
}

/// What all entries begin with, short of the last byte of a key.
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
    out.u32(12, previous);
    out.u32(16, next);
    out.u32(20, leaf ? 0 : children.back());
    out.u16(24, shared);
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
    out.u16(2, kRoom - at);
}

}  // namespace huebrush::jet
