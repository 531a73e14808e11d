// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <vector>

#include "jet/page/Pages.h"
#include "jet/page/RowId.h"

namespace huebrush::jet {

/// A page of a B-tree, decoded. An entry is a key and the pointer to its row; in a node each
/// entry is a copy of the last one of a child, and the last child has none.
class IndexPage {
 public:
    static constexpr std::size_t kRoom = 3616;
    static constexpr std::size_t kRowPointer = 4;
    static constexpr std::size_t kChildPointer = 4;

    /// Damage when the page breaks a rule.
    static IndexPage read(Pages& pages, PageNumber number);
    IndexPage(PageNumber number, bool leaf) : number(number), leaf(leaf) {}

    std::size_t count() const { return ends_.size(); }
    ByteView entry(std::size_t i) const {
        const std::size_t start = i == 0 ? 0 : ends_[i - 1];
        return ByteView(data_).subspan(start, ends_[i] - start);
    }
    ByteView last() const { return entry(count() - 1); }
    /// The first entry that is not less than the wanted bytes; count() when all are.
    std::size_t lowerBound(ByteView wanted) const;

    void insert(std::size_t at, ByteView entry);
    void erase(std::size_t at);
    /// Appends all entries of another page.
    void append(const IndexPage& other);
    /// Leaves the first `kept` entries here and returns a page with the others.
    IndexPage splitOff(std::size_t kept, PageNumber number);
    /// How many entries to keep so that both halves are about the same size.
    std::size_t middle() const;

    bool fits() const { return size() <= kRoom; }
    /// The bytes that the entries take on the page.
    std::size_t size() const;
    void write(Pages& pages, PageNumber table) const;

    PageNumber number;
    bool leaf;
    PageNumber previous = 0;
    PageNumber next = 0;
    std::vector<PageNumber> children;  ///< of a node: one more than entries

 private:
    void readEntry(ByteView stored, std::size_t shared);
    std::size_t prefix() const;
    std::size_t trailer() const { return leaf ? 0 : kChildPointer; }

    Bytes data_;
    std::vector<std::size_t> ends_;
};

/// A page of a B-tree as it is stored, searched without being decoded. An entry's place is the byte
/// at which it begins; after the last one is `end()`.
class StoredIndexPage {
 public:
    /// Damage when the page breaks a rule.
    static StoredIndexPage open(Pages& pages, PageNumber number);

    PageNumber number() const { return number_; }
    bool leaf() const;
    PageNumber previous() const;
    PageNumber next() const;
    std::size_t end() const { return end_; }
    /// The first entry that is not less than the wanted bytes.
    std::size_t lowerBound(ByteView wanted) const;
    /// The entry before another one. REQUIRES: it is not the first.
    std::size_t before(std::size_t at) const;
    bool startsWith(std::size_t at, ByteView start) const;
    /// Of a node: the page below the entry at a place.
    PageNumber child(std::size_t at) const;
    /// Whether an entry can be inserted into a leaf at a place without changing any other one's
    /// form.
    bool takes(std::size_t at, ByteView entry) const;

 private:
    StoredIndexPage(PagePointer page, PageNumber number);

    std::size_t nextEnd(std::size_t at) const;
    ByteView stored(std::size_t at) const;
    ByteView shared(std::size_t at) const;
    int compare(std::size_t at, ByteView wanted) const;

    PagePointer page_;
    PageNumber number_;
    std::size_t prefix_;
    std::size_t end_;
};

/// Inserts an entry into a leaf, at a place where StoredIndexPage::takes it.
void insertStored(Pages& pages, PageNumber number, std::size_t at, ByteView entry);

/// The row that an entry is for, and its key.
RowId rowOfEntry(ByteView entry);
ByteView keyOfEntry(ByteView entry);
Bytes makeEntry(ByteView key, RowId row);

int compareBytes(ByteView a, ByteView b);

}  // namespace huebrush::jet
