// SPDX-License-Identifier: MPL-2.0

// Random changes of a palette file beside a plain table in memory.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "jet/MapLayouts_test_support.h"
#include "jet/Palette_test_support.h"

namespace huebrush::jet {
namespace {

class Model : public ::testing::Test {
 protected:
    static constexpr std::int32_t kNoGroup = 100000000;

    struct Element {
        std::int32_t group;
        std::int32_t order;
        std::string texture;
        Bytes preview;
    };

    std::size_t below(std::size_t limit) { return random() % limit; }
    /// One of a map's entries, found as fast in a large map.
    template <class Rows>
    auto anyOf(Rows& rows) {
        const std::int32_t first = rows.begin()->first;
        const std::int32_t last = std::prev(rows.end())->first;
        const std::size_t range = static_cast<std::size_t>(last - first) + 1;
        return rows.lower_bound(first + static_cast<std::int32_t>(below(range)));
    }
    Element anyElement(std::int32_t group) {
        // Mostly small, sometimes of several pages.
        const std::size_t size = below(20) == 0 ? below(20000) : below(200);
        return {group, static_cast<std::int32_t>(below(100)), std::string(below(255), 'x'),
                patternBytes(size, static_cast<std::uint32_t>(random()))};
    }
    Table::Values valuesOf(const Table& table, const Element& element) {
        return {{&table.column("GroupID"), element.group},
                {&table.column("OrderNumber"), element.order},
                {&table.column("TextureName"), element.texture},
                {&table.column("FillPreview"), element.preview}};
    }
    RowId rowOf(const Table& table, std::int32_t id) {
        return table.find(table.column("ID"), id).at(0);
    }
    bool attempt(const std::function<void()>& body) {
        try {
            file.database->change(body);
            return true;
        } catch (const base::Error&) {
            return false;
        }
    }

    void addGroup() {
        const std::string name = "Paleta " + std::to_string(below(1000));
        file.database->change([&] {
            Table table(*file.database, "TFillGroup");
            table.insert({{&table.column("Name"), name}});
            groups[table.lastAutonumber()] = name;
        });
    }
    void removeGroup() {
        const std::int32_t id = anyOf(groups)->first;
        const bool hasElements = elementsIn[id] != 0;
        const bool removed = attempt([&] {
            Table table(*file.database, "TFillGroup");
            table.remove(rowOf(table, id));
        });
        ASSERT_EQ(removed, !hasElements);
        if (removed) groups.erase(id);
    }
    void addElement() {
        // Sometimes for a palette that does not exist.
        const bool missing = below(20) == 0;
        const Element element = anyElement(missing ? kNoGroup : anyOf(groups)->first);
        std::int32_t id = 0;
        const bool added = attempt([&] {
            Table table(*file.database, "TFillElementParameter");
            table.insert(valuesOf(table, element));
            id = table.lastAutonumber();
        });
        ASSERT_EQ(added, !missing);
        if (!added) return;
        elements[id] = element;
        ++elementsIn[element.group];
    }
    void changeElement() {
        const auto at = anyOf(elements);
        const Element element = anyElement(anyOf(groups)->first);
        ASSERT_TRUE(attempt([&] {
            Table table(*file.database, "TFillElementParameter");
            table.update(rowOf(table, at->first), valuesOf(table, element));
        }));
        --elementsIn[at->second.group];
        ++elementsIn[element.group];
        at->second = element;
    }
    void removeElement() {
        const auto at = anyOf(elements);
        ASSERT_TRUE(attempt([&] {
            Table table(*file.database, "TFillElementParameter");
            table.remove(rowOf(table, at->first));
        }));
        --elementsIn[at->second.group];
        elements.erase(at);
    }

    void step() {
        const std::size_t kind = below(100);
        // Periods of growth and of decay, so that pages and trees go both ways.
        const std::size_t growth = operations / 2000 % 2 == 0 ? 60 : 25;
        ++operations;
        if (groups.empty() || kind < 4) return addGroup();
        if (kind < 8) return removeGroup();
        if (elements.empty() || kind < growth) return addElement();
        if (kind < 70) return changeElement();
        removeElement();
    }
    void compare() {
        ASSERT_EQ(waste ? damage(*file.database) : faults(*file.database), "") << operations;
        const auto groupRows = allRows(*file.database, "TFillGroup");
        ASSERT_EQ(groupRows.size(), groups.size());
        for (const auto& row : groupRows) {
            ASSERT_EQ(row[1], Value(groups.at(std::get<std::int32_t>(row[0]))));
        }
        const auto rows = allRows(*file.database, "TFillElementParameter");
        ASSERT_EQ(rows.size(), elements.size());
        for (const auto& row : rows) {
            const Element& element = elements.at(std::get<std::int32_t>(row[0]));
            ASSERT_EQ(row[1], Value(element.group));
            ASSERT_EQ(row[2], Value(element.order));
            ASSERT_EQ(row[3], Value(element.texture));
            ASSERT_EQ(row[4], Value(element.preview));
        }
    }

    void run(std::size_t wanted) {
        while (operations < wanted) {
            file.database->inOneCommit([&] {
                // A large file is checked less often, because that takes a while.
                const std::size_t steps = std::max<std::size_t>(500, elements.size());
                for (std::size_t i = 0; i < steps && operations < wanted; ++i) step();
            });
            ASSERT_FALSE(HasFatalFailure());
            compare();
            ASSERT_FALSE(HasFatalFailure());
        }
        file.database = Database::open(file.files, PaletteFile::kName);
        compare();
    }

    std::mt19937 random{5};
    PaletteFile file;
    std::map<std::int32_t, std::string> groups;
    std::map<std::int32_t, Element> elements;
    std::map<std::int32_t, std::size_t> elementsIn;  ///< by group
    std::size_t operations = 0;
    bool waste = false;  ///< other programs lose pages
};

TEST_F(Model, RandomChangesDoWhatAPlainTableDoes) {
    run(casesOf(1000000, 60000));
    std::cout << operations << " operations, " << elements.size() << " elements left, "
              << file.database->pages().count() << " pages\n";
}

TEST_F(Model, RandomChangesDoSoInTurnWithOtherProgramsThatLayOutTheMapsAnew) {
    waste = true;
    const auto turns = static_cast<std::uint32_t>(casesOf(400, 60));
    for (std::uint32_t turn = 0; turn < turns; ++turn) {
        const Bytes content = *file.files.files.at(PaletteFile::kName);
        *file.files.files.at(PaletteFile::kName) =
            withOtherMaps(content, turn, Layouts::ofThisEngine);
        file.database = Database::open(file.files, PaletteFile::kName);
        compare();
        file.database->inOneCommit([&] {
            for (int i = 0; i < 300; ++i) step();
        });
        ASSERT_FALSE(HasFatalFailure()) << turn;
        compare();
        ASSERT_FALSE(HasFatalFailure()) << turn;
    }
    std::cout << operations << " operations, " << lostPages(*file.database) << " lost pages of "
              << file.database->pages().count() << '\n';
}

TEST_F(Model, RandomChangesDoSoWithFewPagesInMemory) {
    file.database = Database::open(file.files, PaletteFile::kName, 5);
    run(6000 / kShare);
    EXPECT_EQ(file.files.files.size(), 1U);
}

}  // namespace
}  // namespace huebrush::jet
