// SPDX-License-Identifier: MPL-2.0

#include "recolor/FillWords.h"

#include <gtest/gtest.h>

#include "base/Color.h"

namespace huebrush::recolor {
namespace {

using host::MsoFillType;
using host::MsoGradientColorType;
using host::MsoTextureType;

fill::FillProperties fillOf(MsoFillType type) {
    fill::FillProperties fill;
    fill.Visible = host::MsoTriState::msoTrue;
    fill.Type = type;
    fill.ForeColorRGB = base::rgb(0xC0, 0, 0x10);
    fill.BackColorRGB = base::rgb(0xFF, 0xFF, 0xFF);
    return fill;
}

TEST(FillWords, NameColoursAndTransparency) {
    fill::FillProperties fill = fillOf(MsoFillType::msoFillSolid);
    EXPECT_EQ(wordsOf(fill), "#C00010");
    fill.Transparency = 0.18F;
    EXPECT_EQ(wordsOf(fill), "#C00010, průhlednost 18 %");
    fill.Transparency = 0.001F;
    EXPECT_EQ(wordsOf(fill), "#C00010");
    fill.Visible = host::MsoTriState::msoFalse;
    EXPECT_EQ(wordsOf(fill), "bez výplně");
}

TEST(FillWords, NameEveryKindOfFill) {
    fill::FillProperties gradient = fillOf(MsoFillType::msoFillGradient);
    gradient.GradientColorType = MsoGradientColorType::msoGradientOneColor;
    EXPECT_EQ(wordsOf(gradient), "přechod #C00010");
    gradient.GradientColorType = MsoGradientColorType::msoGradientTwoColors;
    EXPECT_EQ(wordsOf(gradient), "přechod #C00010 až #FFFFFF");
    gradient.GradientColorType = MsoGradientColorType::msoGradientPresetColors;
    gradient.PresetGradientType = 7;
    EXPECT_EQ(wordsOf(gradient), "přednastavený přechod 7");
    fill::FillProperties pattern = fillOf(MsoFillType::msoFillPatterned);
    pattern.Pattern = 12;
    EXPECT_EQ(wordsOf(pattern), "vzorek 12, #C00010 na #FFFFFF");
    fill::FillProperties texture = fillOf(MsoFillType::msoFillTextured);
    EXPECT_EQ(wordsOf(texture), "textura");
    texture.TextureName = "žula.bmp";
    EXPECT_EQ(wordsOf(texture), "textura žula.bmp");
    texture.TextureType = MsoTextureType::msoTexturePreset;
    texture.PresetTexture = 3;
    EXPECT_EQ(wordsOf(texture), "přednastavená textura 3");
    EXPECT_EQ(wordsOf(fillOf(MsoFillType::msoFillPicture)), "obrázek");
    EXPECT_EQ(wordsOf(fillOf(MsoFillType::msoFillBackground)), "pozadí");
    EXPECT_EQ(wordsOf(fillOf(MsoFillType::msoFillMixed)), "různé výplně");
}

TEST(FillWords, CountObjectsAsCzechDoes) {
    EXPECT_EQ(objectsText(0), "0 objektů");
    EXPECT_EQ(objectsText(1), "1 objekt");
    EXPECT_EQ(objectsText(2), "2 objekty");
    EXPECT_EQ(objectsText(4), "4 objekty");
    EXPECT_EQ(objectsText(5), "5 objektů");
    EXPECT_EQ(objectsText(22), "22 objektů");
    EXPECT_EQ(objectsText(101), "101 objektů");
}

}  // namespace
}  // namespace huebrush::recolor
