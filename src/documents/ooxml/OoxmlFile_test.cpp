// SPDX-License-Identifier: MPL-2.0

#include "documents/ooxml/OoxmlFile.h"

#include <gtest/gtest.h>

#include <map>

#include "base/Color.h"
#include "base/Text.h"
#include "documents/package/DocumentError.h"
#include "documents/package/PackageWriter_test_support.h"

namespace huebrush::documents::ooxml {
namespace {

using base::text;

const std::string kNamespaces =
    R"( xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main")"
    R"( xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships")"
    R"( xmlns:mc="http://schemas.openxmlformats.org/markup-compatibility/2006")"
    R"( xmlns:a14="http://schemas.microsoft.com/office/drawing/2010/main")"
    R"( xmlns:p="http://schemas.openxmlformats.org/presentationml/2006/main")"
    R"( xmlns:xdr="http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing")"
    R"( xmlns:x="http://schemas.openxmlformats.org/spreadsheetml/2006/main")";

/// A theme whose colours are 000000 for dk1, 111111 for lt1, and so on.
std::string themeOf(const std::string& digits) {
    std::string colors;
    std::size_t at = 0;
    for (const char* const name : {"dk1", "lt1", "dk2", "lt2", "accent1", "accent2", "accent3",
                                   "accent4", "accent5", "accent6", "hlink", "folHlink"}) {
        colors += text("<a:", name, R"(><a:srgbClr val=")", std::string(6, digits[at++]),
                       R"("/></a:)", name, ">");
    }
    return text("<a:theme", kNamespaces, "><a:themeElements><a:clrScheme>", colors,
                "</a:clrScheme></a:themeElements></a:theme>");
}

std::string relations(const std::vector<std::pair<std::string, std::string>>& targets) {
    std::string all =
        R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)";
    int number = 0;
    for (const auto& [type, target] : targets) {
        all += text(R"(<Relationship Id="r)", ++number, R"(" Type="http://x/)", type,
                    R"(" Target=")", target, R"("/>)");
    }
    return all + "</Relationships>";
}

std::string typesOf(const std::string& main) {
    return text(R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
                R"(<Override PartName="/main.xml" ContentType="application/)",
                main, R"(.main+xml"/></Types>)");
}

const std::string kRgb = R"(<a:solidFill><a:srgbClr val="C00000"/></a:solidFill>)";

std::string schemeFill(const std::string& name) {
    return text(R"(<a:solidFill><a:schemeClr val=")", name, R"("/></a:solidFill>)");
}

/// A shape of a slide; `own` are its own properties of the slide: a placeholder, or nothing.
std::string shape(const std::string& name, const std::string& fill, const std::string& own = {}) {
    return text(R"(<p:sp><p:nvSpPr><p:cNvPr id="1" name=")", name, R"("/><p:nvPr>)", own,
                R"(</p:nvPr></p:nvSpPr><p:spPr><a:prstGeom prst="rect"/>)", fill,
                "</p:spPr></p:sp>");
}

std::string slide(const std::string& shapes, const std::string& after = {}) {
    return text("<p:sld", kNamespaces, "><p:cSld><p:spTree><p:nvGrpSpPr/><p:grpSpPr/>", shapes,
                "</p:spTree></p:cSld>", after, "</p:sld>");
}

