// SPDX-License-Identifier: MPL-2.0

#include "documents/odf/OdfFile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Text.h"
#include "documents/odf/OdfWords.h"
#include "documents/odf/Values.h"
#include "documents/package/DocumentError.h"
#include "documents/package/PackageWriter_test_support.h"

namespace huebrush::documents::odf {
namespace {

using base::text;
using host::MsoShapeType;
using host::MsoTriState;

constexpr const char* kTextAddress = "urn:oasis:names:tc:opendocument:xmlns:text:1.0";
constexpr std::int32_t kRed = 0x0000FF;  // as the object model has it
constexpr std::int32_t kBlue = 0xFF0000;

/// The parts of a flat document that a test cares about.
struct Parts {
    std::string common = {};
    std::string automatic = {};
    std::string body = {};
    std::string generator = "LibreOffice/7.4";
};

std::string flat(const Parts& parts) {
    return text("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<office:document xmlns:office=\"",
                kOfficeAddress, R"(" xmlns:style=")", kStyleAddress, R"(" xmlns:draw=")",
                kDrawAddress, R"(" xmlns:text=")", kTextAddress, R"(" xmlns:svg=")", kSvgAddress,
                R"(" xmlns:loext=")", kExtensionAddress,
                R"(" xmlns:meta="urn:oasis:names:tc:opendocument:xmlns:meta:1.0" )"
                R"(office:mimetype="application/vnd.oasis.opendocument.text">)"
                "<office:meta><meta:generator>",
                parts.generator, "</meta:generator></office:meta><office:styles>", parts.common,
                "</office:styles><office:automatic-styles>", parts.automatic,
                "</office:automatic-styles><office:body><office:text>", parts.body,
                "</office:text></office:body></office:document>\n");
}

std::string style(const std::string& name, const std::string& properties,
                  const std::string& others = {}) {
    return text(R"(<style:style style:name=")", name, R"(" style:family="graphic")", others,
                "><style:graphic-properties ", properties, "/></style:style>");
}

std::string rectangle(const std::string& attributes) {
    return text("<draw:rect ", attributes, "><text:p/></draw:rect>");
}

const ShapeRecord& onlyShape(const OdfFile& file) {
    EXPECT_EQ(file.shapes().size(), 1U);
    return file.shapes().at(0);
}

mapping::HostFill fillOf(const Parts& parts) {
    const OdfFile file(flat(parts));
    return onlyShape(file).fill->host;
}

mapping::HostFill solid(std::int32_t color) {
    mapping::HostFill fill;
    fill.visible = MsoTriState::msoTrue;
    fill.foreColor = color;
    return fill;
}

std::string recoloured(const std::string& document, const mapping::HostFill& fill) {
    const OdfFile file(document);
    ShapeChanges changes;
    for (const ShapeRecord& each : file.shapes()) changes[each.number].fill = NewFill{fill};
    return file.with(changes);
}

// Values.

TEST(OdfValues, AreReadAsTheOfficeReadsThem) {
    EXPECT_EQ(colorOf("#C00000"), 0xC00000);
    EXPECT_EQ(colorOf("#abc"), std::nullopt);
    EXPECT_EQ(colorOf("red"), std::nullopt);
    EXPECT_EQ(percentOf("33.4%"), 33);
    EXPECT_EQ(percentOf("33.4"), 33);
    EXPECT_EQ(percentOf("a lot"), std::nullopt);
    EXPECT_EQ(lengthOf("0.0512in"), 130);
    EXPECT_EQ(lengthOf("1.3mm"), 130);
    EXPECT_EQ(lengthOf("2"), std::nullopt);
    EXPECT_EQ(angleOf("45deg", 1), 450);
    EXPECT_EQ(angleOf("450", 1), 450);
    EXPECT_EQ(angleOf("45", 10), 450);
    EXPECT_EQ(angleOf("50grad", 1), 450);
}

TEST(OdfValues, ComeBackAsTheyWere) {
    EXPECT_EQ(colorText(0x00C0FF), "#00c0ff");
    for (const std::int32_t angle : {0, 5, 450, 3599})
        EXPECT_EQ(angleOf(angleText(angle), 1), angle);
    for (const std::int32_t length : {0, 5, 130, 12345})
        EXPECT_EQ(lengthOf(lengthText(length)), length);
    for (const char* const name : {"Koruna stromu", "a_b", "1. díl", "Huebrush pattern 41 0 -1"}) {
        EXPECT_EQ(nameOf(identifierOf(name)), name);
    }
    EXPECT_EQ(identifierOf("a b"), "a_20_b");
    EXPECT_EQ(nameOf("no_escape"), "no_escape");
}

// Where a fill is said.

TEST(OdfFills, ComeFromTheAutomaticStyleOrItsParentsOrTheDefault) {
    const std::string shape = rectangle(R"(draw:style-name="gr1")");
    EXPECT_EQ(fillOf({{}, style("gr1", R"(draw:fill="solid" draw:fill-color="#ff0000")"), shape}),
              solid(kRed));
    const std::string parent = style("Frame", R"(draw:fill-color="#0000ff")");
    EXPECT_EQ(fillOf({parent,
                      style("gr1", R"(draw:stroke="none")", R"( style:parent-style-name="Frame")"),
                      shape}),
              solid(kBlue));
    EXPECT_EQ(fillOf({{}, {}, shape}), solid(0xCF9F72)) << "as no style says anything";
}

TEST(OdfFills, OfTheTextsStyleCountFirst) {
    const std::string text =
        R"(<style:style style:name="P1" style:family="paragraph"><loext:graphic-properties )"
        R"(draw:fill="solid" draw:fill-color="#0000ff"/></style:style>)";
    EXPECT_EQ(fillOf({{},
                      style("gr1", R"(draw:fill="solid" draw:fill-color="#ff0000")") + text,
                      rectangle(R"(draw:style-name="gr1" draw:text-style-name="P1")")}),
              solid(kBlue));
}

TEST(OdfFills, OfGradientsTakeAnglesAsTheirWriterMeantThem) {
    const auto angleIn = [](const std::string& angle, const std::string& generator) {
        const OdfFile file(
            flat({text(R"(<draw:gradient draw:name="G" draw:style="linear" draw:angle=")", angle,
                       R"("/>)"),
                  style("gr1", R"(draw:fill="gradient" draw:fill-gradient-name="G")"),
                  rectangle(R"(draw:style-name="gr1")"), generator}));
        return onlyShape(file).fill->office.gradient.angle;
    };
    EXPECT_EQ(angleIn("90deg", "LibreOffice/7.4"), 900);
    EXPECT_EQ(angleIn("90", "LibreOffice/7.4"), 900);
    EXPECT_EQ(angleIn("900", "LibreOffice/6.4"), 900);
    EXPECT_EQ(angleIn("900", "OpenOffice.org/3.1"), 900);
}

// Which shapes there are.

TEST(OdfShapes, AreThoseOfTheTextFromBackToFront) {
    const OdfFile file(flat(
        {{},
         {},
         R"(<text:p><draw:rect draw:name="front" draw:z-index="2"><text:p><draw:rect )"
         R"(draw:name="in a shape"/></text:p></draw:rect>)"
         R"(<draw:frame><draw:text-box><text:p><draw:ellipse draw:name="in a frame" )"
         R"(draw:z-index="1"/></text:p></draw:text-box></draw:frame>)"
         R"(<draw:path draw:name="open" draw:z-index="0" svg:d="M0 0L1 1"/>)"
         R"(<office:annotation><draw:rect draw:name="in a comment"/></office:annotation></text:p>)"
         R"(<draw:g draw:name="group"><draw:frame draw:name="text"><draw:text-box/></draw:frame>)"
         "<draw:frame><draw:image/><draw:text-box/></draw:frame>"
         R"(<draw:line draw:name="line"/></draw:g>)"
         "<draw:g><draw:frame><draw:image/></draw:frame></draw:g>"}));
    std::vector<std::string> names;
    for (const ShapeRecord& each : file.shapes()) names.push_back(each.name);
    EXPECT_EQ(names, (std::vector<std::string>{"open", "in a frame", "front", "group"}));
    EXPECT_FALSE(file.shapes()[0].canHaveFill);
    const ShapeRecord& group = file.shapes()[3];
    EXPECT_EQ(group.type, MsoShapeType::msoGroup);
    ASSERT_EQ(group.members.size(), 2U);
    EXPECT_EQ(group.members[0].type, MsoShapeType::msoTextBox);
    EXPECT_FALSE(group.members[1].canHaveFill);
}

// Changes.

TEST(OdfChanges, OfOneShapeLeaveAllThatOthersUse) {
    const std::string document =
        flat({{},
              style("gr1", R"(draw:stroke="none" draw:fill="solid" draw:fill-color="#ff0000")"),
              rectangle(R"(draw:style-name="gr1")") + rectangle(R"(draw:style-name="gr1")")});
    const OdfFile file(document);
    const std::string changed = file.with({{0, {NewFill{solid(kBlue)}}}});
    const OdfFile again(changed);
    EXPECT_EQ(again.shapes()[0].fill->host, solid(kBlue));
    EXPECT_EQ(again.shapes()[1].fill->host, solid(kRed));
    // What was added and what replaced a name, and nothing else.
    std::string expected = document;
    const std::string added =
        style("gr1hb1", R"(draw:stroke="none" draw:fill="solid" draw:fill-color="#0000ff")");
    expected.insert(expected.find("</office:automatic-styles>"), added);
    const std::size_t shape = expected.find(R"(draw:rect draw:style-name="gr1")");
    expected.replace(expected.find(R"("gr1")", shape), 5, R"("gr1hb1")");
    EXPECT_EQ(changed, expected);
}

TEST(OdfChanges, OfALineChangeNothingButItsColour) {
    const std::string properties =
        R"(draw:stroke="solid" svg:stroke-color="#00ff00" draw:fill="solid" draw:fill-color="#ff0000")";
    const std::string document =
        flat({{},
              style("gr1", properties),
              rectangle(R"(draw:style-name="gr1")") + rectangle(R"(draw:style-name="gr1")")});
    const std::string changed = OdfFile(document).with({{1, {{}, kBlue}}});
    const OdfFile again(changed);
    EXPECT_EQ(again.shapes()[0].lineColor, 0x00FF00);
    EXPECT_EQ(again.shapes()[1].lineColor, kBlue);
    EXPECT_EQ(again.shapes()[1].fill->host, solid(kRed));
    std::string expected = document;
    std::string added = style("gr1hb1", properties);
    added.replace(added.find("#00ff00"), 7, "#0000ff");
    expected.insert(expected.find("</office:automatic-styles>"), added);
    expected.replace(expected.rfind(R"("gr1")"), 5, R"("gr1hb1")");
    EXPECT_EQ(changed, expected);
}

TEST(OdfChanges, OfALineKeepTheThemeColourOfTheFill) {
    const std::string theme = R"(<loext:fill-complex-color loext:theme-type="accent1"/>)";
    const std::string document = flat(
        {{},
         text(R"(<style:style style:name="gr1" style:family="graphic"><style:graphic-properties )",
              R"(draw:fill="solid" draw:fill-color="#ff0000">)", theme,
              "</style:graphic-properties></style:style>"),
         rectangle(R"(draw:style-name="gr1")")});
    const auto count = [&](const std::string& in) {
        std::size_t found = 0;
        for (std::size_t at = in.find(theme); at != std::string::npos;
             at = in.find(theme, at + 1)) {
            ++found;
        }
        return found;
    };
    EXPECT_EQ(count(OdfFile(document).with({{0, {{}, kBlue}}})), 2U);
    EXPECT_EQ(count(OdfFile(document).with({{0, {NewFill{solid(kBlue)}}}})), 1U);
}

TEST(OdfChanges, OfAFillAndALineMakeOneStyle) {
    const std::string document =
        flat({{}, style("gr1", R"(draw:fill="none")"), rectangle(R"(draw:style-name="gr1")")});
    const std::string changed =
        OdfFile(document).with({{0, {NewFill{solid(kBlue)}, std::int32_t{kRed}}}});
    const OdfFile again(changed);
    EXPECT_EQ(again.shapes()[0].lineColor, kRed);
    EXPECT_EQ(again.shapes()[0].fill->host, solid(kBlue));
    EXPECT_EQ(changed.find("gr1hb2"), std::string::npos);
}

TEST(OdfChanges, GiveTheStopsOfAGradientOtherColours) {
    const std::string document = flat(
        {R"(<draw:gradient draw:name="Sky" draw:style="linear" draw:start-color="#ff0000" )"
         R"(draw:end-color="#0000ff" draw:start-intensity="100%" draw:end-intensity="100%" )"
         R"(draw:angle="0deg" draw:border="0%">)"
         R"(<loext:gradient-stop svg:offset="0" loext:color-type="rgb" loext:color-value="#ff0000"/>)"
         R"(<loext:gradient-stop svg:offset="0.3" loext:color-type="rgb" loext:color-value="#00ff00"/>)"
         R"(<loext:gradient-stop svg:offset="1" loext:color-type="rgb" loext:color-value="#0000ff"/>)"
         "</draw:gradient>",
         style("gr1", R"(draw:fill="gradient" draw:fill-gradient-name="Sky")"),
         rectangle(R"(draw:style-name="gr1")")});
    const OdfFile file(document);
    NewFill wanted;
    wanted.stops = {kRed, 0x123456, kBlue};
    wanted.fill = withStopColors(*onlyShape(file).fill, wanted.stops).host;
    const OdfFile again(file.with({{0, {wanted}}}));
    EXPECT_EQ(stopColorsOf(onlyShape(again).fill->office), wanted.stops);
    EXPECT_EQ(onlyShape(again).fill->office.gradient.stops[1].place, 3000);
}

TEST(OdfStyles, ThatAreTheirOwnParentsAreRefusedAndLongChainsAreNot) {
    const auto parents = [](int count, int last) {
        std::string common;
        for (int i = 1; i <= count; ++i) {
            const int parent = i == count ? last : i + 1;
            common += style(
                text("S", i), i == count ? R"(draw:fill="solid" draw:fill-color="#ff0000")" : "",
                parent == 0 ? "" : text(R"( style:parent-style-name="S)", parent, "\""));
        }
        return Parts{common, style("gr1", "", R"( style:parent-style-name="S1")"),
                     rectangle(R"(draw:style-name="gr1")")};
    };
    EXPECT_EQ(fillOf(parents(1000, 0)), solid(kRed));
    for (const int last : {1, 2, 3}) {
        try {
            static_cast<void>(fillOf(parents(3, last)));
            ADD_FAILURE();
        } catch (const DocumentError& error) {
            EXPECT_EQ(std::string(error.what()).rfind("has a style that is its own parent: S", 0),
                      0U)
                << error.what();
        }
    }
}

TEST(OdfChanges, DeclareAPrefixThatMeansSomethingElseThereUnderAnotherName) {
    const std::string document = flat({{},
                                       "<style:style style:name=\"gr1\" style:family=\"graphic\">"
                                       "<style:graphic-properties xmlns:draw=\"urn:other\" "
                                       "draw:fill=\"x\"/></style:style>",
                                       rectangle(R"(draw:style-name="gr1")")});
    const std::string changed = recoloured(document, solid(kBlue));
    EXPECT_NE(changed.find("xmlns:draw1=\""), std::string::npos);
    EXPECT_NE(changed.find(R"(draw:fill="x")"), std::string::npos);
    EXPECT_EQ(onlyShape(OdfFile(changed)).fill->host, solid(kBlue));
}

TEST(OdfChanges, DeclareAPrefixOnceInADefinition) {
    std::string document = flat({{}, {}, rectangle(R"(draw:name="plain")")});
    const std::string styles = "<office:styles";
    document.insert(document.find(styles) + styles.size(), " xmlns:draw=\"urn:other\"");
    mapping::FillWrites writes;
    writes.visible = MsoTriState::msoTrue;
    writes.foreColor = kBlue;
    writes.backColor = kRed;
    writes.build = mapping::twoColorBuild(1, 2);
    const mapping::HostFill gradient = edited(mapping::HostFill(), writes);
    const OdfFile again(recoloured(document, gradient));
    EXPECT_EQ(propertiesOf(onlyShape(again).fill->host), propertiesOf(gradient));
}

TEST(OdfChanges, ReachTheTextsStyleAndShapesWithoutAny) {
    const std::string text =
        R"(<style:style style:name="P1" style:family="paragraph"><loext:graphic-properties )"
        R"(draw:fill="none"/></style:style>)";
    for (const std::string shape : {R"(draw:style-name="gr1" draw:text-style-name="P1")",
                                    R"(draw:name="plain")", R"(draw:style-name="Common")"}) {
        const std::string document =
            flat({style("Common", R"(draw:fill="none")"),
                  style("gr1", R"(draw:fill="none")") + text, rectangle(shape)});
        const OdfFile again(recoloured(document, solid(kBlue)));
        EXPECT_EQ(onlyShape(again).fill->host, solid(kBlue)) << shape;
    }
}

TEST(OdfChanges, OfEveryKindComeBack) {
    std::vector<mapping::HostFill> fills{solid(kRed)};
    const auto add = [&](const mapping::FillBuild& build) {
        mapping::HostFill fill = solid(kRed);
        fill.backColor = kBlue;
        static_cast<mapping::FillBuild&>(fill) = build;
        fills.push_back(edited(fill, {}));
    };
    add(mapping::twoColorBuild(1, 2));
    add(mapping::twoColorBuild(7, 1));
    add(mapping::oneColorBuild(4, 3, 0.3F));
    add(mapping::presetGradientBuild(2, 1, 5));
    add(mapping::patternBuild(41));
    add(mapping::presetTextureBuild(12));
    mapping::HostFill glass = solid(kRed);
    glass.transparency = 0.25F;
    fills.push_back(glass);
    fills.emplace_back();
    for (const mapping::HostFill& before : fills) {
        const std::string document =
            recoloured(flat({{}, {}, rectangle(R"(draw:name="a")")}), before);
        for (const mapping::HostFill& fill : fills) {
            const OdfFile again(recoloured(document, fill));
            EXPECT_EQ(propertiesOf(onlyShape(again).fill->host), propertiesOf(fill))
                << static_cast<int>(before.type) << " to " << static_cast<int>(fill.type);
        }
    }
}

TEST(OdfChanges, UseADefinitionAgainThatIsThere) {
    mapping::HostFill fill = solid(kRed);
    fill.backColor = kBlue;
    static_cast<mapping::FillBuild&>(fill) = mapping::twoColorBuild(7, 1);
    const std::string once = recoloured(
        flat({{}, {}, rectangle(R"(draw:name="a")") + rectangle(R"(draw:name="b")")}), fill);
    const std::string twice = recoloured(recoloured(once, solid(kRed)), fill);
    const auto count = [](const std::string& document) {
        std::size_t found = 0;
        for (std::size_t at = 0; (at = document.find("<draw:gradient", at)) != std::string::npos;
             ++at) {
            ++found;
        }
        return found;
    };
    EXPECT_EQ(count(once), 1U);
    EXPECT_EQ(count(twice), 1U);
}

// Packages.

constexpr const char* kManifest =
    R"(<manifest:manifest xmlns:manifest="urn:oasis:names:tc:opendocument:xmlns:manifest:1.0">)"
    "</manifest:manifest>";

std::vector<WrittenEntry> packed(const std::string& manifest = kManifest) {
    const std::string names =
        text(R"(xmlns:office=")", kOfficeAddress, R"(" xmlns:draw=")", kDrawAddress, R"(")");
    return {{"mimetype", "application/vnd.oasis.opendocument.text", true},
            {"content.xml", text("<office:document-content ", names,
                                 "><office:body><office:text><draw:rect/></office:text>"
                                 "</office:body></office:document-content>")},
            {"styles.xml",
             text("<office:document-styles ", names, "><office:styles/></office:document-styles>")},
            {"META-INF/manifest.xml", manifest}};
}

TEST(OdfPackages, GetTheirPicturesAndTheList) {
    const OdfFile file{Package(writtenPackage(packed()))};
    mapping::HostFill fill = solid(kRed);
    fill.backColor = kBlue;
    static_cast<mapping::FillBuild&>(fill) = mapping::patternBuild(41);
    const Package changed(file.with({{0, {NewFill{fill}}}}));
    ASSERT_TRUE(isOdfPackage(changed));
    const std::string& picture = changed.entries().back().name;
    EXPECT_TRUE(picture.starts_with("Pictures/") && picture.ends_with(".bmp")) << picture;
    EXPECT_NE(changed.read("META-INF/manifest.xml").find(picture), std::string::npos);
    const OdfFile again{Package(changed.bytes())};
    EXPECT_EQ(onlyShape(again).fill->host.pattern, 41);
}

TEST(OdfPackages, AreRefusedWhenTheyAreEncryptedOrSigned) {
    const std::string encrypted = R"(<a><manifest:encryption-data xmlns:manifest="b"/></a>)";
    EXPECT_THROW(OdfFile{Package(writtenPackage(packed(encrypted)))}, DocumentError);
    auto entries = packed();
    entries.push_back({"META-INF/documentsignatures.xml", "<a/>"});
    const OdfFile file{Package(writtenPackage(entries))};
    EXPECT_THROW(static_cast<void>(file.with({{0, {NewFill{solid(kRed)}}}})), DocumentError);
}

}  // namespace
}  // namespace huebrush::documents::odf
