// SPDX-License-Identifier: MPL-2.0

#include "view/Theme.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "forms/Font.h"

namespace huebrush::view {
namespace {

constexpr std::int32_t kBlack = 0;
constexpr std::int32_t kWhite = 0xFFFFFF;
constexpr std::int32_t kYellow = 0xFFFF00;

Theme darkTheme() {
    Theme theme;
    theme.dialog = 0x353535;
    theme.dialogText = 0xEEEEEC;
    theme.field = 0x2D2D2D;
    theme.fieldText = kWhite;
    theme.menu = 0x383838;
    theme.menuText = 0xEEEEEC;
    theme.highlight = 0x15539E;
    theme.workspace = 0x929291;
    theme.info = 0x30394A;
    return theme;
}

Theme highContrastTheme() {
    Theme theme;
    theme.dialog = theme.field = theme.menu = theme.workspace = theme.info = kBlack;
    theme.dialogText = theme.fieldText = theme.menuText = kWhite;
    theme.highlight = kYellow;
    theme.highlightText = kBlack;
    return theme;
}

/// As a desktop could be set up by mistake: its texts can hardly be read.
Theme faintTheme() {
    Theme theme = darkTheme();
    theme.dialogText = theme.fieldText = theme.menuText = theme.highlightText = 0x707070;
    return theme;
}

struct Named {
    const char* name;
    Theme theme;
};

class DesktopThemeTest : public testing::TestWithParam<Named> {};

TEST_P(DesktopThemeTest, EveryTextCanBeReadOnEveryBackground) {
    const Theme& theme = GetParam().theme;
    for (const unsigned under :
         {forms::SystemColor::kWindowBackground, forms::SystemColor::kButtonFace,
          forms::SystemColor::kHighlight, forms::SystemColor::kApplicationWorkspace,
          forms::SystemColor::kInfoBackground, 0x0000FFU, 0x808080U}) {
        const std::int32_t background = theme.colour(under);
        const std::int32_t text = theme.textOn(under);
        EXPECT_GE(contrast(text, background), kReadable) << std::hex << under;
        EXPECT_GE(contrast(disabledText(text, background), background), kReadable)
            << std::hex << under;
    }
    EXPECT_GE(contrast(readable(theme.menuText, theme.menu), theme.menu), kReadable);
    EXPECT_GE(contrast(disabledText(theme.menuText, theme.menu), theme.menu), kReadable);
}

INSTANTIATE_TEST_SUITE_P(Desktops, DesktopThemeTest,
                         testing::Values(Named{"light", Theme{}}, Named{"dark", darkTheme()},
                                         Named{"highContrast", highContrastTheme()},
                                         Named{"faint", faintTheme()}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ContrastTest, ItRunsFromEqualColoursToBlackOnWhite) {
    EXPECT_DOUBLE_EQ(contrast(kWhite, kWhite), 1);
    EXPECT_DOUBLE_EQ(contrast(kBlack, kWhite), 21);
    EXPECT_DOUBLE_EQ(contrast(kWhite, kBlack), 21);
    // The lightest grey that can be read on white, and the next one.
    EXPECT_GE(contrast(0x767676, kWhite), kReadable);
    EXPECT_LT(contrast(0x777777, kWhite), kReadable);
}

TEST(ContrastTest, TheDesktopsTextStaysWhereItCanBeRead) {
    EXPECT_EQ(readable(0x767676, kWhite), 0x767676);
    EXPECT_EQ(readable(0x777777, kWhite), kBlack);
    EXPECT_EQ(readable(0x000040, kBlack), kWhite);
}

TEST(ContrastTest, BlackOrWhiteCanBeReadOnEveryColour) {
    constexpr std::int32_t kStep = 0x11;
    for (std::int32_t red = 0; red <= 0xFF; red += kStep) {
        for (std::int32_t green = 0; green <= 0xFF; green += kStep) {
            for (std::int32_t blue = 0; blue <= 0xFF; blue += kStep) {
                const std::int32_t background = red * 0x10000 + green * 0x100 + blue;
                EXPECT_GE(contrast(readable(background, background), background), kReadable)
                    << std::hex << background;
            }
        }
    }
}

TEST(ContrastTest, DisabledTextsFadeWhereThereIsRoomForIt) {
    EXPECT_EQ(disabledText(kBlack, kWhite), mixed(kBlack, kWhite, 0.46));
    const std::int32_t onGrey = disabledText(kBlack, 0x808080);
    EXPECT_GE(contrast(onGrey, 0x808080), kReadable);
    EXPECT_NE(onGrey, kBlack);
}

}  // namespace
}  // namespace huebrush::view
