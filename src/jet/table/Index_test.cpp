// SPDX-License-Identifier: MPL-2.0

#include "jet/table/Index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "jet/Palette_test_support.h"

namespace huebrush::jet {
namespace {

/// A tree in pages in memory, beside a plain set of what it holds.
class Trees : public ::testing::Test {
 protected:
    Trees() {
        makeMapPage(pages);
        tree.columns.push_back({0});
        tree.map = {0, 1};
        tree.root = space.take();
        UsageMap(pages, tree.map).add(tree.root, space.pageSource());
        clearIndexPage(pages, tree.root, kTable);
    }

    void insert(const Bytes& key, RowId row) {
        ASSERT_EQ(index.insert(key, row), inModel(key));
        model.insert(makeEntry(key, row));
    }
    bool inModel(const Bytes& key) const {
        const auto found = model.lower_bound(key);
        return found != model.end() &&
               std::equal(key.begin(), key.end(), keyOfEntry(*found).begin(),
                          keyOfEntry(*found).end());
    }
    void remove(const Bytes& entry) {
        index.remove(keyOfEntry(entry), rowOfEntry(entry));
        model.erase(entry);
    }
    Bytes any(std::mt19937& random) const {
        return *std::next(model.begin(), static_cast<std::ptrdiff_t>(random() % model.size()));
    }

    /// Walks the tree from its root; returns its depth.
    int verify() {
        seen.clear();
        entries.clear();
        leaves.clear();
        depthOfLeaves = -1;
        visit(tree.root, 0, {});
        EXPECT_TRUE(std::equal(entries.begin(), entries.end(), model.begin(), model.end()));
        for (std::size_t i = 0; i < leaves.size(); ++i) {
            const IndexPage leaf = IndexPage::read(pages, leaves[i]);
            EXPECT_EQ(leaf.previous, i == 0 ? 0 : leaves[i - 1]);
            EXPECT_EQ(leaf.next, i + 1 < leaves.size() ? leaves[i + 1] : 0);
        }
        const std::vector<PageNumber> mapped = UsageMap(pages, tree.map).all();
        EXPECT_EQ(std::set<PageNumber>(mapped.begin(), mapped.end()), seen);
        std::vector<Bytes> walked;
        index.walk([&](ByteView key, RowId row) {
            walked.push_back(makeEntry(key, row));
            return true;
        });
        EXPECT_EQ(walked, entries);
        return depthOfLeaves;
    }
    void visit(PageNumber number, int depth, const Bytes& most) {
        ASSERT_TRUE(seen.insert(number).second);
        const IndexPage page = IndexPage::read(pages, number);
        EXPECT_TRUE(page.fits());
        // An entry that was inserted in place leaves the page as if it had been rewritten.
        const Page stored = *pages.read(number);
        page.write(pages, kTable);
        EXPECT_EQ(stored, *pages.read(number)) << number;
        if (page.leaf) {
            if (depthOfLeaves < 0) depthOfLeaves = depth;
            EXPECT_EQ(depthOfLeaves, depth);
            leaves.push_back(number);
            for (std::size_t i = 0; i < page.count(); ++i) {
                entries.emplace_back(page.entry(i).begin(), page.entry(i).end());
            }
        } else {
            EXPECT_TRUE(page.count() > 0 || number != tree.root);
            for (std::size_t i = 0; i < page.children.size(); ++i) {
                const ByteView last = i < page.count() ? page.entry(i) : ByteView(most);
                visit(page.children[i], depth + 1, Bytes(last.begin(), last.end()));
            }
        }
        if (!most.empty() && !entries.empty()) {
            EXPECT_EQ(entries.back(), most);
        }
    }