/// A presentation whose second slide comes first.
std::vector<WrittenEntry> presentation(const std::string& first, const std::string& second) {
    return {{"[Content_Types].xml",
             typesOf("vnd.openxmlformats-officedocument.presentationml.presentation")},
            {"_rels/.rels", relations({{"officeDocument", "main.xml"}})},
            {"main.xml", text("<p:presentation", kNamespaces,
                              R"(><p:sldIdLst><p:sldId r:id="r2"/><p:sldId r:id="r1"/>)",
                              "</p:sldIdLst></p:presentation>")},
            {"_rels/main.xml.rels", relations({{"slide", "one.xml"}, {"slide", "two.xml"}})},
            {"one.xml", first},
            {"two.xml", second},
            {"_rels/one.xml.rels", relations({{"slideLayout", "layout.xml"}})},
            {"_rels/two.xml.rels", relations({{"slideLayout", "layout.xml"}})},
            {"layout.xml", slide(shape("of the layout", kRgb))},
            {"_rels/layout.xml.rels", relations({{"slideMaster", "master.xml"}})},
            {"master.xml",
             text("<p:sldMaster", kNamespaces, "><p:cSld><p:spTree>", shape("of the master", kRgb),
                  "</p:spTree></p:cSld>", R"(<p:clrMap bg1="dk1" tx1="lt1" bg2="lt2" tx2="dk2")",
                  R"( accent1="accent6"/></p:sldMaster>)")},
            {"_rels/master.xml.rels", relations({{"theme", "theme.xml"}})},
            {"theme.xml", themeOf("0123456789AB")}};
}

OoxmlFile fileOf(const std::vector<WrittenEntry>& entries) {
    return OoxmlFile(Package(writtenPackage(entries)));
}

std::vector<std::string> namesOf(const ShapeFile& file) {
    std::vector<std::string> names;
    for (const ShapeRecord& each : file.shapes()) names.push_back(each.name);
    return names;
}

std::map<std::string, std::string> colorsOf(const ShapeFile& file) {
    std::map<std::string, std::string> colors;
    for (const ShapeRecord& each : file.shapes()) {
        if (each.fill) colors[each.name] = base::toHex(each.fill->host.foreColor);
    }
    return colors;
}

NewFill solid(base::Rgb color) {
    NewFill wanted;
    wanted.fill.visible = host::MsoTriState::msoTrue;
    wanted.fill.type = host::MsoFillType::msoFillSolid;
    wanted.fill.foreColor = color;
    return wanted;
}

using Names = std::vector<std::string>;

TEST(Presentations, HaveTheShapesOfTheirSlidesInTheOrderOfTheSlides) {
    const OoxmlFile file =
        fileOf(presentation(slide(shape("a", kRgb) + shape("b", kRgb)), slide(shape("c", kRgb))));
    EXPECT_EQ(namesOf(file), (Names{"c", "a", "b"}));
}

TEST(Presentations, MapTheColoursOfThemesAsTheMasterOrTheSlideSays) {
    const std::string override_map =
        R"(<p:clrMapOvr><a:overrideClrMapping bg1="lt1" accent1="accent2"/></p:clrMapOvr>)";
    const OoxmlFile file = fileOf(presentation(
        slide(shape("bg1", schemeFill("bg1")) + shape("accent1", schemeFill("accent1"))),
        slide(shape("own bg1", schemeFill("bg1")) + shape("own accent1", schemeFill("accent1")),
              override_map)));
    EXPECT_EQ(colorsOf(file), (std::map<std::string, std::string>{{"bg1", "#000000"},
                                                                  {"accent1", "#999999"},
                                                                  {"own bg1", "#111111"},
                                                                  {"own accent1", "#555555"}}));
}

TEST(Presentations, GivePlaceholdersAFillOnlyWhereTheyHaveOneOfTheirOwn) {
    const OoxmlFile file =
        fileOf(presentation(slide(shape("title", "", R"(<p:ph type="title"/>)") +
                                  shape("body", kRgb, R"(<p:ph idx="1"/>)") + shape("plain", "")),
                            slide("")));
    ASSERT_EQ(namesOf(file), (Names{"title", "body", "plain"}));
    EXPECT_FALSE(file.shapes()[0].canHaveFill);
    EXPECT_TRUE(file.shapes()[1].canHaveFill);
    EXPECT_TRUE(file.shapes()[2].canHaveFill);
}

