// SPDX-License-Identifier: MPL-2.0

#include "cli/palette/PaletteJson.h"

#include <gtest/gtest.h>

#include <sstream>

#include "cli/Failure.h"

namespace huebrush::cli {
namespace {

using jet::ColumnType;
using jet::Value;
using nlohmann::ordered_json;

jet::TableDefinition table(const char* name,
                           const std::vector<std::pair<const char*, ColumnType>>& columns) {
    jet::TableDefinition made;
    made.name = name;
    for (const auto& [column, type] : columns) {
        made.columns.emplace_back();
        made.columns.back().name = column;
        made.columns.back().type = type;
    }
    return made;
}

/// Keeps the palettes that it receives.
class Collector final : public palette::PaletteSink {
 public:
    void begin(const Values& group) override { known.push_back(recordOf(group)); }
    void fill(const Values& fill) override { elements.push_back(recordOf(fill)); }
    void end(const Values& group) override {
        if (palette::valueOf(recordOf(group), "Name") == Value(std::string("refused"))) {
            throw base::Error(1, "Tak ne.");
        }
        found.push_back({recordOf(group), std::exchange(elements, {})});
    }
    static palette::Record recordOf(const Values& values) {
        palette::Record record;
        for (const auto& [column, value] : values) record.emplace_back(column->name, value);
        return record;
    }

    std::vector<palette::Record> known;
    std::vector<palette::Record> elements;
    std::vector<palette::Palette> found;
};

class PaletteJson : public ::testing::Test {
 protected:
    std::vector<palette::Palette> read(const std::string& text) const {
        std::istringstream input(text);
        Collector collector;
        readPalettes(input, "the text", groups, elements, collector);
        EXPECT_EQ(collector.known.size(), collector.found.size());
        return collector.found;
    }
    std::string problemOf(const std::string& text) const {
        try {
            read(text);
            return "no error";
        } catch (const Failure& failure) {
            return failure.what();
        }
    }

