#include "cli/palette/PaletteJson.h"

#include <gtest/gtest.h>

#include "cli/Failure.h"

namespace huebrush::cli {
namespace {

using jet::ColumnType;
using jet::Value;
using nlohmann::json;

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

class PaletteJson : public ::testing::Test {
 protected:
    std::vector<palette::Palette> read(const std::string& text) const {
        return palettesFromJson(json::parse(text), groups, elements);
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
    const std::string text = toJson(given).dump();
    EXPECT_EQ(text, R"({"ID":-3,"Name":"Žluť \"1\"\n","elements":[{"Order":7,"Preview":"AP8K",)"
                    R"("Ready":true,"Price":-1.2345,"Size":0.1,"Part":null,"Text":""},)"
                    R"({"Order":null,"Preview":""}]})");
    const auto palettes = read(R"({"palettes":[)" + text + "]}");
    ASSERT_EQ(palettes.size(), 1U);
    EXPECT_EQ(palettes[0].group, given.group);
    ASSERT_EQ(palettes[0].elements.size(), 2U);
    // An object's keys come back in their own order.
    for (std::size_t i = 0; i < 2; ++i) {
        ASSERT_EQ(palettes[0].elements[i].size(), given.elements[i].size());
        for (const auto& [name, value] : given.elements[i]) {
            EXPECT_EQ(palette::valueOf(palettes[0].elements[i], name), value) << name;
        }
    }
}

TEST_F(PaletteJson, TakesLessThanEveryColumn) {
    EXPECT_TRUE(read(R"({"palettes":[]})").empty());
    const auto palettes = read(R"({"palettes":[{"Name":"a"},{"elements":[{}]}]})");
    ASSERT_EQ(palettes.size(), 2U);
    EXPECT_TRUE(palettes[0].elements.empty());
    EXPECT_TRUE(palettes[1].elements.at(0).empty());
}

TEST_F(PaletteJson, SaysInOneLineWhatIsWrongAndWhere) {
    const std::string form = "the palettes are not in the form of \"huebrush palette dump\"";
    EXPECT_EQ(problemOf("[]"), form);
    EXPECT_EQ(problemOf("{}"), form);
    EXPECT_EQ(problemOf("3"), form);
    EXPECT_EQ(problemOf(R"({"palettes":{}})"), "the input: palettes must be an array");
    EXPECT_EQ(problemOf(R"({"palettes":[{},3]})"), "palette 2 is no object");
    EXPECT_EQ(problemOf(R"({"palettes":[{"elements":{}}]})"),
              "palette 1: elements must be an array");
    EXPECT_EQ(problemOf(R"({"palettes":[{"elements":[{},[]]}]})"),
              "palette 1, element 2 is no object");
    EXPECT_EQ(problemOf(R"({"palettes":[{"Colour":1}]})"),
              "palette 1: the table TFillGroup has no column Colour");
    const auto element = [&](const std::string& text) {
        return problemOf(R"({"palettes":[{"elements":[{)" + text + "}]}]}");
    };
    const std::string place = "palette 1, element 1: ";
    for (const char* const value :
         {"1.0", "\"1\"", "2147483648", "-2147483649", "true", "18446744073709551615", "[]"}) {
        EXPECT_EQ(element(std::string(R"("Order":)") + value),
                  place + "Order must be a whole number of 32 bits");
    }
    EXPECT_EQ(element(R"("Order":2147483647)"), "no error");
    EXPECT_EQ(element(R"("Order":-2147483648)"), "no error");
    EXPECT_EQ(element(R"("Preview":"AP8")"), place + "Preview must be bytes in base64");
    EXPECT_EQ(element(R"("Preview":[1])"), place + "Preview must be bytes in base64");
    EXPECT_EQ(element(R"("Ready":1)"), place + "Ready must be true or false");
    EXPECT_EQ(element(R"("Price":1e18)"), place + "Price must be an amount of 64 bits");
    EXPECT_EQ(element(R"("Size":"1")"), place + "Size must be a number");
    EXPECT_EQ(element(R"("Text":1)"), place + "Text must be a text");
}

}  // namespace
}  // namespace huebrush::cli
