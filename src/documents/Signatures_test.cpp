// SPDX-License-Identifier: MPL-2.0

#include "documents/Signatures.h"

#include <gtest/gtest.h>

#include "documents/package/Package.h"
#include "documents/package/PackageWriter_test_support.h"

namespace huebrush::documents {
namespace {

const std::string kTypes =
    R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
    R"(<Default Extension="xml" ContentType="application/xml"/>)"
    R"(<Override PartName="/_xmlsignatures/sig1.xml" ContentType="a"/>)"
    R"(<Override PartName="/word/document.xml" ContentType="b"/></Types>)";
const std::string kRelations =
    R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
    R"(<Relationship Id="r1" Type="officeDocument" Target="word/document.xml"/>)"
    R"(<Relationship Id="r2" Type="origin" Target="_xmlsignatures/origin.sigs"/></Relationships>)";

std::string without(std::string text, const std::string& part) {
    const std::size_t at = text.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    return text.erase(at, part.size());
}

TEST(Signatures, OfOfficeOpenXmlGoWithAllThatMentionsThem) {
    const std::vector<WrittenEntry> rest{{"word/document.xml", "<a/>"},
                                         {"docProps/app.xml", "<b/>"}};
    std::vector<WrittenEntry> entries{{"[Content_Types].xml", kTypes},
                                      {"_rels/.rels", kRelations},
                                      {"_xmlsignatures/origin.sigs", ""},
                                      {"_xmlsignatures/sig1.xml", "<c/>"},
                                      {"_xmlsignatures/_rels/origin.sigs.rels", "<d/>"}};
    entries.insert(entries.end(), rest.begin(), rest.end());
    const Package package(withoutSignatures(writtenPackage(entries)));
    ASSERT_EQ(package.entries().size(), 4U);
    EXPECT_TRUE(signaturesIn(package).empty());
    EXPECT_EQ(
        package.read("[Content_Types].xml"),
        without(kTypes, R"(<Override PartName="/_xmlsignatures/sig1.xml" ContentType="a"/>)"));
    EXPECT_EQ(
        package.read("_rels/.rels"),
        without(kRelations,
                R"(<Relationship Id="r2" Type="origin" Target="_xmlsignatures/origin.sigs"/>)"));
    for (const WrittenEntry& each : rest) EXPECT_EQ(package.read(each.name), each.content);
}

TEST(Signatures, OfOpenDocumentGo) {
    const Package package(
        withoutSignatures(writtenPackage({{"mimetype", "x", true},
                                          {"META-INF/documentsignatures.xml", "<a/>"},
                                          {"content.xml", "<b/>"},
                                          {"META-INF/macrosignatures.xml", "<c/>"}})));
    ASSERT_EQ(package.entries().size(), 3U);
    EXPECT_EQ(package.entries()[0].name, "mimetype");
    EXPECT_EQ(package.read("content.xml"), "<b/>");
    EXPECT_TRUE(package.has("META-INF/macrosignatures.xml")) << "the macros stay as they are";
}

TEST(Signatures, ThatAreNotThereChangeNothing) {
    const std::string package = writtenPackage({{"content.xml", "<b/>"}}, "a comment");
    EXPECT_EQ(withoutSignatures(package), package);
    EXPECT_EQ(withoutSignatures("<flat/>"), "<flat/>");
}

}  // namespace
}  // namespace huebrush::documents
