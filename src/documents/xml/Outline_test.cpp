// SPDX-License-Identifier: MPL-2.0

#include "documents/xml/Outline.h"

#include <gtest/gtest.h>

#include "base/Error.h"
#include "base/Text.h"
#include "documents/package/DocumentError.h"
#include "documents/xml/Splices.h"

namespace huebrush::documents {

namespace {

constexpr NamespaceId kFirst = 1;
constexpr NamespaceId kSecond = 2;
enum : NameId { kDocument = 1, kShape, kOtherShape };

const Vocabulary& vocabulary() {
    static const Vocabulary words(
        {{"urn:first", kFirst}, {"urn:first-strict", kFirst}, {"urn:second", kSecond}},
        {{kDocument, kFirst, "document"},
         {kShape, kFirst, "shape"},
         {kOtherShape, kSecond, "shape"}});
    return words;
}

Outline outlineOf(const std::string& text) {
    return {text, vocabulary(), "part.xml"};
}

std::string messageOf(const std::string& text) {
    try {
        outlineOf(text);
    } catch (const DocumentError& error) {
        return error.what();
    }
    return {};
}

std::string_view bytesOf(const Outline& outline, ElementId element) {
    return outline.textOf(outline.rangeOf(element));
}

}  // namespace

TEST(Outline, FindsElementsByTheirNamespaces) {
    const Outline outline = outlineOf(
        "<p:document xmlns:p='urn:first' xmlns:q=\"urn:second\"><p:shape/><q:shape/><shape/>"
        "<shape xmlns='urn:first-strict'><q:shape xmlns:q='urn:first'/></shape><q:shape/>"
        "</p:document>");
    ASSERT_EQ(outline.size(), 7U);
    const NameId expected[] = {kDocument, kShape, kOtherShape, kOtherName,
                               kShape,    kShape, kOtherShape};
    for (ElementId i = 0; i < 7; ++i) EXPECT_EQ(outline.nameOf(i), expected[i]) << i;
}

TEST(Outline, KnowsTheBytesOfEveryElement) {
    const std::string text =
        "\xEF\xBB\xBF<?xml version=\"1.0\"?>\r\n<a ><b\n/><c d='>'>t<!-- <x> --></c ><e></e></a>\n";
    const Outline outline = outlineOf(text);
    ASSERT_EQ(outline.size(), 4U);
    EXPECT_EQ(bytesOf(outline, 0), "<a ><b\n/><c d='>'>t<!-- <x> --></c ><e></e></a>");
    EXPECT_EQ(bytesOf(outline, 1), "<b\n/>");
    EXPECT_EQ(bytesOf(outline, 2), "<c d='>'>t<!-- <x> --></c >");
    EXPECT_EQ(bytesOf(outline, 3), "<e></e>");
    EXPECT_EQ(outline.textOf(outline.contentOf(2)), "t<!-- <x> -->");
    EXPECT_EQ(outline.textOf(outline.contentOf(3)), "");
    EXPECT_TRUE(outline.isEmptyTag(1));
    EXPECT_FALSE(outline.isEmptyTag(3));
    EXPECT_EQ(outline.writtenName(1), "b");
    EXPECT_EQ(outline.writtenName(2), "c");
}

TEST(Outline, WalksChildrenInOrder) {
    const Outline outline =
        outlineOf("<document xmlns='urn:first'><a><b/></a><shape/><c/></document>");
    EXPECT_EQ(outline.firstChild(0), 1U);
    EXPECT_EQ(outline.firstChild(1), 2U);
    EXPECT_EQ(outline.nextSibling(1), 3U);
    EXPECT_EQ(outline.nextSibling(2), kNoElement);
    EXPECT_EQ(outline.nextSibling(3), 4U);
    EXPECT_EQ(outline.nextSibling(4), kNoElement);
    EXPECT_EQ(outline.nextSibling(0), kNoElement);
    EXPECT_EQ(outline.firstChild(4), kNoElement);
    EXPECT_EQ(outline.child(0, kShape), 3U);
    EXPECT_EQ(outline.child(1, kShape), kNoElement);
    EXPECT_EQ(outline.endOf(1), 3U);
}

TEST(Outline, ReadsAttributesWithTheirPlaces) {
    const Outline outline = outlineOf(
        "<a xmlns:p='urn:first' one=\"1 &amp; &#x41;&#66;&quot;\" p:one = 'in \" it' "
        "two='x>y\n'/>");
    EXPECT_EQ(outline.attribute(0, "one"), "1 & AB\"");
    EXPECT_EQ(outline.attribute(0, kFirst, "one"), "in \" it");
    EXPECT_EQ(outline.attribute(0, kSecond, "one"), std::nullopt);
    EXPECT_EQ(outline.attribute(0, "two"), "x>y ");
    EXPECT_EQ(outline.attribute(0, "three"), std::nullopt);
    const auto found = outline.findAttribute(0, kFirst, "one");
    ASSERT_TRUE(found);
    EXPECT_EQ(outline.textOf(found->whole), "p:one = 'in \" it'");
    EXPECT_EQ(outline.textOf(found->value), "in \" it");
}

TEST(Outline, WritesNoPrefixesThatAreNoNames) {
    for (const char* const prefix : {"7p", "p:q", "-p", "·"}) {
        const Outline outline = outlineOf(base::text("<a xmlns:", prefix, "='urn:first'/>"));
        EXPECT_EQ(outline.prefixFor(0, kFirst), std::nullopt) << prefix;
    }
    EXPECT_EQ(outlineOf("<a xmlns:7p='urn:first' xmlns:_p='urn:first'/>").prefixFor(0, kFirst),
              "_p");
}

TEST(Outline, FindsThePrefixInForce) {
    const Outline outline = outlineOf(
        "<a xmlns:p='urn:first' xmlns:q='urn:first'><b xmlns:p='urn:second'/><c "
        "xmlns='urn:second'/>"
        "</a>");
    EXPECT_EQ(outline.prefixFor(0, kFirst), "p");
    EXPECT_EQ(outline.prefixFor(1, kFirst), "q");
    EXPECT_EQ(outline.prefixFor(1, kSecond), "p");
    EXPECT_EQ(outline.prefixFor(2, kSecond), "");
    EXPECT_EQ(outline.prefixFor(0, kSecond), std::nullopt);
    EXPECT_EQ(outline.spaceOfPrefix(1, "p"), kSecond);
    EXPECT_EQ(outline.spaceOfPrefix(0, "nobody"), kOtherNamespace);
}

TEST(Outline, RefusesWhatIsNotXml) {
    EXPECT_NE(messageOf(""), "");
    EXPECT_NE(messageOf("<a>"), "");
    EXPECT_NE(messageOf("<a></b>"), "");
    EXPECT_EQ(messageOf("<a><p:b/></a>"),
              "is damaged: part.xml uses a prefix that it does not declare");
}

TEST(Outline, RefusesDeclarationsOfADocumentType) {
    EXPECT_EQ(messageOf("<!DOCTYPE a [<!ENTITY b \"bbbbbb\">]><a>&b;</a>"),
              "is damaged: part.xml has a document type declaration");
    EXPECT_EQ(messageOf("<!DOCTYPE a SYSTEM \"file:///etc/passwd\"><a/>"),
              "is damaged: part.xml has a document type declaration");
}

TEST(Outline, RefusesEncodingsOfTwoBytes) {
    EXPECT_EQ(messageOf(std::string("\xFF\xFE<\0a\0/\0>\0", 10)),
              "is damaged: part.xml is in an encoding of two bytes a character");
    EXPECT_EQ(messageOf(std::string("\0<\0a\0/\0>", 8)),
              "is damaged: part.xml is in an encoding of two bytes a character");
}

TEST(Outline, RefusesAMillionLevels) {
    std::string deep;
    for (int i = 0; i < 1000000; ++i) deep += "<a>";
    EXPECT_EQ(messageOf(deep), "is damaged: part.xml nests too deeply");
}

TEST(Outline, EscapesForAnyEncoding) {
    const std::string value = "a<b>\"c\" & \xC5\x99 \xF0\x9F\x98\x80";
    EXPECT_EQ(escaped(value), "a&lt;b>&quot;c&quot; &amp; &#345; &#128512;");
    EXPECT_EQ(resolved(escaped(value)), value);
}

TEST(Splices, ChangeNothingElse) {
    Splices splices;
    splices.replace({2, 4}, "XYZ");
    splices.insert(6, "1");
    splices.insert(6, "2");
    splices.remove({0, 1});
    EXPECT_EQ(splices.applied("abcdefgh"), "bXYZef12gh");
    EXPECT_EQ(Splices().applied("abc"), "abc");
}

TEST(Splices, InsertBeforeWhatIsReplacedAtTheSamePlace) {
    Splices splices;
    splices.remove({2, 4});
    splices.insert(2, "1");
    splices.insert(4, "2");
    EXPECT_EQ(splices.applied("abcdefgh"), "ab12efgh");
}

TEST(Splices, RefuseToOverlap) {
    Splices splices;
    splices.replace({2, 4}, "");
    splices.replace({3, 5}, "");
    EXPECT_THROW(splices.applied("abcdefgh"), base::Error);
}

}  // namespace huebrush::documents
