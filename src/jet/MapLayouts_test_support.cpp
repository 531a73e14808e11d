// SPDX-License-Identifier: MPL-2.0

#include "jet/MapLayouts_test_support.h"

#include <algorithm>
#include <random>
#include <set>

#include "jet/database/Database.h"
#include "jet/database/Owners.h"
#include "jet/file/MemoryFiles.h"
#include "jet/page/DataPage.h"

namespace huebrush::jet {

namespace {

constexpr const char* kName = "/layout.mdb";
constexpr const char* kMade = "/made.mdb";
constexpr std::size_t kPagesABitmap = (kPageSize - 4) * 8;
constexpr std::size_t kReferences = 17;

using Set = std::set<PageNumber>;

/// Gives the maps of a file another layout. It shares no code with UsageMap, which it is there to
/// test.
class MapMaker {
 public:
    MapMaker(const Bytes& sound, std::uint32_t seed) : random_(seed) {
        files_.files[kName] = std::make_shared<Bytes>(sound);
        database_ = Database::open(files_, kName);
        const UsageMap free(pages(), database_->header().freeMap);
        for (const PageNumber page : free.all()) {
            if (page < pages().count()) free_.insert(page);
        }
    }

    void layOutEverything(Layouts layouts) {
        const auto maps = tableMaps();
        addStrayPages();
        for (const RowId where : maps) {
            if (below(2) == 0) continue;
            const auto all = UsageMap(pages(), where).all();
            layOut(where, Set(all.begin(), all.end()), layouts);
        }
        layOutFreeMap(static_cast<Form>(below(kForms)));
    }

    /// The first bit stands for the last page, or for the one after it.
    void layOutFreeMapAtTheEnd() {
        for (std::size_t left = below(40); left > 0; --left) newPage();
        const auto last = static_cast<PageNumber>(below(2));
        while (pages().count() % 8 != last) newPage();
        const RowId where = database_->header().freeMap;
        const Bytes row = bits(pages().count() - last, 64, freeMap());
        setRow(pages().change(where.page), where.page, where.slot, row, SlotFlag::kNone);
    }

    Bytes file() {
        const auto made = files_.create(kMade);
        pages().writeTo(*made);
        made->publish();
        return *files_.files.at(kMade);
    }

 private:
    enum class Form { beginning, behindTheEnd, longer, shorter, bitmaps, missing, stale };
    static constexpr std::size_t kForms = 7;
    /// Whether a bit is set.
    using Has = std::function<bool(std::uint64_t page)>;

    Pages& pages() { return database_->pages(); }
    std::size_t below(std::size_t limit) { return random_() % limit; }

    std::vector<RowId> tableMaps() {
        std::vector<RowId> rows;
        for (const StoredObject& object : database_->objects()) {
            if (!object.isTable()) continue;
            tables_.push_back(static_cast<PageNumber>(object.id));
            for (const TableMap& map : mapsOf(*database_->definition(tables_.back()))) {
                rows.push_back(map.where);
            }
        }
        return rows;
    }

    /// A page at the end that is in use, according to the future free map.
    PageNumber newPage() { return pages().append(); }

    /// What other programs leave: pages that are free and still look used, or that they lost.
    void addStrayPages() {
        for (std::size_t left = below(12); left > 0; --left) {
            const PageNumber page = newPage();
            Page& content = pages().change(page);
            const Writer out(content);
            static constexpr std::uint8_t kTypes[] = {0, 1, 1, 1, 2, 3, 4, 5, 8, 9, 77};
            out.u8(0, kTypes[below(std::size(kTypes))]);
            out.u8(1, 1);
            const std::uint32_t owners[] = {0, 1, kLongValueOwner, tables_[below(tables_.size())]};
            out.u32(4, owners[below(std::size(owners))]);
            for (std::size_t at = 8; below(2) == 0 && at < kPageSize; ++at) {
                content[at] = static_cast<std::uint8_t>(random_());
            }
            if (below(3) != 0) free_.insert(page);
        }
    }

    Has within(const Set& set) {
        return [set](std::uint64_t page) { return set.contains(static_cast<PageNumber>(page)); };
    }
    /// What the free map says: future pages are free.
    Has freeMap() {
        return [this](std::uint64_t page) {
            return page >= pages().count() || free_.contains(static_cast<PageNumber>(page));
        };
    }

    Bytes bits(PageNumber first, std::size_t bytes, const Has& has) {
        Bytes row(5 + bytes, 0);
        Writer(row).u32(1, first);
        for (std::size_t bit = 0; bit < bytes * 8; ++bit) {
            if (has(first + bit)) row[5 + bit / 8] |= static_cast<std::uint8_t>(1U << (bit % 8));
        }
        return row;
    }

