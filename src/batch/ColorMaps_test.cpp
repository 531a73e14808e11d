// SPDX-License-Identifier: MPL-2.0

#include "batch/ColorMaps.h"

#include <gtest/gtest.h>

namespace huebrush::batch {
namespace {

using host::MsoFillType;
using host::MsoGradientColorType;

constexpr base::Rgb kRed = base::rgb(0xC0, 0, 0);
constexpr base::Rgb kNearRed = base::rgb(0xC2, 2, 0);
constexpr base::Rgb kBlue = base::rgb(0, 0x70, 0xC0);
constexpr base::Rgb kGreen = base::rgb(0, 0xC0, 0);
constexpr base::Rgb kGrey = base::rgb(0x80, 0x80, 0x80);

fill::FillProperties fillOf(MsoFillType type, base::Rgb fore, base::Rgb back) {
    fill::FillProperties fill;
    fill.Visible = host::MsoTriState::msoTrue;
    fill.Type = type;
    fill.ForeColorRGB = fore;
    fill.BackColorRGB = back;
    fill.Transparency = 0.25F;
    return fill;
}

fill::FillProperties gradient(MsoGradientColorType type) {
    fill::FillProperties fill = fillOf(MsoFillType::msoFillGradient, kRed, kRed);
    fill.GradientColorType = type;
    return fill;
}

TEST(ColorMaps, ChangeTheColourOfASolidFillAndNothingElse) {
    ColorMaps maps({{kRed, kBlue}}, {});
    fill::FillProperties wanted = fillOf(MsoFillType::msoFillSolid, kBlue, kRed);
    EXPECT_EQ(maps.mapped(fillOf(MsoFillType::msoFillSolid, kRed, kRed)), wanted);
    EXPECT_FALSE(maps.mapped(fillOf(MsoFillType::msoFillSolid, kGreen, kRed)));
    EXPECT_FALSE(maps.mapped(fillOf(MsoFillType::msoFillPatterned, kRed, kRed)));
    EXPECT_FALSE(maps.mapped(gradient(MsoGradientColorType::msoGradientTwoColors)));
    fill::FillProperties invisible = fillOf(MsoFillType::msoFillSolid, kRed, kRed);
    invisible.Visible = host::MsoTriState::msoFalse;
    EXPECT_FALSE(maps.mapped(invisible));
}

TEST(ColorMaps, OfAColourToItselfChangeNothingAndFindIt) {
    ColorMaps maps({{kRed, kRed}}, {});
    EXPECT_FALSE(maps.mapped(fillOf(MsoFillType::msoFillSolid, kRed, 0)));
    EXPECT_FALSE(maps.missing());
}

TEST(ColorMaps, NameTheFirstColourThatIsMissing) {
    ColorMaps maps({{kRed, kBlue}, {kGreen, kBlue}, {kGrey, kBlue}}, {});
    EXPECT_EQ(maps.missing(), kRed);
    maps.mapped(fillOf(MsoFillType::msoFillSolid, kRed, 0));
    EXPECT_EQ(maps.missing(), kGreen);
    MappingScope tolerant;
    tolerant.mayBeMissing = true;
    EXPECT_FALSE(ColorMaps({{kRed, kBlue}}, tolerant).missing());
}

TEST(ColorMaps, ChangeBothColoursOfPatternsOnRequest) {
    MappingScope scope;
    scope.patterns = true;
    ColorMaps maps({{kRed, kBlue}, {kGrey, kGreen}}, scope);
    EXPECT_EQ(maps.mapped(fillOf(MsoFillType::msoFillPatterned, kRed, kGrey)),
              fillOf(MsoFillType::msoFillPatterned, kBlue, kGreen));
    EXPECT_EQ(maps.mapped(fillOf(MsoFillType::msoFillPatterned, kGreen, kRed)),
              fillOf(MsoFillType::msoFillPatterned, kGreen, kBlue));
    EXPECT_FALSE(maps.mapped(gradient(MsoGradientColorType::msoGradientTwoColors)));
}

TEST(ColorMaps, ChangeTheColoursThatAGradientHasOnRequest) {
    MappingScope scope;
    scope.gradients = true;
    ColorMaps maps({{kRed, kBlue}}, scope);
    const auto two = maps.mapped(gradient(MsoGradientColorType::msoGradientTwoColors));
    ASSERT_TRUE(two);
    EXPECT_EQ(two->ForeColorRGB, kBlue);
    EXPECT_EQ(two->BackColorRGB, kBlue);
    const auto one = maps.mapped(gradient(MsoGradientColorType::msoGradientOneColor));
    ASSERT_TRUE(one);
    EXPECT_EQ(one->ForeColorRGB, kBlue);
    EXPECT_EQ(one->BackColorRGB, kRed) << "computed by the host";
    EXPECT_FALSE(maps.mapped(gradient(MsoGradientColorType::msoGradientPresetColors)));
    EXPECT_FALSE(maps.mapped(fillOf(MsoFillType::msoFillPatterned, kRed, kRed)));
}

TEST(ColorMaps, TakeNearColoursForTheSameWithinTheTolerance) {
    ColorMaps exact({{kRed, kBlue}}, {});
    EXPECT_FALSE(exact.mapped(fillOf(MsoFillType::msoFillSolid, kNearRed, 0)));
    MappingScope scope;
    scope.tolerance = 2;
    ColorMaps maps({{kRed, kBlue}}, scope);
    EXPECT_TRUE(maps.mapped(fillOf(MsoFillType::msoFillSolid, kNearRed, 0)));
    EXPECT_FALSE(maps.missing());
    EXPECT_FALSE(maps.mapped(fillOf(MsoFillType::msoFillSolid, kGreen, 0)));
}

TEST(ColorMaps, ApplyTheNearestOfSeveralMappingsAndTheLastOfEqualOnes) {
    MappingScope scope;
    scope.tolerance = 5;
    ColorMaps maps({{kRed, kGreen}, {kNearRed, kBlue}}, scope);
    EXPECT_EQ(maps.mapped(fillOf(MsoFillType::msoFillSolid, kNearRed, 0))->ForeColorRGB, kBlue);
    EXPECT_EQ(maps.mapped(fillOf(MsoFillType::msoFillSolid, kRed, 0))->ForeColorRGB, kGreen);
    ColorMaps twice({{kRed, kGreen}, {kRed, kBlue}}, {});
    EXPECT_EQ(twice.mapped(fillOf(MsoFillType::msoFillSolid, kRed, 0))->ForeColorRGB, kBlue);
}

}  // namespace
}  // namespace huebrush::batch
