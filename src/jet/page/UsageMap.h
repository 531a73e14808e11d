// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "jet/page/DataPage.h"

namespace huebrush::jet {

/// A set of page numbers, kept as a row of a data page: as bits in the row itself (form 0), or as a
/// list of bitmap pages (form 1). The row may have outgrown its page and be elsewhere.
class UsageMap {
 public:
    /// Where a map that grows gets its bitmap pages from.
    using NewPage = std::function<PageNumber()>;
    /// Whether a page of which no bit was kept so far is in the map.
    using Outside = std::function<bool(PageNumber)>;

    UsageMap(Pages& pages, RowId where) : pages_(&pages), where_(where) {}

    bool has(PageNumber page) const;
    /// All pages of the map, ascending, including any beyond the end of the file.
    std::vector<PageNumber> all() const;
    /// The first page of the map from `start` on and below `end`; or the first that has a bit and
    /// is not in the map.
    std::optional<PageNumber> first(PageNumber start, PageNumber end, bool inMap = true) const;
    /// Whether the bits of this page are kept at all; a page without bits is not in the map.
    bool covers(PageNumber page) const;
    /// The bitmap pages of form 1.
    std::vector<PageNumber> bitmapPages() const;
    /// Where the row is: the place that the map is known by, or where that one's pointer leads.
    RowId place() const;

    void add(PageNumber page, const NewPage& newPage);
    void drop(PageNumber page);
    /// Makes sure that there is a bit for this page. New bits get the value of
    /// `outside`.
    void cover(PageNumber page, const NewPage& newPage, const Outside& outside);

 private:
    struct Bits {
        PageNumber holder = 0;   ///< the page that holds the bits
        std::size_t offset = 0;  ///< where on it
        std::size_t size = 0;    ///< in bytes
        PageNumber first = 0;    ///< the page that the first bit stands for
    };

    bool inlineForm() const;
    Reader row(PagePointer& keep) const;
    /// Empty (of size 0) where the row has none.
    Bits inlineBits(const Reader& row) const;
    Bits bitmap(const Reader& row, std::size_t number) const;
    std::vector<Bits> stretches() const;
    std::optional<Bits> stretchOf(PageNumber page) const;
    static bool bitOf(const Page& holder, const Bits& bits, std::uint64_t bit);
    std::optional<PageNumber> firstIn(const Bits& bits, PageNumber start, PageNumber end,
                                      bool inMap) const;
    void setBit(PageNumber page, bool value);
    bool moveBase(PageNumber page);
    bool extend(PageNumber page, const Outside& outside);
    void useBitmapPages(const NewPage& newPage, const Outside& outside);
    void coverByBitmap(PageNumber page, const NewPage& newPage, const Outside& outside);
    std::size_t roomForReference(std::size_t number);
    Bytes copyOfRow() const;
    bool store(const Bytes& row);

    Pages* pages_;
    RowId where_;
};

/// The row of an empty map of form 0.
Bytes emptyMap();

}  // namespace huebrush::jet