    PageNumber bitmapPage(std::size_t number, const Has& has) {
        const PageNumber page = newPage();
        Page& content = pages().change(page);
        content[0] = PageType::kMap;
        content[1] = 1;
        for (std::size_t bit = 0; bit < kPagesABitmap; ++bit) {
            if (!has(number * kPagesABitmap + bit)) continue;
            content[4 + bit / 8] |= static_cast<std::uint8_t>(1U << (bit % 8));
        }
        return page;
    }

    /// A row of page numbers, as long as the usual one or a longer one. What follows the last
    /// number means nothing.
    Bytes references(const Has& has, std::size_t size, bool stale, bool withFirst = true) {
        Bytes row(size, 0);
        row[0] = 1;
        if (withFirst) Writer(row).u32(1, bitmapPage(0, has));
        for (std::size_t at = 1 + 4 * kReferences; stale && at < size; ++at) {
            row[at] = static_cast<std::uint8_t>(random_());
        }
        return row;
    }

    /// Gives a map another row. Whether there was room for it; else it is as it was.
    bool store(RowId where, const Bytes& row) {
        return setRow(pages().change(where.page), where.page, where.slot, row, SlotFlag::kNone);
    }

    /// Moves the row of a map to a new page of its own.
    RowId move(RowId where, const Bytes& row) {
        const PageNumber page = newPage();
        clearDataPage(pages().change(page), 0);
        const RowId target{page, addRow(pages().change(page), page, row, SlotFlag::kTarget)};
        Bytes pointer;
        append32(pointer, target.pointer());
        setRow(pages().change(where.page), where.page, where.slot, pointer, SlotFlag::kMoved);
        return target;
    }

    void layOut(RowId where, const Set& set, Layouts layouts) {
        // Bitmap pages are as valid for a map of few pages as for one of many.
        const PageNumber low = set.empty() ? 0 : *set.begin();
        const PageNumber high = set.empty() ? 0 : *set.rbegin();
        const auto most = static_cast<PageNumber>(set.empty() ? 1000 : low / 8);
        const auto first = static_cast<PageNumber>(8 * (most - below(std::min(most, 5U) + 1)));
        const std::size_t least = (high < first ? 0 : high - first) / 8 + 1;
        Bytes row;
        switch (below(4)) {
            case 0:
                row = bits(first, std::max<std::size_t>(least, 64), within(set));
                break;
            case 1:
                row = bits(first, least + below(4), within(set));
                break;
            case 2:
                row = references(within(set), 69, false);
                break;
            default:
                row = references(within(set), 69 + 4 * below(10), layouts == Layouts::ofThisEngine);
        }
        if (layouts == Layouts::ofThisEngine && below(3) == 0) {
            move(where, row);
        } else {
            store(where, row);
        }
    }

    void layOutFreeMap(Form form) {
        const RowId where = database_->header().freeMap;
        if (below(3) != 0 && store(where, freeMapRow(form))) return;
        // The page that the row needs is there before its bits are made.
        const RowId target = move(where, {});
        setRow(pages().change(target.page), target.page, target.slot, freeMapRow(form),
               SlotFlag::kTarget);
    }

    Bytes freeMapRow(Form form) {
        const Has has = freeMap();
        const PageNumber end = pages().count();
        // A page more than the file has now may come with the bitmap page.
        const std::size_t length = end / 8 + 1;
        switch (form) {
            case Form::beginning:
                return bits(static_cast<PageNumber>(8 * below(length)), 64, has);
            case Form::behindTheEnd:
                return bits(static_cast<PageNumber>(8 * (length + below(20))), 64, has);
            case Form::longer:
                return bits(0, 64 + 4 * (1 + below(200)), has);
            case Form::shorter:
                return bits(static_cast<PageNumber>(8 * below(length)), 4 * below(4), has);
            case Form::bitmaps:
                return references(has, 69, false);
            case Form::missing:
                return references(has, 69 - 4 * below(18), false, false);
            case Form::stale:
                break;
        }
        return references(has, 69 + 4 * (1 + below(12)), true, below(2) == 0);
    }

    std::mt19937 random_;
    MemoryFiles files_;
    std::shared_ptr<Database> database_;
    Set free_;
    std::vector<PageNumber> tables_;
};

}  // namespace

Bytes withOtherMaps(const Bytes& sound, std::uint32_t seed, Layouts layouts) {
    MapMaker maker(sound, seed);
    maker.layOutEverything(layouts);
    return maker.file();
}

Bytes withFreeMapAtTheEnd(const Bytes& sound, std::uint32_t seed) {
    MapMaker maker(sound, seed);
    maker.layOutFreeMapAtTheEnd();
    return maker.file();
}

}  // namespace huebrush::jet