TEST(Presentations, CountNoPicturesFramesAndConnectors) {
    const OoxmlFile file = fileOf(presentation(
        slide(text("<p:pic><p:spPr>", kRgb, "</p:spPr></p:pic>",
                   "<p:graphicFrame><a:graphic><a:graphicData>", shape("in a chart", kRgb),
                   "</a:graphicData></a:graphic></p:graphicFrame>",
                   R"(<p:cxnSp><p:nvCxnSpPr><p:cNvPr id="1" name="line"/></p:nvCxnSpPr><p:spPr/>)",
                   R"(</p:cxnSp><p:grpSp><p:nvGrpSpPr><p:cNvPr id="1" name="group"/>)",
                   "</p:nvGrpSpPr><p:grpSpPr>", kRgb, "</p:grpSpPr>",
                   shape("member", "<a:grpFill/>"), "</p:grpSp>")),
        slide("")));
    ASSERT_EQ(namesOf(file), (Names{"line", "group"}));
    EXPECT_FALSE(file.shapes()[0].canHaveFill);
    ASSERT_TRUE(file.shapes()[1].isGroup());
    ASSERT_EQ(file.shapes()[1].members.size(), 1U);
    EXPECT_EQ(file.shapes()[1].members[0].fill->host.foreColor, base::rgb(0xC0, 0, 0));
}

TEST(Presentations, ChangeBothBranchesOfAlternatives) {
    const std::string both = text(R"(<mc:AlternateContent><mc:Choice Requires="a14">)",
                                  shape("new", kRgb), "</mc:Choice><mc:Fallback>",
                                  shape("old", kRgb), "</mc:Fallback></mc:AlternateContent>");
    const OoxmlFile file = fileOf(presentation(slide(both), slide("")));
    ASSERT_EQ(namesOf(file), Names{"new"});
    const Package changed(file.with({{file.shapes()[0].number, {solid(base::rgb(0, 0, 0xFF))}}}));
    const std::string part = changed.read("one.xml");
    EXPECT_EQ(part.find("C00000"), std::string::npos);
    EXPECT_EQ(OoxmlFile(Package(changed.bytes())).shapes()[0].fill->host.foreColor,
              base::rgb(0, 0, 0xFF));
}

TEST(Presentations, ChangeNoOtherPartThanTheSlide) {
    const OoxmlFile file = fileOf(presentation(slide(shape("a", kRgb)), slide(shape("c", kRgb))));
    const auto before = presentation(slide(shape("a", kRgb)), slide(shape("c", kRgb)));
    const Package changed(file.with({{file.shapes()[0].number, {solid(base::rgb(0, 0, 0xFF))}}}));
    for (const WrittenEntry& each : before) {
        EXPECT_EQ(changed.read(each.name) == each.content, each.name != "two.xml") << each.name;
    }
}

TEST(Workbooks, HaveTheShapesOfTheirSheetsInTheOrderOfTheSheets) {
    const auto drawing = [](const std::string& name) {
        return text("<xdr:wsDr", kNamespaces, "><xdr:twoCellAnchor><xdr:sp><xdr:nvSpPr>",
                    R"(<xdr:cNvPr id="1" name=")", name, R"("/></xdr:nvSpPr><xdr:spPr>)",
                    schemeFill("accent1"), "</xdr:spPr></xdr:sp><xdr:clientData/>",
                    "</xdr:twoCellAnchor></xdr:wsDr>");
    };
    const OoxmlFile file = fileOf(
        {{"[Content_Types].xml", typesOf("vnd.openxmlformats-officedocument.spreadsheetml.sheet")},
         {"_rels/.rels", relations({{"officeDocument", "main.xml"}})},
         {"main.xml",
          text("<x:workbook", kNamespaces, R"(><x:sheets><x:sheet r:id="r3"/><x:sheet r:id="r1"/>)",
               R"(<x:sheet r:id="r9"/></x:sheets></x:workbook>)")},
         {"_rels/main.xml.rels",
          relations({{"worksheet", "one.xml"}, {"theme", "theme.xml"}, {"worksheet", "two.xml"}})},
         {"one.xml", "<a/>"},
         {"two.xml", "<a/>"},
         {"_rels/one.xml.rels", relations({{"drawing", "d1.xml"}})},
         {"_rels/two.xml.rels", relations({{"drawing", "d2.xml"}, {"vmlDrawing", "c.xml"}})},
         {"d1.xml", drawing("first")},
         {"d2.xml", drawing("second")},
         {"c.xml", "<b/>"},
         {"theme.xml", themeOf("0123456789AB")}});
    EXPECT_EQ(namesOf(file), (Names{"second", "first"}));
    EXPECT_EQ(colorsOf(file)["first"], "#444444");
}

