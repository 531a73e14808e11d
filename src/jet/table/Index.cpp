// SPDX-License-Identifier: MPL-2.0

#include "jet/table/Index.h"

#include <algorithm>

namespace huebrush::jet {

namespace {

/// Deeper than any tree of 2 GB.
constexpr int kDeepest = 12;
/// A page with less than this is merged with a neighbour where both fit on one.
constexpr std::size_t kUnderfull = IndexPage::kRoom / 3;
constexpr std::size_t kLongestEntry = 1700;

void checkDepth(PageNumber page, int depth) {
    if (depth > kDeepest) throwDamage(page, 0, rule::kTreeShape);
}

bool startsWith(ByteView bytes, ByteView start) {
    return bytes.size() >= start.size() && compareBytes(bytes.first(start.size()), start) == 0;
}

}  // namespace

void clearIndexPage(Pages& pages, PageNumber page, PageNumber table) {
    IndexPage(page, true).write(pages, table);
}

void Index::walkFrom(ByteView key, const Visit& visit) const {
    PageNumber at = tree_->root;
    IndexPage page = IndexPage::read(*pages_, at);
    for (int depth = 0; !page.leaf; ++depth) {
        checkDepth(at, depth);
        at = page.children[page.lowerBound(key)];
        page = IndexPage::read(*pages_, at);
    }
    std::size_t i = page.lowerBound(key);
    for (PageNumber seen = 0;; ++seen) {
        if (seen > pages_->count()) throwDamage(at, 16, rule::kLeafChain);
        for (; i < page.count(); ++i) {
            if (!visit(keyOfEntry(page.entry(i)), rowOfEntry(page.entry(i)))) return;
        }
        if (page.next == 0) return;
        at = page.next;
        page = IndexPage::read(*pages_, at);
        if (!page.leaf) throwDamage(at, 0, rule::kLeafChain);
        i = 0;
    }
}

void Index::walk(const Visit& visit) const {
    walkFrom({}, visit);
}

void Index::visitRows(ByteView key, const std::function<bool(RowId row)>& visit) const {
    walkFrom(key, [&](ByteView each, RowId row) { return startsWith(each, key) && visit(row); });
}

std::vector<RowId> Index::find(ByteView key) const {
    std::vector<RowId> found;
    visitRows(key, [&](RowId row) {
        found.push_back(row);
        return true;
    });
    return found;
}

/// The first entry that is not less than the wanted bytes, or the end of the leaf before it.
Index::Place Index::placeOf(ByteView wanted) const {
    StoredIndexPage page = StoredIndexPage::open(*pages_, tree_->root);
    for (int depth = 0; !page.leaf(); ++depth) {
        checkDepth(page.number(), depth);
        page = StoredIndexPage::open(*pages_, page.child(page.lowerBound(wanted)));
    }
    const std::size_t at = page.lowerBound(wanted);
    return {std::move(page), at};
}

bool Index::contains(ByteView key) const {
    return hasBeside(placeOf(key), key);
}

/// Whether an entry with the key is next to where one belongs.
bool Index::hasBeside(const Place& place, ByteView key) const {
    const auto& [leaf, at] = place;
    const auto has = [&](const StoredIndexPage& page, bool last) {
        if (!page.leaf()) throwDamage(page.number(), 0, rule::kLeafChain);
        return page.end() > 0 && page.startsWith(last ? page.before(page.end()) : 0, key);
    };
    if (at < leaf.end()) {
        if (leaf.startsWith(at, key)) return true;
    } else if (leaf.next() != 0 && has(StoredIndexPage::open(*pages_, leaf.next()), false)) {
        return true;
    }
    if (at > 0) return leaf.startsWith(leaf.before(at), key);
    return leaf.previous() != 0 && has(StoredIndexPage::open(*pages_, leaf.previous()), true);
}

PageNumber Index::newPage() {
    const PageNumber page = space_->take();
    UsageMap(*pages_, tree_->map).add(page, space_->pageSource());
    return page;
}

void Index::freePage(PageNumber page) {
    UsageMap(*pages_, tree_->map).drop(page);
    space_->giveBack(page);
}

/// Links two pages of one level as neighbours; 0 stands for none.
void Index::link(PageNumber left, PageNumber right) {
    if (left != 0) Writer(pages_->change(left)).u32(16, right);
    if (right != 0) Writer(pages_->change(right)).u32(12, left);
}

void Index::unlink(const IndexPage& page) {
    link(page.previous, page.next);
}

bool Index::childrenAreNodes(const IndexPage& node) const {
    return (*pages_->read(node.children.front()))[0] == PageType::kNode;
}

/// Writes a page, split in two if it has become too long.
Index::Change Index::save(IndexPage& page, bool appending) {
    if (page.fits()) {
        page.write(*pages_, table_);
        return {};
    }
    // Rising keys fill the leaves when only the newest entry goes to the new page.
    const std::size_t kept = appending ? page.count() - 1 : page.middle();
    IndexPage right = page.splitOff(kept, newPage());
    Change change;
    if (page.leaf) {
        change.splitLast = Bytes(page.last().begin(), page.last().end());
    } else {
        // The last entry that stayed is now that of the tail there.
        const auto children = page.children.begin() + static_cast<std::ptrdiff_t>(kept);
        right.children.assign(children, page.children.end());
        page.children.erase(children, page.children.end());
        change.splitLast = Bytes(page.last().begin(), page.last().end());
        page.erase(page.count() - 1);
    }
    change.right = right.number;
    right.next = page.next;
    right.previous = page.number;
    page.next = right.number;
    page.write(*pages_, table_);
    right.write(*pages_, table_);
    if (right.next != 0) link(right.number, right.next);
    if (!page.leaf && childrenAreNodes(right)) {
        // Nodes are linked only below one parent.
        link(page.children.back(), 0);
        link(0, right.children.front());
    }
    return change;
}

Index::Change Index::applyToNode(IndexPage& node, std::size_t child, const Change& change) {
    Change mine;
    if (change.removed) {
        node.children.erase(node.children.begin() + static_cast<std::ptrdiff_t>(child));
        if (child < node.count()) {
            node.erase(child);
        } else if (node.count() > 0) {
            mine.last = Bytes(node.last().begin(), node.last().end());
            node.erase(node.count() - 1);
        } else {
            mine.removed = true;
        }
        return mine;
    }
    if (change.last) {
        if (child < node.count()) {
            node.erase(child);
            node.insert(child, *change.last);
        } else {
            mine.last = change.last;
        }
    }
    if (change.splitLast) {
        node.insert(child, *change.splitLast);
        node.children.insert(node.children.begin() + static_cast<std::ptrdiff_t>(child) + 1,
                             change.right);
    }
    return mine;
}

Index::Change Index::insertBelow(PageNumber number, ByteView entry, int depth) {
    checkDepth(number, depth);
    IndexPage page = IndexPage::read(*pages_, number);
    const std::size_t at = page.lowerBound(entry);
    if (page.leaf) {
        if (at < page.count() && compareBytes(page.entry(at), entry) == 0) {
            throwDamage(number, 0, rule::kEntryForRow);
        }
        const bool appending = page.next == 0 && at == page.count();
        page.insert(at, entry);
        return save(page, appending);
    }
    const Change below = insertBelow(page.children[at], entry, depth + 1);
    if (!below.splitLast) return {};
    // The pages below may have changed the links of this one's neighbours, never this page.
    applyToNode(page, at, below);
    return save(page);
}

/// The root stays where it is: what it had moves to a new page, beside the other half.
void Index::growRoot(const Change& change) {
    IndexPage left = IndexPage::read(*pages_, tree_->root);
    left.number = newPage();
    left.write(*pages_, table_);
    link(left.number, change.right);
    IndexPage root(tree_->root, false);
    root.insert(0, *change.splitLast);
    root.children = {left.number, change.right};
    root.write(*pages_, table_);
}

bool Index::insert(ByteView key, RowId row, bool mayRepeat) {
    const Bytes entry = makeEntry(key, row);
    if (entry.size() > kLongestEntry) {
        throw Error(ErrorNumber::kTooLong, "Klíč indexu je příliš dlouhý.",
                    "the key of an index is too long");
    }
    PageNumber leaf = 0;
    std::size_t at = 0;
    bool repeats = false;
    {
        const Place place = placeOf(entry);
        repeats = hasBeside(place, key);
        if (repeats && !mayRepeat) return true;
        at = place.at;
        const bool known = at < place.leaf.end() && place.leaf.startsWith(at, entry);
        if (!known && place.leaf.takes(at, entry)) leaf = place.leaf.number();
    }
    if (leaf != 0) {
        insertStored(*pages_, leaf, at, entry);
    } else {
        const Change change = insertBelow(tree_->root, entry, 0);
        if (change.splitLast) growRoot(change);
    }
    return repeats;
}

/// Merges a node's child with the one on its right, if both fit on a page.
bool Index::merge(IndexPage& node, std::size_t left) {
    IndexPage page = IndexPage::read(*pages_, node.children[left]);
    const IndexPage right = IndexPage::read(*pages_, node.children[left + 1]);
    if (page.leaf != right.leaf) throwDamage(right.number, 0, rule::kTreeShape);
    const std::size_t seam = page.children.size();
    if (!page.leaf) page.insert(page.count(), node.entry(left));
    page.append(right);
    if (!page.fits()) return false;
    page.next = right.next;
    page.write(*pages_, table_);
    if (right.next != 0) link(page.number, right.next);
    if (!page.leaf && childrenAreNodes(page)) {
        link(page.children[seam - 1], page.children[seam]);
    }
    freePage(right.number);
    node.erase(left);
    node.children.erase(node.children.begin() + static_cast<std::ptrdiff_t>(left) + 1);
    return true;
}

void Index::mergeChild(IndexPage& node, std::size_t child) {
    if (node.count() == 0) return;
    if (IndexPage::read(*pages_, node.children[child]).size() >= kUnderfull) return;
    if (child < node.count() && merge(node, child)) return;
    if (child > 0) merge(node, child - 1);
}

Index::Change Index::removeBelow(PageNumber number, ByteView entry, int depth) {
    checkDepth(number, depth);
    IndexPage page = IndexPage::read(*pages_, number);
    const std::size_t at = page.lowerBound(entry);
    Change mine;
    if (page.leaf) {
        if (at >= page.count() || compareBytes(page.entry(at), entry) != 0) {
            throwDamage(number, 0, rule::kEntryForRow);
        }
        page.erase(at);
        mine.removed = page.count() == 0;
        if (!mine.removed && at == page.count()) {
            mine.last = Bytes(page.last().begin(), page.last().end());
        }
    } else {
        const Change below = removeBelow(page.children[at], entry, depth + 1);
        mine = applyToNode(page, at, below);
        if (!mine.removed && !below.removed) mergeChild(page, at);
    }
    if (mine.removed && number != tree_->root) {
        unlink(page);
        freePage(number);
        return mine;
    }
    if (mine.removed) page = IndexPage(number, true);
    const Change split = save(page);
    mine.splitLast = split.splitLast;
    mine.right = split.right;
    return mine;
}

/// A root with one child takes over what that one has.
void Index::shrinkRoot() {
    IndexPage root = IndexPage::read(*pages_, tree_->root);
    while (!root.leaf && root.count() == 0) {
        const PageNumber child = root.children.front();
        root = IndexPage::read(*pages_, child);
        root.number = tree_->root;
        root.write(*pages_, table_);
        freePage(child);
    }
}

void Index::remove(ByteView key, RowId row) {
    const Change change = removeBelow(tree_->root, makeEntry(key, row), 0);
    if (change.splitLast) growRoot(change);
    shrinkRoot();
}

}  // namespace huebrush::jet
