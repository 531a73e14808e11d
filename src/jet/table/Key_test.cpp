// SPDX-License-Identifier: MPL-2.0

#include "jet/table/Key.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace huebrush::jet {
namespace {

std::string hexOf(const Bytes& bytes) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string out;
    for (const std::uint8_t byte : bytes) {
        if (!out.empty()) out += ' ';
        out += kDigits[byte >> 4U];
        out += kDigits[byte & 15U];
    }
    return out;
}

std::string textKey(const std::string& text) {
    const auto key = generalKey(text);
    return key ? hexOf(*key) : "unknown";
}

/// The key of one value in an index on one column.
std::string keyOf(ColumnType type, const Value& value, bool ascending = true) {
    TableDefinition table;
    Column column;
    column.type = type;
    column.sortOrder = 0x0409;
    table.columns.push_back(column);
    IndexTree tree;
    tree.columns.push_back({0, ascending});
    return hexOf(encodeKey(table, tree, [&](const Column&) { return value; })->bytes);
}

TEST(Key, TextIsAsInTheIndexesOfRealFiles) {
    EXPECT_EQ(textKey("MSysDb"), "60 6B 76 6B 4F 4C 01 00");
    EXPECT_EQ(textKey("Relationships"), "69 51 5E 4A 6D 59 64 62 6B 57 59 66 6B 01 00");
    EXPECT_EQ(textKey("Relace"), "69 51 5E 4A 4D 51 01 00");
    EXPECT_EQ(textKey("Kůň"), "5C 6F 62 01 02 1A 14 00");
    EXPECT_EQ(textKey(""), "01 00");
}

TEST(Key, CaseAndTrailingBlanksDoNotCount) {
    EXPECT_EQ(textKey("KŮŇ  "), textKey("kůň"));
    EXPECT_NE(textKey(" kůň"), textKey("kůň"));
}

TEST(Key, UnprintableCharactersCountLast) {
    EXPECT_EQ(textKey("a-b"), "4A 4C 01 01 01 01 80 0B 06 82 00");
    EXPECT_EQ(textKey("á'"), "4A 01 0E 01 01 01 80 0B 06 80 00");
}

TEST(Key, AccentsCountAfterAllLetters) {
    std::vector<std::string> words{"zeď", "žába", "cesta", "čas", "Cit"};
    std::sort(words.begin(), words.end(), [](const std::string& a, const std::string& b) {
        return *generalKey(a) < *generalKey(b);
    });
    EXPECT_EQ(words, (std::vector<std::string>{"čas", "cesta", "Cit", "žába", "zeď"}));
}

TEST(Key, CharactersOutsideTheKnownOrderHaveNoKey) {
    EXPECT_EQ(textKey("Ж"), "unknown");
}

/// Texts in the order in which a query returns them.
std::vector<std::string> sorted(std::vector<std::string> texts, std::uint16_t language) {
    Column column;
    column.type = ColumnType::text;
    column.sortOrder = language;
    std::sort(texts.begin(), texts.end(), [&](const std::string& a, const std::string& b) {
        return sortKey(column, a) < sortKey(column, b);
    });
    return texts;
}

TEST(SortKey, FollowsTheLanguageOfTheColumn) {
    const std::vector<std::string> words{"žába", "zeď",  "chata", "čas", "cesta", "Cit",
                                         "hrad", "idol", "šat",   "suk", "řád",   "rys"};
    EXPECT_EQ(sorted(words, 0x0409),
              (std::vector<std::string>{"čas", "cesta", "chata", "Cit", "hrad", "idol", "řád",
                                        "rys", "šat", "suk", "žába", "zeď"}));
    EXPECT_EQ(sorted(words, 0x0405),
              (std::vector<std::string>{"cesta", "Cit", "čas", "hrad", "chata", "idol", "rys",
                                        "řád", "suk", "šat", "zeď", "žába"}));
}

TEST(SortKey, PutsUnknownCharactersLast) {
    EXPECT_EQ(sorted({"Ж", "ži", "Б", "aЖ", "az"}, 0x0409),
              (std::vector<std::string>{"az", "aЖ", "ži", "Б", "Ж"}));
}

TEST(SortKey, OfNullComesFirstAndSomeValuesHaveNone) {
    Column column;
    EXPECT_LT(sortKey(column, Value()), sortKey(column, -2147483647 - 1));
    EXPECT_LT(sortKey(column, -1), sortKey(column, 1));
    column.type = ColumnType::ole;
    EXPECT_THROW(sortKey(column, Bytes{1}), base::Error);
}

TEST(Key, NumbersSortAsBytes) {
    EXPECT_EQ(keyOf(ColumnType::longInteger, std::int32_t{1}), "7F 80 00 00 01");
    EXPECT_EQ(keyOf(ColumnType::longInteger, std::int32_t{-1}), "7F 7F FF FF FF");
    EXPECT_EQ(keyOf(ColumnType::longInteger, std::numeric_limits<std::int32_t>::min()),
              "7F 00 00 00 00");
    EXPECT_EQ(keyOf(ColumnType::longInteger, std::int32_t{19}, false), "80 7F FF FF EC");
    EXPECT_EQ(keyOf(ColumnType::integer, std::int32_t{-2}), "7F 7F FE");
    EXPECT_EQ(keyOf(ColumnType::byte, std::int32_t{200}), "7F C8");
    EXPECT_LT(keyOf(ColumnType::real, -2.0), keyOf(ColumnType::real, -1.0));
    EXPECT_LT(keyOf(ColumnType::real, -1.0), keyOf(ColumnType::real, 0.5));
    EXPECT_LT(keyOf(ColumnType::single, -1.0F), keyOf(ColumnType::single, 0.0F));
    EXPECT_LT(keyOf(ColumnType::money, Money{-5}), keyOf(ColumnType::money, Money{5}));
}

TEST(Key, NullComesFirstOrInADescendingIndexLast) {
    EXPECT_EQ(keyOf(ColumnType::longInteger, Value()), "00");
    EXPECT_EQ(keyOf(ColumnType::longInteger, Value(), false), "FF");
}

TEST(Key, DescendingTextIsInverted) {
    EXPECT_EQ(keyOf(ColumnType::text, std::string("a"), false), "80 B5 FE FF 00");
}

}  // namespace
}  // namespace huebrush::jet
