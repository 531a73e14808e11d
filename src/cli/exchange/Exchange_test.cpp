// SPDX-License-Identifier: MPL-2.0

#include "cli/exchange/Exchange.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

#include "base/Text.h"
#include "cli/Failure.h"

namespace huebrush::cli {
namespace {

using namespace std::string_literals;
using base::rgb;
using Colors = std::vector<base::Rgb>;

const base::Rgb kRed = rgb(192, 0, 0);
const base::Rgb kBlue = rgb(0, 112, 192);

ReadColors read(std::string_view format, std::string_view bytes) {
    return exchangeFormatOf(format)->read(bytes);
}

std::string problemOf(std::string_view format, std::string_view bytes) {
    try {
        read(format, bytes);
        return "no error";
    } catch (const Failure& failure) {
        return failure.what();
    }
}

TEST(ExchangeFormats, AreFoundByTheirNameInAnyCase) {
    for (const char* const name : {"gpl", "GPL", "Soc", "aSe"}) {
        const ExchangeFormat* const format = exchangeFormatOf(name);
        ASSERT_NE(format, nullptr) << name;
    }
    for (const char* const name : {"", "json", ".gpl", "gp", "gplx"}) {
        EXPECT_EQ(exchangeFormatOf(name), nullptr) << name;
    }
}

TEST(ExchangeFormats, AreChosenByNameOrElseByTheEndingOfAFile) {
    EXPECT_EQ(chosenFormat("", "a.soc/b.c.GPL"), exchangeFormatOf("gpl"));
    EXPECT_EQ(chosenFormat("ase", "b.gpl"), exchangeFormatOf("ase"));
    EXPECT_EQ(chosenFormat("json", "b.gpl"), nullptr);
    for (const char* const file : {"", "gpl", ".gpl", "a.gpl/b", "b.gpl.", "b.txt"}) {
        EXPECT_EQ(chosenFormat("", file), nullptr) << file;
    }
}

TEST(ExchangeFormats, ReadBackWhatTheyWrite) {
    ColorPalette palette{"Žluť & <kůň>", {}};
    for (std::uint32_t i = 0; i < 256; ++i) palette.colors.push_back(rgb(i, 255 - i, i * 7));
    palette.colors.push_back(palette.colors.front());
    for (const ExchangeFormat& format : exchangeFormats()) {
        const ReadColors found = format.read(format.write(palette));
        ASSERT_EQ(found.palettes.size(), 1U) << format.name;
        EXPECT_EQ(found.palettes[0].colors, palette.colors) << format.name;
        EXPECT_EQ(found.palettes[0].name, format.name == "soc" ? "" : palette.name);
        EXPECT_EQ(found.named, palette.colors.size()) << format.name;
        EXPECT_EQ(found.approximated + found.translucent, 0U) << format.name;
    }
}

TEST(ExchangeFormats, RefuseMoreColoursThanTheDialogHasRows) {
    ColorPalette palette{"x", Colors(32767, kRed)};
    std::vector<std::string> most;
    for (const ExchangeFormat& format : exchangeFormats()) most.push_back(format.write(palette));
    palette.colors.push_back(kRed);
    for (std::size_t i = 0; i < most.size(); ++i) {
        const ExchangeFormat& format = exchangeFormats()[i];
        EXPECT_EQ(format.read(most[i]).palettes.at(0).colors.size(), 32767U);
        EXPECT_EQ(problemOf(format.name, format.write(palette)),
                  "a palette has more than 32767 colours");
    }
}

/// Whatever is read ends with palettes or with one line; the sanitizers see the rest.
TEST(ExchangeFormats, SurviveDamage) {
    const ColorPalette palette{"Podzim", {kRed, kBlue, kRed}};
    std::mt19937 random(1);
    for (const ExchangeFormat& format : exchangeFormats()) {
        const std::string whole = format.write(palette);
        for (std::size_t length = 0; length < whole.size(); ++length) {
            EXPECT_EQ(problemOf(format.name, whole.substr(0, length)).find('\n'),
                      std::string::npos);
        }
        for (int turn = 0; turn < 20'000; ++turn) {
            std::string damaged = whole;
            for (std::size_t i = random() % 4 + 1; i > 0; --i) {
                damaged[random() % damaged.size()] = static_cast<char>(random());
            }
            EXPECT_EQ(problemOf(format.name, damaged).find('\n'), std::string::npos);
        }
    }
}

TEST(GimpPalette, IsReadAsOtherProgramsWriteIt) {
    const auto found = read("gpl",
                            "GIMP Palette\r\nName:  Podzimní barvy \r\nColumns: 3\r\n# Poznámka\r\n"
                            "192   0   0\tRoof tiles\r\n\r\n  0 112 192 Untitled\r\n255 255 255");
    ASSERT_EQ(found.palettes.size(), 1U);
    EXPECT_EQ(found.palettes[0].name, "Podzimní barvy");
    EXPECT_EQ(found.palettes[0].colors, (Colors{kRed, kBlue, rgb(255, 255, 255)}));
    EXPECT_EQ(found.named, 1U);
}

TEST(GimpPalette, MayBeOldOrOfAnyEncoding) {
    const auto old = read("gpl", "\xEF\xBB\xBFGIMP Palette\r192 0 0\r0 112 192 Name: x\r");
    EXPECT_EQ(old.palettes.at(0).name, "");
    EXPECT_EQ(old.palettes.at(0).colors, (Colors{kRed, kBlue}));
    EXPECT_EQ(read("gpl", "GIMP Palette\nName: Caf\xE9\n").palettes.at(0).name, "Café");
}

TEST(GimpPalette, CountsColoursThatAreNotOpaque) {
    const auto found =
        read("gpl", "GIMP Palette\nChannels: RGBA\n#\n192 0 0 255 red\n0 112 192 128\n");
    EXPECT_EQ(found.palettes.at(0).colors, (Colors{kRed, kBlue}));
    EXPECT_EQ(found.translucent, 1U);
    EXPECT_EQ(found.named, 1U);
}

TEST(GimpPalette, IsRefusedWithTheLine) {
    EXPECT_EQ(problemOf("gpl", ""), "line 1: \"GIMP Palette\" is expected here");
    EXPECT_EQ(problemOf("gpl", "JASC-PAL\n"), "line 1: \"GIMP Palette\" is expected here");
    for (const char* const line : {"1 2", "1 2 256", "1 2 -3", "1 2 3x", "112233", "Name: late",
                                   "99999999999 0 0", "0.5 0 0"}) {
        EXPECT_EQ(problemOf("gpl", base::text("GIMP Palette\r\n#\r\n0 0 0\r\n", line, "\r\n")),
                  "line 4: a colour must begin with three numbers from 0 to 255")
            << line;
    }
}

constexpr const char* kOffice = "xmlns:o='http://openoffice.org/2004/office'";
constexpr const char* kDraw = "xmlns:d='urn:oasis:names:tc:opendocument:xmlns:drawing:1.0'";

std::string table(const std::string& content) {
    return base::text("<o:color-table ", kOffice, " ", kDraw, ">\n", content, "</o:color-table>");
}

TEST(ColorTable, IsReadWhateverTheOrderThePrefixAndTheSpelling) {
    const auto found = read("soc", table("<d:color d:color='#c00000' d:name='A &amp; &#x17D;'/>"
                                         "<!-- &no; --><d:color d:name=''  d:color=\"&#35;0070C0\">"
                                         "</d:color><d:marker d:name='x'/>"));
    EXPECT_EQ(found.palettes.at(0).colors, (Colors{kRed, kBlue}));
    EXPECT_EQ(found.named, 1U);
}

TEST(ColorTable, MayBeOfTheFirstVersionOfTheOffice) {
    const auto found =
        read("soc",
             "<?xml version='1.0' encoding='ISO-8859-1'?>\r\n"
             "<!DOCTYPE office:color-table PUBLIC '-//x' 'office.dtd'>\r\n"
             "<office:color-table xmlns:office='http://openoffice.org/2000/office' "
             "xmlns:draw='http://openoffice.org/2000/drawing'>\r\n"
             "<draw:color draw:name='Gr\xFCn' draw:color='#C00000'/></office:color-table>\r\n");
    EXPECT_EQ(found.palettes.at(0).colors, (Colors{kRed}));
}

TEST(ColorTable, IsRefusedWithTheLine) {
    const auto office = [](const std::string& name) {
        return base::text("\n<o:", name, " ", kOffice, "/>");
    };
    EXPECT_EQ(problemOf("soc", office("gradient-table")), "line 2: this is not a colour table");
    EXPECT_EQ(problemOf("soc", "<color-table/>"), "line 1: this is not a colour table");
    EXPECT_EQ(problemOf("soc", ""), "line 1: no element found");
    EXPECT_EQ(problemOf("soc", "x"), "line 1: syntax error");
    EXPECT_EQ(problemOf("soc", table("<d:color>")), "line 2: a colour must have the form #RRGGBB");
    for (const char* const value : {"", "red", "C00000", "#C0000", "#C000000", "#C0000G"}) {
        EXPECT_EQ(problemOf("soc", table(base::text("<d:color d:color='", value, "'/>"))),
                  "line 2: a colour must have the form #RRGGBB")
            << value;
    }
    EXPECT_EQ(problemOf("soc", table("<d:color d:color='#C00000'>")), "line 2: mismatched tag");
}

TEST(ColorTable, DoesNotExpandEntitiesWithoutEnd) {
    std::string bomb = "<!DOCTYPE x [<!ENTITY a 'aaaaaaaaaaaaaaaaaaaa'>";
    for (char name = 'b'; name < 'k'; ++name) {
        bomb += base::text("<!ENTITY ", std::string(1, name), " '");
        for (int i = 0; i < 10; ++i)
            bomb += base::text("&", std::string(1, static_cast<char>(name - 1)), ";");
        bomb += "'>";
    }
    const std::string problem = problemOf("soc", bomb + "]>\n" + table("&j;"));
    EXPECT_NE(problem.find("amplification"), std::string::npos) << problem;
}

/// Blocks of an Adobe Swatch Exchange file, put together by hand.
class Swatches {
 public:
    static std::string u16(unsigned value) {
        return {static_cast<char>(value >> 8U), static_cast<char>(value)};
    }
    static std::string u32(std::uint32_t value) { return u16(value >> 16U) + u16(value & 0xFFFFU); }
    static std::string block(unsigned type, const std::string& content) {
        return u16(type) + u32(static_cast<std::uint32_t>(content.size())) + content;
    }
    static std::string name(const std::u16string& text) {
        std::string bytes = u16(static_cast<unsigned>(text.size()) + 1);
        for (const char16_t unit : text + u'\0') bytes += u16(unit);
        return bytes;
    }
    static std::string color(std::string_view model, const std::vector<float>& parts,
                             const std::u16string& named = u"x") {
        std::string bytes = name(named) + std::string(model);
        for (const float part : parts) bytes += u32(std::bit_cast<std::uint32_t>(part));
        return block(1, bytes + u16(0));
    }
    static std::string file(std::uint32_t blocks, const std::string& content) {
        return "ASEF" + u16(1) + u16(0) + u32(blocks) + content;
    }
};

TEST(SwatchExchange, HasAPaletteForEachGroupAndOneForTheRest) {
    using S = Swatches;
    const auto found =
        read("ase", S::file(8, S::color("RGB ", {1, 0, 0}) + S::block(0xC001, S::name(u"Žluť")) +
                                   S::color("Gray", {0.5F}, u"") + S::block(0xC002, "") +
                                   S::block(0xC001, S::name(u"Empty")) + S::block(0xC002, "") +
                                   S::block(7, "unknown") + S::color("RGB ", {0, 1, 0})));
    ASSERT_EQ(found.palettes.size(), 3U);
    EXPECT_EQ(found.palettes[0].name, "");
    EXPECT_EQ(found.palettes[0].colors, (Colors{rgb(255, 0, 0), rgb(0, 255, 0)}));
    EXPECT_EQ(found.palettes[1].name, "Žluť");
    EXPECT_EQ(found.palettes[1].colors, (Colors{rgb(128, 128, 128)}));
    EXPECT_EQ(found.palettes[2].name, "Empty");
    EXPECT_EQ(found.named, 2U);
    EXPECT_EQ(found.approximated, 0U);
}

TEST(SwatchExchange, HasExactColours) {
    for (unsigned value = 0; value < 256; ++value) {
        const float part = static_cast<float>(value) / 255.0F;
        const auto found =
            read("ase", Swatches::file(2, Swatches::color("RGB ", {part, 2.0F, -1.0F}) +
                                              Swatches::color("Gray", {part})));
        EXPECT_EQ(found.palettes.at(0).colors,
                  (Colors{rgb(value, 255, 0), rgb(value, value, value)}));
    }
}

TEST(SwatchExchange, ApproximatesColoursOfCmykAndLab) {
    const auto colorOf = [](std::string_view model, const std::vector<float>& parts) {
        const auto found = read("ase", Swatches::file(1, Swatches::color(model, parts)));
        EXPECT_EQ(found.approximated, 1U);
        return base::toHex(found.palettes.at(0).colors.at(0));
    };
    EXPECT_EQ(colorOf("CMYK", {0, 0, 0, 0}), "#FFFFFF");
    EXPECT_EQ(colorOf("CMYK", {0, 0, 0, 1}), "#000000");
    EXPECT_EQ(colorOf("CMYK", {0, 1, 1, 0.2F}), "#CC0000");
    EXPECT_EQ(colorOf("CMYK", {1, 0.25F, 0, 0.5F}), "#006080");
    EXPECT_EQ(colorOf("LAB ", {0, 0, 0}), "#000000");
    EXPECT_EQ(colorOf("LAB ", {1, 0, 0}), "#FFFFFF");
    // The primaries of sRGB in Lab with D50, as published tables have them.
    EXPECT_EQ(colorOf("LAB ", {0.542917F, 80.8125F, 69.8851F}), "#FF0000");
    EXPECT_EQ(colorOf("LAB ", {0.878181F, -79.2873F, 80.9902F}), "#00FF00");
    EXPECT_EQ(colorOf("LAB ", {0.295676F, 68.2986F, -112.0294F}), "#0000FF");
}

TEST(SwatchExchange, MayCountItsBlocksWrongly) {
    const std::string one = Swatches::color("RGB ", {1, 0, 0});
    EXPECT_EQ(read("ase", Swatches::file(1, one + one)).palettes.at(0).colors.size(), 2U);
    EXPECT_EQ(read("ase", Swatches::file(1, one + "\0\0"s)).palettes.at(0).colors.size(), 1U);
}

TEST(SwatchExchange, IsRefusedWithThePlace) {
    using S = Swatches;
    const std::string one = S::color("RGB ", {1, 0, 0});
    EXPECT_EQ(problemOf("ase", ""), "byte 0: \"ASEF\" is expected here");
    EXPECT_EQ(problemOf("ase", "GIMP Palette"), "byte 0: \"ASEF\" is expected here");
    EXPECT_EQ(problemOf("ase", "ASEF"), "byte 4: the data ends too early");
    EXPECT_EQ(problemOf("ase", S::file(2, one)), "byte 42: the data ends too early");
    EXPECT_EQ(problemOf("ase", S::file(4000000000U, one)), "byte 42: the data ends too early");
    EXPECT_EQ(problemOf("ase", S::file(1, S::u16(1) + S::u32(4000000000U))),
              "byte 18: the data ends too early");
    EXPECT_EQ(problemOf("ase", S::file(1, S::block(1, S::u16(9)))),
              "byte 20: the data ends too early");
    EXPECT_EQ(problemOf("ase", S::file(1, S::color("HSB ", {1, 0, 0}))),
              "byte 28: the colour model is unknown");
    EXPECT_EQ(problemOf("ase", S::file(1, S::color("RGB ", {1, NAN, 0}))),
              "byte 36: a part of a colour is not a number");
}

}  // namespace
}  // namespace huebrush::cli
