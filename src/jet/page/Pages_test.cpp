// SPDX-License-Identifier: MPL-2.0

#include "jet/page/Pages.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <filesystem>
#include <random>

#include "base/Allocations_test_support.h"
#include "files/Folder_test_support.h"
#include "jet/file/MemoryFiles.h"

namespace huebrush::jet {
namespace {

using base::Allocations;

constexpr std::size_t kMemory = 6;

Page filled(std::uint32_t number) {
    Page page{};
    for (std::size_t i = 0; i < page.size(); ++i) {
        page[i] = static_cast<std::uint8_t>(number >> (8 * (i % 4)));
    }
    return page;
}

/// A file of some pages, with a few of them in memory, beside a plain list of what they hold.
class PagesOfAFile : public ::testing::Test {
 protected:
    PagesOfAFile() { open(20); }

    void open(std::uint32_t count) {
        const auto file = files.create("/file");
        for (std::uint32_t i = 0; i < count; ++i) {
            model.push_back(filled(i));
            file->write(std::uint64_t{i} * kPageSize, model.back());
        }
        pages = std::make_unique<Pages>(file->publish(), scratch(), kMemory);
        before = model;
    }
    PageStore::MakeFile scratch() {
        return [this] { return files.create("/scratch"); };
    }
    void change(PageNumber number) {
        Page& page = pages->change(number);
        EXPECT_EQ(page, model[number]);
        page = model[number] = filled(static_cast<std::uint32_t>(random()));
    }
    void compare() {
        ASSERT_EQ(pages->count(), model.size());
        for (PageNumber i = 0; i < pages->count(); ++i) ASSERT_EQ(*pages->read(i), model[i]) << i;
    }
    void commit() {
        const auto lock = files.lock("/file");
        const auto file = lock->replacement();
        pages->writeTo(*file);
        pages->adopt(file->publish());
        EXPECT_FALSE(pages->changed());
        pages->mark();
        before = model;
    }
    void step() {
        const std::size_t kind = random() % 40;
        if (kind == 0) {
            commit();
        } else if (kind < 3) {
            pages->mark();
            before = model;
        } else if (kind < 5) {
            pages->undo();
            model = before;
        } else if (kind < 8) {
            ASSERT_EQ(pages->append(), model.size());
            model.push_back({});
        } else if (kind < 25) {
            change(static_cast<PageNumber>(random() % model.size()));
        } else if (kind < 30) {
            const auto number = static_cast<PageNumber>(random() % model.size());
            held.emplace_back(pages->read(number), model[number]);
            if (held.size() > 10) held.pop_front();
        } else {
            const auto number = static_cast<PageNumber>(random() % model.size());
            ASSERT_EQ(*pages->read(number), model[number]);
        }
        for (const auto& [page, content] : held) ASSERT_EQ(*page, content);
    }

    std::mt19937 random{8};
    MemoryFiles files;
    std::unique_ptr<Pages> pages;
    std::vector<Page> model;
    std::vector<Page> before;
    std::deque<std::pair<PagePointer, Page>> held;
};

TEST_F(PagesOfAFile, AreWhatTheyWereChangedToHoweverFewAreInMemory) {
    for (int i = 0; i < 20000 && model.size() < 400; ++i) {
        step();
        ASSERT_FALSE(HasFatalFailure()) << i;
        if (i % 100 == 0) compare();
    }
    compare();
    commit();
    EXPECT_EQ(files.files.at("/file")->size(), model.size() * kPageSize);
    compare();
    EXPECT_EQ(files.files.size(), 1U);
}

TEST_F(PagesOfAFile, StayAsTheyWereReadForAsLongAsTheyAreRead) {
    const PagePointer read = pages->read(3);
    const Page content = *read;
    {
        const PagePointer copy = read;  // NOLINT: a second reader, that is all of its use
        change(3);
    }
    EXPECT_EQ(*read, content);
    EXPECT_EQ(*pages->read(3), model[3]);
}

TEST_F(PagesOfAFile, AreChangedInPlaceWhereNobodyReadsThem) {
    const Page* const first = &pages->change(3);
    EXPECT_EQ(&pages->change(3), first);
    PagePointer read = pages->read(3);
    PagePointer moved = std::move(read);
    const Page* const second = &pages->change(3);
    EXPECT_NE(second, first);
    EXPECT_EQ(&*moved, first);
    moved = PagePointer();
    EXPECT_EQ(&pages->change(3), second);
    pages->mark();
    // Undo needs the page as it is at the mark.
    EXPECT_NE(&pages->change(3), second);
}

TEST_F(PagesOfAFile, AreUnchangedAfterUndo) {
    EXPECT_FALSE(pages->changed());
    for (PageNumber i = 0; i < 20; ++i) change(i);
    EXPECT_TRUE(pages->changed());
    pages->undo();
    EXPECT_FALSE(pages->changed());
    model = before;
    compare();
}

TEST_F(PagesOfAFile, StayAsTheyAreWhenTheScratchFileFails) {
    files.onCall = [](const char* what) {
        if (std::string(what) == "write") throw base::Error(ErrorNumber::kOutOfSpace, what);
    };
    bool failed = false;
    for (PageNumber i = 0; i < 20 && !failed; ++i) {
        try {
            change(i);
        } catch (const base::Error&) {
            failed = true;
        }
    }
    EXPECT_TRUE(failed);
    pages->undo();
    model = before;
    compare();
    files.onCall = nullptr;
    for (PageNumber i = 0; i < 20; ++i) change(i);
    compare();
}

TEST_F(PagesOfAFile, TakeABoundedMemoryWhenAllOfManyAreChangedTwice) {
    if (!Allocations::kCounted) GTEST_SKIP() << "the sanitizers allocate themselves";
    constexpr PageNumber kMany = 20000;
    // Files of the system, for those in memory would be counted.
    const huebrush::files::TemporaryFolder temporary;
    const std::filesystem::path& folder = temporary.path();
    std::ofstream(folder / "pages").close();
    std::filesystem::resize_file(folder / "pages", std::uint64_t{kMany} * kPageSize);
    {
        // Some systems read a file whole when it is opened.
        auto file = systemFiles().open(huebrush::files::nameOf(folder / "pages"));
        Allocations::restart();
        Pages many(std::move(file), [&] {
            return systemFiles().create(huebrush::files::nameOf(folder / "scratch"));
        });
        for (std::uint32_t round = 1; round <= 2; ++round) {
            many.mark();
            for (PageNumber i = 0; i < kMany; ++i) many.change(i) = filled(i * round);
        }
        EXPECT_LT(Allocations::sinceRestart().most, std::size_t{24} << 20U);
        for (PageNumber i = 0; i < kMany; ++i) ASSERT_EQ(*many.read(i), filled(2 * i));
        many.undo();
        for (PageNumber i = 0; i < kMany; ++i) ASSERT_EQ(*many.read(i), filled(i));
        EXPECT_LT(Allocations::sinceRestart().most, std::size_t{24} << 20U);
    }
}

}  // namespace
}  // namespace huebrush::jet