TEST(OoxmlPackages, AreKnownByTheTypeOfTheirMainPart) {
    const auto isKnown = [](const std::string& type) {
        return isOoxmlPackage(Package(writtenPackage({{"[Content_Types].xml", typesOf(type)}})));
    };
    EXPECT_TRUE(isKnown("vnd.openxmlformats-officedocument.wordprocessingml.template"));
    EXPECT_TRUE(isKnown("vnd.ms-word.document.macroEnabled"));
    EXPECT_TRUE(isKnown("vnd.ms-powerpoint.slideshow.macroEnabled"));
    EXPECT_TRUE(isKnown("vnd.ms-excel.sheet.macroEnabled"));
    EXPECT_FALSE(isKnown("vnd.ms-visio.drawing"));
    EXPECT_FALSE(isOoxmlPackage(Package(writtenPackage({{"a.xml", "<a/>"}}))));
}

TEST(OoxmlPackages, WithoutWhatTheyReferToAreReadAsFarAsTheyGo) {
    auto entries = presentation(slide(shape("a", schemeFill("bg1"))), slide(""));
    std::erase_if(entries, [](const WrittenEntry& each) {
        return each.name == "layout.xml" || each.name == "_rels/layout.xml.rels" ||
               each.name == "two.xml";
    });
    EXPECT_EQ(namesOf(fileOf(entries)), Names{"a"});
    std::erase_if(entries, [](const WrittenEntry& each) { return each.name == "main.xml"; });
    EXPECT_THROW(fileOf(entries), DocumentError);
}

// Lines.

std::string lineOf(const std::string& fill, const std::string& width = {}) {
    return text("<a:ln", width, ">", fill, "</a:ln>");
}

/// The first slide's part, after the line of its one shape has got the colour 0x0000FF.
std::string withBlueLine(const std::string& look) {
    const OoxmlFile file = fileOf(presentation(slide(shape("a", look)), slide("")));
    const std::string changed = file.with({{file.shapes().at(0).number, {{}, 0xFF0000}}});
    const OoxmlFile again{Package(changed)};
    EXPECT_TRUE(again.shapes().at(0).lineVisible);
    EXPECT_EQ(again.shapes().at(0).lineColor, 0xFF0000);
    return Package(changed).read("one.xml");
}

std::string colorFill(const std::string& color) {
    return text("<a:solidFill>", color, "</a:solidFill>");
}
const std::string kBlueColor = R"(<a:srgbClr val="0000FF"/>)";

TEST(LinesOfDrawings, GetAnotherColourWhereTheyStand) {
    const std::string after = "<a:effectLst/>";
    EXPECT_EQ(
        withBlueLine(kRgb + lineOf(kRgb + R"(<a:prstDash val="dash"/>)", R"( w="100")") + after),
        slide(shape(
            "a", kRgb +
                     lineOf(colorFill(kBlueColor) + R"(<a:prstDash val="dash"/>)", R"( w="100")") +
                     after)));
    EXPECT_EQ(withBlueLine(lineOf(schemeFill("accent1"))),
              slide(shape("a", lineOf(colorFill(kBlueColor)))));
    EXPECT_EQ(
        withBlueLine(lineOf(colorFill(
            R"(<a:schemeClr val="tx1"><a:lumMod val="50000"/><a:alpha val="40000"/></a:schemeClr>)"))),
        slide(shape("a", lineOf(colorFill(
                             R"(<a:srgbClr val="0000FF"><a:alpha val="40000"/></a:srgbClr>)")))));
}

