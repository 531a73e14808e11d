// SPDX-License-Identifier: MPL-2.0

#include <gtest/gtest.h>

#include <string>

#include "protocol/DocumentFormat.h"
#include "protocol/Job.h"

namespace huebrush::protocol {
namespace {

using nlohmann::json;

fill::FillProperties gradient() {
    fill::FillProperties fill;
    fill.Visible = host::MsoTriState::msoTrue;
    fill.ForeColorRGB = 192;
    fill.BackColorRGB = 0xFFFFFF;
    fill.Transparency = 0.2F;
    fill.GradientStyle = 3;
    fill.GradientColorType = host::MsoGradientColorType::msoGradientOneColor;
    fill.GradientVariant = 2;
    fill.GradientDegree = 0.23F;
    fill.Type = host::MsoFillType::msoFillGradient;
    fill.TextureName = "/tmp/Žula.png";
    fill.UnknownTexture = true;
    return fill;
}

std::string problemOf(const std::string& text) {
    try {
        rowEditFromText(text);
        return "no error";
    } catch (const ParseError& error) {
        return error.what();
    }
}

TEST(FillJson, ReadsBackWhatItHasWritten) {
    const json written = json::parse(toJson(gradient()).dump());
    EXPECT_EQ(written.size(), 16U);
    EXPECT_EQ(written.at("Visible"), -1);
    EXPECT_EQ(written.at("ForeColorRGB"), 192);
    EXPECT_EQ(written.at("Transparency").dump(), "0.2");
    EXPECT_TRUE(fillFromJson(written) == gradient());
}

TEST(FillJson, RefusesAFillWithMissingWrongOrUnknownProperties) {
    json fill = json::parse(toJson(gradient()).dump());
    fill.erase("Pattern");
    EXPECT_THROW(fillFromJson(fill), ParseError);
    fill["Pattern"] = "2";
    EXPECT_THROW(fillFromJson(fill), ParseError);
    fill["Pattern"] = 4294967296;
    EXPECT_THROW(fillFromJson(fill), ParseError);
    fill["Pattern"] = 2;
    EXPECT_NO_THROW(fillFromJson(fill));
    fill["Color"] = 2;
    EXPECT_THROW(fillFromJson(fill), ParseError);
}

TEST(StoredJson, NamesEachDifferenceWithBothFills) {
    batch::StoredResult result;
    result.confirmed = 5;
    result.notFound = 1;
    result.differences.push_back({2, 3, gradient(), fill::FillProperties(), "keeps little"});
    const json value = json::parse(toJson(result).dump());
    EXPECT_EQ(value.at("confirmed"), 5);
    EXPECT_EQ(value.at("notFound"), 1);
    const json& difference = value.at("differences").at(0);
    EXPECT_EQ(difference.at("row"), 2);
    EXPECT_EQ(difference.at("shapes"), 3);
    EXPECT_TRUE(fillFromJson(difference.at("asked")) == gradient());
    EXPECT_TRUE(fillFromJson(difference.at("stored")) == fill::FillProperties());
    EXPECT_EQ(difference.at("reason"), "keeps little");
}

TEST(FillJson, ReadsTheWordsOfTheCommandLine) {
    EXPECT_EQ(editFromText("none")(gradient()).Visible, host::MsoTriState::msoFalse);
    const auto half = editFromText("#0070C0@50%")(gradient());
    EXPECT_EQ(half.ForeColorRGB, 0xC07000);
    EXPECT_EQ(half.Transparency, 0.5F);
    EXPECT_EQ(half.Type, host::MsoFillType::msoFillSolid);
    EXPECT_EQ(editFromText("0070c0@0.25")(gradient()).Transparency, 0.25F);
    EXPECT_EQ(editFromText("#0070C0")(gradient()).Transparency, 0.0F);
    const auto pattern = editFromText(R"({"Type":2,"Pattern":7})")(gradient());
    EXPECT_EQ(pattern.Pattern, 7);
    EXPECT_EQ(pattern.ForeColorRGB, 192);
}

TEST(FillJson, ReadsTheNamesOfCss) {
    const auto half = editFromText("SteelBlue@50%")(gradient());
    EXPECT_EQ(half.ForeColorRGB, base::rgb(0x46, 0x82, 0xB4));
    EXPECT_EQ(half.Transparency, 0.5F);
    const batch::ColorMapping mapping = mappingFromText("red=#0070C0");
    EXPECT_EQ(mapping.from, base::rgb(0xFF, 0, 0));
    EXPECT_EQ(mapping.to, base::rgb(0, 0x70, 0xC0));
    EXPECT_EQ(mappingFromText("#0070C0=rebeccapurple").to, base::rgb(0x66, 0x33, 0x99));
}

TEST(FillJson, SaysInOneLineWhatIsWrong) {
    EXPECT_EQ(problemOf("x=none"), "\"x\" is not a row number; rows are counted from 1");
    EXPECT_EQ(problemOf("0=none"), "\"0\" is not a row number; rows are counted from 1");
    EXPECT_EQ(problemOf("3"), "\"3\" must have the form ROW=FILL");
    EXPECT_EQ(problemOf("3=rot"),
              "\"rot\" is not a colour; write #RRGGBB or a colour's name in CSS");
    EXPECT_EQ(problemOf("3=#red"),
              "\"#red\" is not a colour; write #RRGGBB or a colour's name in CSS");
    EXPECT_EQ(problemOf("3=#0070C0@2"), "a transparency must be between 0 and 1, or 0% and 100%");
    EXPECT_EQ(problemOf("3=#0070C0@-1%"), "a transparency must be between 0 and 1, or 0% and 100%");
    EXPECT_EQ(problemOf("3={bad"), "not valid JSON for a fill: {bad");
    EXPECT_EQ(problemOf(R"(3={"Colour":1})"), "a fill has no property Colour");
    EXPECT_THROW(mappingFromText("#000000"), ParseError);
    EXPECT_THROW(mappingFromText("#000000=#12345"), ParseError);
}

TEST(DocumentFormats, AreKnownByEndingsInAnyCase) {
    const auto filterOf = [](const char* name) {
        const DocumentFormat* const format = formatOfName(name);
        return format == nullptr ? "none" : std::string(format->filter);
    };
    EXPECT_EQ(filterOf("x.odt"), "writer8");
    EXPECT_EQ(filterOf("/a.b/x.y.DOCX"), "MS Word 2007 XML");
    EXPECT_EQ(filterOf("x.Doc"), "MS Word 97");
    for (const char* const name : {"x.pdf", "x", "x.", ".odt", "/a.odt/x", "x.odt ", ""}) {
        EXPECT_EQ(filterOf(name), "none") << name;
    }
    EXPECT_EQ(formatOfFilter("Office Open XML Text")->ending, ".docx");
    EXPECT_EQ(formatOfFilter("calc8"), nullptr);
    EXPECT_EQ(storedEndings(), ".odt, .ott, .fodt, .docx, .docm, .dotx, .doc, .dot");
}

TEST(Job, CarriesTheFillsOfAPalette) {
    Job job;
    EXPECT_FALSE(requestOf(jobFromJson(toJson(job))).palette);
    job.palette = json::array({toJson(gradient()), toJson(fill::FillProperties())});
    for (const bool mayBeFewer : {false, true}) {
        job.mayBeFewer = mayBeFewer;
        const auto palette = requestOf(jobFromJson(toJson(job))).palette;
        ASSERT_TRUE(palette);
        EXPECT_EQ(palette->fills,
                  (std::vector<fill::FillProperties>{gradient(), fill::FillProperties()}));
        EXPECT_EQ(palette->mayBeFewer, mayBeFewer);
    }
}

TEST(Plan, TakesTheRowsWhoseNewFillWasEdited) {
    Job job;
    job.plan = json::parse(toJson({{1, 12, gradient()}, {2, 1, gradient()}}).dump());
    EXPECT_TRUE(requestOf(job).rows.empty());
    job.plan["rows"][1]["new"] = "#112233";
    const auto request = requestOf(jobFromJson(toJson(job)));
    ASSERT_EQ(request.rows.size(), 1U);
    EXPECT_EQ(request.rows[0].row, 2);
    EXPECT_TRUE(request.rows[0].expected == gradient());
    EXPECT_EQ(request.rows[0].edit(gradient()).ForeColorRGB, 0x332211);
}

TEST(Job, CarriesWhatTheMapsChange) {
    Job job;
    job.maps = {"#C00000=#0070C0"};
    job.password = "heslo";
    job.scope.tolerance = 2.5;
    job.scope.gradients = true;
    job.scope.lines = true;
    job.scope.mayBeMissing = true;
    const Job read = jobFromJson(toJson(job));
    EXPECT_EQ(read.password, "heslo");
    const batch::MappingScope scope = requestOf(read).scope;
    EXPECT_EQ(scope.tolerance, 2.5);
    EXPECT_TRUE(scope.gradients);
    EXPECT_FALSE(scope.patterns);
    EXPECT_TRUE(scope.lines);
    EXPECT_TRUE(scope.mayBeMissing);
}

TEST(Plan, IsReadInEveryVersionThatIsKnown) {
    Job job;
    job.plan = json::parse(toJson({{1, 12, gradient()}}).dump());
    EXPECT_EQ(job.plan.at("version"), kListingVersion);
    job.plan.erase("version");
    EXPECT_NO_THROW(requestOf(job));
    for (const json& version : {json(kListingVersion + 1), json(0), json("1"), json(1.5)}) {
        job.plan["version"] = version;
        EXPECT_THROW(requestOf(job), ParseError) << version;
    }
}

TEST(Plan, RefusesWhatIsNotAPlan) {
    for (const char* const plan :
         {"[]", "{}", R"({"rows":3})", R"({"rows":[3]})", R"({"rows":[{"new":"none"}]})",
          R"({"rows":[{"row":1,"new":true}]})", R"({"rows":[{"row":1,"new":"none","fill":{}}]})"}) {
        Job job;
        job.plan = json::parse(plan);
        EXPECT_THROW(requestOf(job), ParseError) << plan;
    }
}

}  // namespace
}  // namespace huebrush::protocol
