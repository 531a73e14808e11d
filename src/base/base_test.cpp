// SPDX-License-Identifier: MPL-2.0

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "base/Bitmap.h"
#include "base/Color.h"
#include "base/Count16.h"
#include "base/CssColor.h"
#include "base/Error.h"
#include "base/NonNegative.h"
#include "base/Picture.h"
#include "base/Text.h"
#include "base/Units.h"

namespace huebrush::base {
namespace {

TEST(NonNegative, ClampsNegativeNumbersAtZeroAndKeepsTheRest) {
    EXPECT_EQ(NonNegative(-0.5), 0.0);
    EXPECT_EQ(NonNegative(0.0), 0.0);
    EXPECT_EQ(NonNegative(12.25), 12.25);
}

TEST(Count16, PassingTheLargestCountIsAnOverflowError) {
    Count16 count = 32766;
    ++count;
    EXPECT_EQ(count, 32767);
    try {
        ++count;
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), ErrorNumber::kOverflow);
    }
    EXPECT_EQ(count, 32767);
    EXPECT_THROW(Count16::of(32768), Error);
}

TEST(Text, JoinsTextsAndPlainDecimalNumbers) {
    EXPECT_EQ(text("Zpracováno ", Count16(12), " ze ", 3000, " objektů..."),
              "Zpracováno 12 ze 3000 objektů...");
    EXPECT_EQ(text(-2147483648LL), "-2147483648");
}

TEST(Text, ConvertsBothWaysBetweenUtf8AndUtf16) {
    const std::string sample = "Žluťoučký kůň \xF0\x9F\x90\xB4";
    EXPECT_EQ(toUtf8(toUtf16(sample)), sample);
    EXPECT_EQ(lengthInCharacters(sample), 16U);
}

TEST(Text, ReplacesMalformedSequences) {
    EXPECT_EQ(toUtf16("a\xFF"
                      "b"),
              u"a\xFFFD"
              u"b");
    EXPECT_EQ(toUtf16("\xC3"), u"\xFFFD");
    const char16_t lone[] = {0xD800, u'x', 0};
    EXPECT_EQ(toUtf8(lone), "\xEF\xBF\xBDx");
}

TEST(Text, ReadsWholeNumbersOnly) {
    EXPECT_EQ(toNumber("9.0"), 9.0);
    EXPECT_THROW(toNumber("9,0"), Error);
    EXPECT_THROW(toNumber(""), Error);
    EXPECT_THROW(toNumber("12x"), Error);
    EXPECT_EQ(toInteger("2.5"), 2);
    EXPECT_EQ(toInteger("3.5"), 4);
    EXPECT_THROW(toInteger("2147483648"), Error);
}

TEST(Color, KeepsRedInTheLowByte) {
    EXPECT_EQ(rgb(0xC0, 0x10, 0x02), 0x0210C0);
    EXPECT_EQ(toHex(0x0210C0), "#C01002");
    EXPECT_EQ(fromHex("#c01002"), 0x0210C0);
    EXPECT_EQ(fromHex("C01002"), 0x0210C0);
    EXPECT_FALSE(fromHex("#c0100"));
    EXPECT_FALSE(fromHex("#c0100g"));
    EXPECT_FALSE(fromHex("#-c0100"));
    EXPECT_EQ(swapRedAndBlue(0xC01002), 0x0210C0);
}

TEST(CssColor, IsKnownByItsNameInEitherCase) {
    EXPECT_EQ(fromCssName("aliceblue"), rgb(0xF0, 0xF8, 0xFF));
    EXPECT_EQ(fromCssName("RebeccaPurple"), rgb(0x66, 0x33, 0x99));
    EXPECT_EQ(fromCssName("YELLOWGREEN"), rgb(0x9A, 0xCD, 0x32));
    // Not what the X Window System calls so.
    EXPECT_EQ(fromCssName("gray"), rgb(0x80, 0x80, 0x80));
    EXPECT_EQ(fromCssName("green"), rgb(0, 0x80, 0));
    for (const char* const name : {"", "a", "aliceblu", "aliceblues", "alice blue", "zinc",
                                   "transparent", "currentcolor", "canvas", "none"}) {
        EXPECT_FALSE(fromCssName(name)) << name;
    }
}

