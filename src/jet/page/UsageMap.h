#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "jet/page/DataPage.h"

namespace huebrush::jet {

/// A set of page numbers, kept as a row of a data page: as bits in the row itself (form 0), or as a
/// list of bitmap pages (form 1).
class UsageMap {
 public:
    /// Where a map that grows gets its bitmap pages from.
    using NewPage = std::function<PageNumber()>;

    UsageMap(Pages& pages, RowId where) : pages_(&pages), where_(where) {}

    bool has(PageNumber page) const;
    /// All pages of the map, ascending; also such as lie beyond the end of the file.
    std::vector<PageNumber> all() const;
    /// The first page of the map from `start` on and below `end`; or the first that has a bit and
    /// is not in the map.
    std::optional<PageNumber> first(PageNumber start, PageNumber end, bool inMap = true) const;
    /// Whether the bits of this page are kept at all; a page without bits is not in the map.
    bool covers(PageNumber page) const;
    /// The bitmap pages of form 1.
    std::vector<PageNumber> bitmapPages() const;

    void add(PageNumber page, const NewPage& newPage);
    void drop(PageNumber page);
    /// Makes the row of form 0 longer, so that it covers the page. Whether it could.
    bool lengthen(PageNumber page, std::uint8_t fill);
    /// Turns form 0 into form 1; bits that form 0 did not keep get the value `outside`.
    void useBitmapPages(const NewPage& newPage, bool outside);
    /// Form 1: makes sure that there is a bitmap page for this page.
    void coverByBitmap(PageNumber page, const NewPage& newPage, bool value);

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
    void setBit(PageNumber page, bool value);
    bool moveBase(PageNumber page);

    Pages* pages_;
    RowId where_;
};

/// The row of an empty map of form 0.
Bytes emptyMap();

}  // namespace huebrush::jet