    static constexpr PageNumber kTable = 77;
    Pages pages;
    Space space{pages, {0, 0}};
    IndexTree tree;
    Index index{pages, tree, kTable, &space};
    std::set<Bytes> model;
    std::set<PageNumber> seen;
    std::vector<Bytes> entries;
    std::vector<PageNumber> leaves;
    int depthOfLeaves = -1;
};

Bytes numberKey(std::uint32_t number) {
    Bytes key{0x7F};
    appendBig(key, number, 4);
    return key;
}

/// Keys of very different lengths, as texts have them.
Bytes longKey(std::mt19937& random, std::size_t most) {
    Bytes key{0x7F};
    const std::size_t size = 2 + random() % most;
    while (key.size() < size) append8(key, 0x4A + random() % 32);
    appendBig(key, random(), 4);
    append8(key, 0);
    return key;
}

RowId rowFor(std::uint32_t number) {
    return {number / 200 + 1, static_cast<std::uint8_t>(number % 200)};
}

TEST_F(Trees, RisingKeysFillTheLeaves) {
    constexpr std::uint32_t kRows = 20000 / kShare;
    for (std::uint32_t i = 0; i < kRows; ++i) insert(numberKey(i), rowFor(i));
    EXPECT_EQ(verify(), 1);
    EXPECT_LE(leaves.size(), kRows / 400 + 1);
    EXPECT_EQ(index.find(numberKey(777)), std::vector<RowId>{rowFor(777)});
    EXPECT_TRUE(index.contains(numberKey(kRows - 1)));
    EXPECT_FALSE(index.contains(numberKey(kRows)));
}

TEST_F(Trees, RandomKeysAndRemovalsKeepItSound) {
    std::mt19937 random(2);
    for (std::uint32_t i = 0; i < 20000 / kShare; ++i) {
        if (model.size() > 10 && random() % 3 == 0) {
            remove(any(random));
        } else {
            insert(numberKey(static_cast<std::uint32_t>(random() % 5000)), rowFor(i));
        }
        if (i % 2000 == 0) verify();
    }
    verify();
}

TEST_F(Trees, IsDeepWithLongKeysAndComesBackToOnePage) {
    std::mt19937 random(3);
    for (std::uint32_t i = 0; i < 3000 / kShare; ++i) insert(longKey(random, 1200), rowFor(i));
    EXPECT_GE(verify(), kShare > 1 ? 2 : 4);
    while (!model.empty()) {
        remove(any(random));
        if (model.size() % 250 == 0) verify();
    }
    EXPECT_EQ(verify(), 0);
    EXPECT_EQ(UsageMap(pages, tree.map).all(), std::vector<PageNumber>{tree.root});
}

TEST_F(Trees, RemovalsFromEitherEndAndTheMiddle) {
    constexpr std::size_t kPart = 3000 / kShare;
    for (std::uint32_t i = 0; i < 3 * kPart; ++i) insert(numberKey(i), rowFor(i));
    while (model.size() > 2 * kPart) remove(*model.begin());
    verify();
    while (model.size() > kPart) remove(*model.rbegin());
    verify();
    while (model.size() > 1) {
        remove(*std::next(model.begin(), static_cast<std::ptrdiff_t>(model.size() / 2)));
    }
    EXPECT_EQ(verify(), 0);
}

TEST_F(Trees, EqualKeysAreOrderedByTheirRows) {
    constexpr std::size_t kRows = 3000 / kShare;
    for (std::uint32_t i = kRows; i > 0; --i) insert(numberKey(5), rowFor(i));
    verify();
    const std::vector<RowId> rows = index.find(numberKey(5));
    EXPECT_EQ(rows.size(), kRows);
    EXPECT_TRUE(std::is_sorted(rows.begin(), rows.end()));
}

TEST_F(Trees, FallingKeysComeBeforeAllOthers) {
    for (std::uint32_t i = 5000; i > 0; --i) insert(numberKey(i), rowFor(i));
    EXPECT_EQ(verify(), 1);
}

TEST_F(Trees, AKeyThatMayNotRepeatIsReportedAndNotAdded) {
    // So many rows of one key that they span several leaves, between keys of one row each.
    for (std::uint32_t i = 0; i < 1500; ++i) insert(numberKey(50), {1000 + i, 7});
    for (std::uint32_t i = 0; i < 100; i += 2) {
        if (i != 50) insert(numberKey(i), rowFor(i));
    }
    ASSERT_GT(UsageMap(pages, tree.map).all().size(), 4U);
    for (std::uint32_t i = 0; i < 100; ++i) {
        for (const PageNumber page : {1U, 1700U, 100000U}) {
            const bool isThere = inModel(numberKey(i));
            ASSERT_EQ(index.insert(numberKey(i), {page, 9}, false), isThere) << i;
            if (!isThere) index.remove(numberKey(i), {page, 9});
        }
    }
    verify();
}

TEST_F(Trees, WhatOthersChangeAndUndoRevertsIsSeen) {
    std::mt19937 random(6);
    Index other{pages, tree, kTable, &space};
    for (std::uint32_t i = 0; i < 6000 / kShare; ++i) {
        const std::set<Bytes> before = model;
        pages.mark();
        for (std::size_t steps = random() % 8; steps > 0; --steps) {
            const std::size_t kind = random() % 6;
            const auto number = static_cast<std::uint32_t>(random() % 3000);
            if (kind == 0 && !model.empty()) {
                const Bytes entry = any(random);
                other.remove(keyOfEntry(entry), rowOfEntry(entry));
                model.erase(entry);
            } else if (kind < 3) {
                // Rising keys, which go to the last leaf.
                insert(numberKey(10000 + i), {i + 1, static_cast<std::uint8_t>(steps)});
            } else {
                const RowId row{i + 1, static_cast<std::uint8_t>(steps)};
                ASSERT_EQ(other.insert(numberKey(number), row), inModel(numberKey(number)));
                model.insert(makeEntry(numberKey(number), row));
            }
        }
        if (random() % 3 == 0) {
            pages.undo();
            space.restart();
            model = before;
        }
        if (i % 500 == 0) verify();
    }
    verify();
}

TEST_F(Trees, APageThatWasDamagedSinceItWasLastUsedIsNotWritten) {
    for (std::uint32_t i = 0; i < 900; ++i) insert(numberKey(i), rowFor(i));
    verify();
    // Two entries become one too short, a byte beside the entry that will be looked at.
    Page& page = pages.change(leaves.back());
    page[27] |= 0x06;
    const Page damaged = page;
    EXPECT_THROW(index.insert(numberKey(900), rowFor(900)), Damage);
    EXPECT_EQ(*pages.read(leaves.back()), damaged);
}

TEST_F(Trees, WhatIsNotThereCannotBeRemoved) {
    insert(numberKey(1), rowFor(1));
    EXPECT_THROW(index.remove(numberKey(1), rowFor(2)), Damage);
    EXPECT_THROW(index.insert(numberKey(1), rowFor(1)), Damage);
}

TEST_F(Trees, ATreeThatGoesInCirclesIsDamage) {
    for (std::uint32_t i = 0; i < 900; ++i) insert(numberKey(i), rowFor(i));
    Writer(pages.change(tree.root)).u32(20, tree.root);
    EXPECT_THROW(index.find(numberKey(100000)), Damage);
    EXPECT_THROW(index.insert(numberKey(100000), rowFor(1)), Damage);
}

TEST_F(Trees, ALeafChainThatGoesInCirclesIsDamage) {
    for (std::uint32_t i = 0; i < 900; ++i) insert(numberKey(i), rowFor(i));
    verify();
    Writer(pages.change(leaves.back())).u32(16, leaves.front());
    EXPECT_THROW(index.walk([](ByteView, RowId) { return true; }), Damage);
}

}  // namespace
}  // namespace huebrush::jet
