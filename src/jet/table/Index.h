// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <optional>

#include "jet/page/IndexPage.h"
#include "jet/page/Space.h"
#include "jet/table/TableDefinition.h"

namespace huebrush::jet {

/// A B-tree of keys and the rows that have them. Its root page stays the same for life.
class Index {
 public:
    /// Without `space` the tree is only read.
    Index(Pages& pages, const IndexTree& tree, PageNumber table, Space* space = nullptr)
        : pages_(&pages), tree_(&tree), table_(table), space_(space) {}

    /// The rows with a key, or a visit of each of them until it returns false.
    std::vector<RowId> find(ByteView key) const;
    void visitRows(ByteView key, const std::function<bool(RowId row)>& visit) const;
    bool contains(ByteView key) const;
    /// Calls `visit` for each entry in order, until it returns false.
    using Visit = std::function<bool(ByteView key, RowId row)>;
    void walk(const Visit& visit) const;

    /// Adds a key of a row. Returns whether the tree already had the key; then nothing is added,
    /// unless the key may repeat. REQUIRES: this key and row are not in the tree yet.
    bool insert(ByteView key, RowId row, bool mayRepeat = true);
    /// Damage when the tree does not have them.
    void remove(ByteView key, RowId row);

 private:
    /// What the parent of a changed page has to do.
    struct Change {
        bool removed = false;
        std::optional<Bytes> last;       ///< the last entry below the page is another one now
        std::optional<Bytes> splitLast;  ///< the page was split; its last entry now
        PageNumber right = 0;            ///< the page with the other half
    };

    /// Where an entry belongs.
    struct Place {
        StoredIndexPage leaf;
        std::size_t at;
    };

    Place placeOf(ByteView wanted) const;
    bool hasBeside(const Place& place, ByteView key) const;
    void walkFrom(ByteView key, const Visit& visit) const;
    Change insertBelow(PageNumber number, ByteView entry, int depth);
    Change removeBelow(PageNumber number, ByteView entry, int depth);
    Change applyToNode(IndexPage& node, std::size_t child, const Change& change);
    Change save(IndexPage& page, bool appending = false);
    void mergeChild(IndexPage& node, std::size_t child);
    bool merge(IndexPage& node, std::size_t left);
    void growRoot(const Change& change);
    void shrinkRoot();
    void link(PageNumber left, PageNumber right);
    void unlink(const IndexPage& page);
    PageNumber newPage();
    void freePage(PageNumber page);
    bool childrenAreNodes(const IndexPage& node) const;

    Pages* pages_;
    const IndexTree* tree_;
    PageNumber table_;
    Space* space_;
};

/// Turns a page into the root of an empty tree.
void clearIndexPage(Pages& pages, PageNumber page, PageNumber table);

}  // namespace huebrush::jet