TEST(NonNegative, OfANegativeWidthComputedInAResizeIsZero) {
    const double innerWidth = 300;
    const double left = 5190;
    EXPECT_EQ(NonNegative(innerWidth - left), 0.0);
}

TEST(Count16, CountsDownToItsLowestValueAndNotBelow) {
    Count16 count = std::int16_t{-32767};
    --count;
    EXPECT_EQ(count, -32768);
    EXPECT_THROW(--count, Error);
    EXPECT_EQ(Count16::of(32767), 32767);
}

TEST(Picture, EqualsAnotherOfTheSameBytesAndFormat) {
    const Picture none;
    const Picture first(PictureFormat::bitmap, {1, 2});
    EXPECT_TRUE(none.empty());
    EXPECT_TRUE(none.bytes().empty());
    EXPECT_EQ(none, Picture());
    EXPECT_FALSE(first.empty());
    EXPECT_EQ(first, Picture(PictureFormat::bitmap, {1, 2}));
    EXPECT_FALSE(first == Picture(PictureFormat::icon, {1, 2}));
    EXPECT_FALSE(first == Picture(PictureFormat::bitmap, {1, 3}));
    EXPECT_FALSE(first == none);
}

TEST(Bitmap, IsAFileOfItsPixelsWithTheLowestRowFirst) {
    const Picture file = bitmapOf(1, 2, {1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(file, Picture(PictureFormat::bitmap,
                            {'B', 'M', 62, 0, 0, 0, 0, 0,  0, 0, 54, 0, 0, 0, 40, 0, 0, 0, 1, 0, 0,
                             0,   2,   0,  0, 0, 1, 0, 32, 0, 0, 0,  0, 0, 8, 0,  0, 0, 0, 0, 0, 0,
                             0,   0,   0,  0, 0, 0, 0, 0,  0, 0, 0,  0, 5, 6, 7,  8, 1, 2, 3, 4}));
}

TEST(Bitmap, PadsRowsOfThreeBytesAPixel) {
    const std::vector<std::uint8_t> file = bitmapFile(1, 2, 3, {1, 2, 3, 4, 5, 6});
    ASSERT_EQ(file.size(), 62U);
    EXPECT_EQ(file[28], 24);
    EXPECT_EQ(std::vector<std::uint8_t>(file.begin() + 54, file.end()),
              (std::vector<std::uint8_t>{4, 5, 6, 0, 1, 2, 3, 0}));
}

TEST(Error, AnyExceptionInFlightBecomesAnErrorWithItsText) {
    const auto caught = [](const auto& thrown) {
        try {
            throw thrown;
        } catch (...) {
            return currentError();
        }
    };
    EXPECT_EQ(caught(Error(91, "x")).number(), 91);
    EXPECT_EQ(caught(std::runtime_error("broken")).number(), ErrorNumber::kInternal);
    EXPECT_EQ(caught(std::runtime_error("broken")).description(), "broken");
    EXPECT_EQ(caught(7).number(), ErrorNumber::kInternal);
}

TEST(Units, TurnsPointsIntoHundredthsOfAMillimetre) {
    EXPECT_DOUBLE_EQ(pointsToHundredthMillimetres(72), 2540);
}

TEST(Text, PercentEncodingLeavesLettersDigitsAndWhatIsPlain) {
    EXPECT_EQ(percentEncoded("Az09-_"), "Az09-_");
    EXPECT_EQ(percentEncoded("a b/%.~"), "a%20b%2F%25%2E%7E");
    EXPECT_EQ(percentEncoded("/a b%.~", "/."), "/a%20b%25.%7E");
    EXPECT_EQ(percentEncoded(std::string("\0\xFF", 2)), "%00%FF");
    EXPECT_EQ(percentEncoded("ž"), "%C5%BE");
}

TEST(Error, SuppressedErrorsAreAllOrThoseOfOneType) {
    EXPECT_TRUE(ignoring([] {}));
    EXPECT_FALSE(ignoring([] { throw 1; }));
    EXPECT_TRUE(ignoring<Error>([] {}));
    EXPECT_FALSE(ignoring<Error>([] { throwOverflow(); }));
    EXPECT_THROW(ignoring<Error>([] { throw 1; }), int);
}

}  // namespace
}  // namespace huebrush::base