    jet::TableDefinition groups =
        table("TFillGroup", {{"ID", ColumnType::longInteger}, {"Name", ColumnType::text}});
    jet::TableDefinition elements =
        table("TFillElementParameter", {{"Order", ColumnType::longInteger},
                                        {"Preview", ColumnType::ole},
                                        {"Ready", ColumnType::boolean},
                                        {"Price", ColumnType::money},
                                        {"Size", ColumnType::real},
                                        {"Part", ColumnType::single},
                                        {"Text", ColumnType::memo}});
};

TEST_F(PaletteJson, ReadsBackWhatItHasWritten) {
    const palette::Palette given{{{"ID", -3}, {"Name", std::string("Žluť \"1\"\n")}},
                                 {{{"Order", 7},
                                   {"Preview", jet::Bytes{0, 255, 10}},
                                   {"Ready", true},
                                   {"Price", jet::Money{-12345}},
                                   {"Size", 0.1},
                                   {"Part", Value()},
                                   {"Text", std::string()}},
                                  {{"Order", Value()}, {"Preview", jet::Bytes{}}}}};
    ordered_json whole = toJson(given.group);
    for (const auto& each : given.elements) whole["elements"].push_back(toJson(each));
    const std::string text = whole.dump();
    EXPECT_EQ(text, R"({"ID":-3,"Name":"Žluť \"1\"\n","elements":[{"Order":7,"Preview":"AP8K",)"
                    R"("Ready":true,"Price":-1.2345,"Size":0.1,"Part":null,"Text":""},)"
                    R"({"Order":null,"Preview":""}]})");
    const auto palettes = read(R"({"palettes":[)" + text + "]}");
    ASSERT_EQ(palettes.size(), 1U);
    EXPECT_EQ(palettes[0].group, given.group);
    ASSERT_EQ(palettes[0].elements.size(), 2U);
    EXPECT_EQ(palettes[0].elements, given.elements);
}

TEST_F(PaletteJson, AcceptsKeysInAnyOrder) {
    const auto palettes = read(
        R"({"version":[{"a":[1]}],"palettes":[{"elements":[{"Text":"t","Order":1}],"Name":"a",)"
        R"("ID":2}],"more":{"palettes":[3]}})");
    ASSERT_EQ(palettes.size(), 1U);
    const palette::Record group{{"Name", std::string("a")}, {"ID", 2}};
    EXPECT_EQ(palettes[0].group, group);
    const palette::Record element{{"Text", std::string("t")}, {"Order", 1}};
    EXPECT_EQ(palettes[0].elements.at(0), element);
}

TEST_F(PaletteJson, OfAColumnThatIsGivenTwiceTheLaterValueCounts) {
    const auto palettes = read(R"({"palettes":[{"ID":1,"Name":"a","ID":2,"Name":"b"}]})");
    const palette::Record group{{"ID", 2}, {"Name", std::string("b")}};
    EXPECT_EQ(palettes.at(0).group, group);
}

TEST_F(PaletteJson, RefusesWhatIsNestedDeeply) {
    const auto nested = [](std::size_t depth) {
        return R"({"more":)" + std::string(depth, '[') + std::string(depth, ']') +
               R"(,"palettes":[]})";
    };
    EXPECT_EQ(problemOf(nested(100)), "no error");
    const std::string tooDeep = "the text is nested deeper than 100 levels";
    EXPECT_EQ(problemOf(nested(101)), tooDeep);
    EXPECT_EQ(problemOf(nested(150000)), tooDeep);
    std::string objects;
    for (int i = 0; i < 150000; ++i) objects += R"({"a":)";
    EXPECT_EQ(problemOf(objects), tooDeep);
    EXPECT_EQ(problemOf(R"({"palettes":)" + std::string(150000, '[')),
              "palette 1 is not an object");
    EXPECT_EQ(problemOf(R"({"palettes":[{"Name":)" + std::string(150000, '[')),
              "palette 1: Name must be a string");
}

TEST_F(PaletteJson, AcceptsFewerThanAllColumns) {
    EXPECT_TRUE(read(R"({"palettes":[]})").empty());
    const auto palettes = read(R"({"palettes":[{"Name":"a"},{"elements":[{}]}]})");
    ASSERT_EQ(palettes.size(), 2U);
    EXPECT_TRUE(palettes[0].elements.empty());
    EXPECT_TRUE(palettes[1].elements.at(0).empty());
}

TEST_F(PaletteJson, SaysInOneLineWhatIsWrongAndWhere) {
    const std::string form = "the palettes are not in the format of \"huebrush palette dump\"";
    EXPECT_EQ(problemOf("[]"), form);
    EXPECT_EQ(problemOf("{}"), form);
    EXPECT_EQ(problemOf("3"), form);
    EXPECT_EQ(problemOf(""), "the text is not valid JSON: error at byte 1");
    EXPECT_EQ(problemOf("{\"palettes\":[{\"Name\":\"\xFF\"}]}"),
              "the text is not valid JSON: error at byte 23");
    EXPECT_EQ(problemOf(R"({"palettes":[]} x)"), "the text is not valid JSON: error at byte 17");
    EXPECT_EQ(problemOf(R"({"palettes":[],"palettes":[]})"), "the input: palettes appears twice");
    EXPECT_EQ(problemOf(R"({"palettes":[{"elements":[],"elements":[]}]})"),
              "palette 1: elements appears twice");
    EXPECT_EQ(problemOf(R"({"palettes":[{},{"elements":[{}],"Name":"refused"}]})"),
              "palette 2: Tak ne.");
    EXPECT_EQ(problemOf(R"({"palettes":{}})"), "the input: palettes must be an array");
    EXPECT_EQ(problemOf(R"({"palettes":[{},3]})"), "palette 2 is not an object");
    EXPECT_EQ(problemOf(R"({"palettes":[{"elements":{}}]})"),
              "palette 1: elements must be an array");
    EXPECT_EQ(problemOf(R"({"palettes":[{"elements":[{},[]]}]})"),
              "palette 1, element 2 is not an object");
    EXPECT_EQ(problemOf(R"({"palettes":[{"Colour":1}]})"),
              "palette 1: the table TFillGroup has no column Colour");
    const auto element = [&](const std::string& text) {
        return problemOf(R"({"palettes":[{"elements":[{)" + text + "}]}]}");
    };
    const std::string place = "palette 1, element 1: ";
    for (const char* const value :
         {"1.0", "\"1\"", "2147483648", "-2147483649", "true", "18446744073709551615", "[]"}) {
        EXPECT_EQ(element(std::string(R"("Order":)") + value),
                  place + "Order must be a 32-bit whole number");
    }
    EXPECT_EQ(element(R"("Order":2147483647)"), "no error");
    EXPECT_EQ(element(R"("Order":-2147483648)"), "no error");
    EXPECT_EQ(element(R"("Preview":"AP8")"), place + "Preview must be a string in base64");
    EXPECT_EQ(element(R"("Preview":[1])"), place + "Preview must be a string in base64");
    EXPECT_EQ(element(R"("Ready":1)"), place + "Ready must be true or false");
    EXPECT_EQ(element(R"("Price":1e18)"), place + "Price must be an amount that fits in 64 bits");
    EXPECT_EQ(element(R"("Size":"1")"), place + "Size must be a number");
    EXPECT_EQ(element(R"("Text":1)"), place + "Text must be a string");
}

}  // namespace
}  // namespace huebrush::cli