TEST(LinesOfDrawings, ThatAreGradientsOrPatternsHaveOneColour) {
    const std::string stops =
        R"(<a:gs pos="0"><a:srgbClr val="FF0000"/></a:gs><a:gs pos="50000"><a:srgbClr val="00FF00"/></a:gs>)"
        R"(<a:gs pos="100000"><a:srgbClr val="0000FF"/></a:gs>)";
    const std::string gradient = text("<a:gradFill><a:gsLst>", stops, "</a:gsLst></a:gradFill>");
    const std::string pattern =
        R"(<a:pattFill prst="pct5"><a:fgClr><a:srgbClr val="FF0000"/></a:fgClr>)"
        R"(<a:bgClr><a:srgbClr val="00FF00"/></a:bgClr></a:pattFill>)";
    for (const std::string& fill : {gradient, pattern}) {
        const OoxmlFile file = fileOf(presentation(slide(shape("a", lineOf(fill))), slide("")));
        EXPECT_EQ(file.shapes().at(0).lineColor, 0x00FF00) << "red in the low byte";
        EXPECT_EQ(withBlueLine(lineOf(fill)), slide(shape("a", lineOf(colorFill(kBlueColor)))));
    }
}

TEST(LinesOfDrawings, OfAStyleGetAnElementOfTheirOwnBehindTheFill) {
    // Of a line that cannot be seen there is nothing to write; the file does what it is told.
    EXPECT_EQ(withBlueLine(kRgb + "<a:effectLst/>"),
              slide(shape("a", kRgb + lineOf(colorFill(kBlueColor)) + "<a:effectLst/>")));
    EXPECT_EQ(withBlueLine(R"(<a:ln w="100"/>)"),
              slide(shape("a", lineOf(colorFill(kBlueColor), R"( w="100")"))));
}

TEST(LinesOfDrawings, ChangeTogetherWithAFillThatIsNewThere) {
    const OoxmlFile file = fileOf(presentation(slide(shape("a", "")), slide("")));
    const std::string changed = file.with(
        {{file.shapes().at(0).number, {solid(base::rgb(0, 0xFF, 0)), base::rgb(0, 0, 0xFF)}}});
    EXPECT_EQ(Package(changed).read("one.xml"),
              slide(shape(
                  "a", colorFill(R"(<a:srgbClr val="00FF00"/>)") + lineOf(colorFill(kBlueColor)))));
}

TEST(GradientsOfDrawings, KeepTheirStopsWhenThoseGetOtherColours) {
    const std::string gradient =
        R"(<a:gradFill><a:gsLst><a:gs pos="0"><a:srgbClr val="FF0000"/></a:gs><a:gs pos="30000">)"
        R"(<a:srgbClr val="00FF00"/></a:gs><a:gs pos="100000"><a:srgbClr val="0000FF"/></a:gs>)"
        R"(</a:gsLst><a:lin ang="5400000" scaled="0"/></a:gradFill>)";
    const OoxmlFile file = fileOf(presentation(slide(shape("a", gradient)), slide("")));
    NewFill wanted;
    wanted.stops = {base::rgb(1, 2, 3), base::rgb(4, 5, 6), base::rgb(0, 0, 0xFF)};
    wanted.fill = withStopColors(*file.shapes().at(0).fill, wanted.stops).host;
    const OoxmlFile again{Package(file.with({{file.shapes().at(0).number, {wanted}}}))};
    const mapping::OfficeFill& office = again.shapes().at(0).fill->office;
    EXPECT_EQ(stopColorsOf(office), wanted.stops);
    EXPECT_EQ(office.gradient.stops.at(1).place, 3000);
    EXPECT_EQ(office.gradient.angle, file.shapes().at(0).fill->office.gradient.angle);
}

}  // namespace
}  // namespace huebrush::documents::ooxml
