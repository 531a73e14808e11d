// SPDX-License-Identifier: MPL-2.0

// The trees of one table: their shape, their order, and that they hold the rows.

#include "base/Text.h"
#include "jet/check/Check.h"
#include "jet/table/Index.h"

namespace huebrush::jet {

namespace {

constexpr int kDeepest = 12;

using base::text;

class IndexCheck {
 public:
    IndexCheck(CheckContext& context, const TableDefinition& table, const IndexTree& tree,
               const RowKeys& rows)
        : context_(context),
          pages_(context.database.pages()),
          table_(table),
          tree_(tree),
          rows_(rows) {}

    void run() {
        context_.claimMap(tree_.map);
        visit(tree_.root, 0, {});
        if (next_ != 0) context_.violate(lastLeaf_, 16, rule::kLeafChain);
        checkMap();
        for (const auto& [row, key] : rows_) {
            const bool exempt = tree_.ignoreNulls && key && key->allNull;
            if (!exempt && !seen_.contains(row)) {
                context_.violate(
                    row.page, context_.offsetOf(row), rule::kEntryForRow,
                    text("row ", int{row.slot}, " is not in the index with root ", tree_.root));
            }
        }
    }

 private:
    /// Visits the pages below one, from left to right. `most` is what the parent says is the
    /// last entry, if it says anything.
    void visit(PageNumber number, int depth, const std::optional<Bytes>& most) {
        if (depth > kDeepest || !treePages_.insert(number).second) {
            throwDamage(number, 0, rule::kTreeShape);
        }
        context_.claim(number);
        const IndexPage page = IndexPage::read(pages_, number);
        if (Reader(*pages_.read(number), number).u32(4) != table_.page) {
            context_.violate(
                number, 4, rule::kOwner,
                text(Reader(*pages_.read(number), number).u32(4), " instead of ", table_.page));
        }
        if (page.leaf) {
            visitLeaf(page, depth);
        } else {
            for (std::size_t i = 0; i < page.children.size(); ++i) {
                std::optional<Bytes> last = most;
                if (i < page.count()) last = Bytes(page.entry(i).begin(), page.entry(i).end());
                visit(page.children[i], depth + 1, last);
            }
        }
        if (most && compareBytes(*most, previous_) != 0) {
            context_.violate(number, 0, rule::kNodeKey);
        }
    }

    void visitLeaf(const IndexPage& page, int depth) {
        if (depth_ < 0) depth_ = depth;
        if (depth != depth_) context_.violate(page.number, 0, rule::kTreeShape);
        if (page.previous != lastLeaf_ || (lastLeaf_ != 0 && next_ != page.number)) {
            context_.violate(page.number, 12, rule::kLeafChain);
        }
        if (page.count() == 0 && depth > 0) context_.violate(page.number, 0, rule::kTreeShape);
        lastLeaf_ = page.number;
        next_ = page.next;
        for (std::size_t i = 0; i < page.count(); ++i) visitEntry(page, page.entry(i));
    }

    void visitEntry(const IndexPage& page, ByteView entry) {
        if (!previous_.empty() && compareBytes(previous_, entry) >= 0) {
            context_.violate(page.number, 480, rule::kEntryOrder);
        }
        const RowId row = rowOfEntry(entry);
        const auto found = rows_.find(row);
        if (found == rows_.end() || !seen_.insert(row).second) {
            context_.violate(page.number, 480, rule::kEntryForRow,
                             text("an entry for page ", row.page, ", row ", int{row.slot}));
        } else if (found->second) {
            const Key& key = *found->second;
            if (compareBytes(key.bytes, keyOfEntry(entry)) != 0) {
                context_.violate(page.number, 480, rule::kKeyOfRow);
            }
            if (tree_.unique && !key.anyNull && !previous_.empty() &&
                compareBytes(keyOfEntry(previous_), keyOfEntry(entry)) == 0) {
                context_.violate(page.number, 480, rule::kUnique);
            }
        }
        previous_.assign(entry.begin(), entry.end());
    }

    void checkMap() {
        const UsageMap map(pages_, tree_.map);
        for (const PageNumber page : map.all()) {
            if (treePages_.contains(page) || page >= pages_.count()) continue;
            context_.claim(page);
            context_.waste(page, 0, rule::kMapOfTree, text("the index with root ", tree_.root));
        }
        for (const PageNumber page : treePages_) {
            if (map.has(page)) continue;
            context_.violate(page, 0, rule::kMapPage,
                             text("not in the map of the index with root ", tree_.root));
        }
    }

    CheckContext& context_;
    Pages& pages_;
    const TableDefinition& table_;
    const IndexTree& tree_;
    const RowKeys& rows_;
    std::set<PageNumber> treePages_;
    std::set<RowId> seen_;
    Bytes previous_;
    PageNumber lastLeaf_ = 0;
    PageNumber next_ = 0;
    int depth_ = -1;
};

}  // namespace

void checkIndex(CheckContext& context, const TableDefinition& table, const IndexTree& tree,
                const RowKeys& rows) {
    IndexCheck(context, table, tree, rows).run();
}

}  // namespace huebrush::jet
