// SPDX-License-Identifier: MPL-2.0

#include "batch/StoredFills.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "ports/memory/MemoryHost.h"

namespace huebrush::batch {
namespace {

using fill::FillProperties;
using host::MsoFillType;
using host::MsoGradientColorType;
using host::MsoTriState;

constexpr std::int32_t kRed = 0x0000C0;
constexpr std::int32_t kBlue = 0xC07000;
constexpr std::int32_t kGreen = 0x00A014;

FillProperties solid(std::int32_t color) {
    FillProperties fill;
    fill.Visible = MsoTriState::msoTrue;
    fill.Type = MsoFillType::msoFillSolid;
    fill.ForeColorRGB = color;
    return fill;
}

FillProperties oneColorGradient() {
    FillProperties fill = solid(kRed);
    fill.Type = MsoFillType::msoFillGradient;
    fill.GradientStyle = fill.GradientVariant = 1;
    fill.GradientColorType = MsoGradientColorType::msoGradientOneColor;
    fill.GradientDegree = 0.25F;
    return fill;
}

class StoredFillsOf : public ::testing::Test {
 protected:
    StoredFillsOf() {
        worked = host.open("Worked");
        stored = host.open("Stored");
    }

    StoredResult compare(GivenFills given) {
        return StoredFills(*worked, std::move(given)).compare(*stored);
    }

    memory::MemoryApplication host;
    std::shared_ptr<memory::MemoryDocument> worked;
    std::shared_ptr<memory::MemoryDocument> stored;
};

TEST_F(StoredFillsOf, ConfirmsEachShapeThatHasItsFill) {
    worked->addSolid("Roof", kRed);
    worked->addSolid("Grass", kRed);
    stored->addSolid("Roof", kBlue);
    stored->addSolid("Grass", kRed);
    const StoredResult result = compare({{"Roof", {1, solid(kBlue)}}});
    EXPECT_EQ(result.confirmed, 1U);
    EXPECT_TRUE(result.isAsAsked());
}

TEST_F(StoredFillsOf, NamesTheRowTheCountAndBothFillsOfADifference) {
    for (const char* name : {"A", "B", "C"}) {
        worked->addSolid(name, kRed);
        stored->addSolid(name, name == std::string("C") ? kBlue : kRed);
    }
    const GivenFill given{4, solid(kBlue)};
    const StoredResult result = compare({{"A", given}, {"B", given}, {"C", given}});
    EXPECT_EQ(result.confirmed, 1U);
    EXPECT_FALSE(result.isAsAsked());
    ASSERT_EQ(result.differences.size(), 1U);
    EXPECT_EQ(result.differences[0].row, 4);
    EXPECT_EQ(result.differences[0].shapes, 2U);
    EXPECT_EQ(result.differences[0].asked.ForeColorRGB, kBlue);
    EXPECT_EQ(result.differences[0].stored.ForeColorRGB, kRed);
    EXPECT_EQ(result.differences[0].reason, "");
}

TEST_F(StoredFillsOf, FindsShapesByTheirOrderWhereNamesAreLost) {
    worked->addSolid("A", kRed);
    worked->addSolid("B", kRed);
    stored->addSolid("Shape1", kBlue);
    stored->addSolid("Shape2", kRed);
    EXPECT_EQ(compare({{"A", {1, solid(kBlue)}}}).confirmed, 1U);
    EXPECT_EQ(compare({{"B", {1, solid(kBlue)}}}).confirmed, 0U);
}

TEST_F(StoredFillsOf, FindsShapesByTheirNamesWhereTheOrderHasChanged) {
    worked->addSolid("A", kRed);
    worked->addSolid("B", kRed);
    stored->addSolid("B", kRed);
    stored->addSolid("A", kBlue);
    EXPECT_TRUE(compare({{"A", {1, solid(kBlue)}}}).isAsAsked());
}

TEST_F(StoredFillsOf, FindsShapesWithoutNamesBetweenThoseWithNames) {
    for (const char* name : {"A", "first", "B"}) worked->addSolid(name, kRed);
    stored->addSolid("A", kRed);
    stored->addSolid("Shape1", kBlue);
    stored->addSolid("B", kRed);
    stored->addSolid("That was a text frame", kRed);
    EXPECT_TRUE(compare({{"first", {1, solid(kBlue)}}}).isAsAsked());
}

TEST_F(StoredFillsOf, TellsShapesByTheirFillsWhereNamesAndOrderAreLost) {
    for (const char* name : {"A", "first", "second", "third", "B"}) worked->addSolid(name, kRed);
    const GivenFills given{
        {"first", {1, solid(kBlue)}}, {"second", {0, solid(kGreen)}}, {"third", {0, solid(kBlue)}}};
    stored->addSolid("Shape1", kBlue);
    stored->addSolid("B", kRed);
    stored->addSolid("Shape3", kGreen);
    stored->addSolid("A", kRed);
    const auto last = stored->addSolid("Shape2", kBlue);
    EXPECT_TRUE(compare(given).isAsAsked());
    EXPECT_EQ(compare(given).confirmed, 1U);
    static_cast<FillProperties&>(last->fill) = solid(kRed);
    EXPECT_EQ(compare(given).confirmed, 0U) << "the blue one is the third";
}

TEST_F(StoredFillsOf, FindsMembersOfGroups) {
    worked->addGroup("House", {worked->addSolid("Door", kRed), worked->addSolid("Wall", kRed)});
    stored->addGroup("House", {stored->addSolid("1", kRed), stored->addSolid("2", kBlue)});
    EXPECT_TRUE(compare({{"Wall", {1, solid(kBlue)}}}).isAsAsked());
    EXPECT_EQ(compare({{"Door", {1, solid(kBlue)}}}).differences.size(), 1U);
}

TEST_F(StoredFillsOf, CountsShapesThatAreGone) {
    worked->addSolid("A", kRed);
    worked->addGroup("House", {worked->addSolid("Door", kRed), worked->addSolid("Wall", kRed)});
    stored->addSolid("Another", kBlue);
    const GivenFill given{1, solid(kBlue)};
    const StoredResult result = compare({{"A", given}, {"Wall", given}});
    EXPECT_EQ(result.notFound, 2U);
    EXPECT_EQ(result.confirmed, 0U);
    EXPECT_FALSE(result.isAsAsked());
}

TEST(HasArrived, LooksOnlyAtWhatTheAskedFillUses) {
    FillProperties stored = solid(kBlue);
    stored.BackColorRGB = kRed;
    stored.GradientStyle = 3;
    EXPECT_TRUE(hasArrived(solid(kBlue), stored));
    EXPECT_FALSE(hasArrived(solid(kRed), stored));
    stored.Transparency = 0.5F;
    EXPECT_FALSE(hasArrived(solid(kBlue), stored));

    FillProperties hidden = solid(kRed);
    hidden.Visible = MsoTriState::msoFalse;
    EXPECT_FALSE(hasArrived(hidden, stored));
    EXPECT_FALSE(hasArrived(stored, hidden));  // NOLINT: the other way round
    EXPECT_TRUE(hasArrived(hidden, FillProperties()));
}

TEST(HasArrived, ComparesEachKindOfFill) {
    const FillProperties one = oneColorGradient();
    FillProperties other = one;
    EXPECT_TRUE(hasArrived(one, other));
    other.GradientDegree = 0.5F;
    EXPECT_FALSE(hasArrived(one, other));
    other = one;
    other.GradientVariant = 2;
    EXPECT_FALSE(hasArrived(one, other));

    FillProperties two = one;
    two.GradientColorType = MsoGradientColorType::msoGradientTwoColors;
    other = two;
    other.GradientDegree = 0.5F;
    EXPECT_TRUE(hasArrived(two, other));
    other.BackColorRGB = 1;
    EXPECT_FALSE(hasArrived(two, other));

    FillProperties preset = one;
    preset.GradientColorType = MsoGradientColorType::msoGradientPresetColors;
    preset.PresetGradientType = 7;
    other = preset;
    other.ForeColorRGB = 0;
    EXPECT_TRUE(hasArrived(preset, other));
    other.PresetGradientType = 8;
    EXPECT_FALSE(hasArrived(preset, other));

    FillProperties pattern = solid(kRed);
    pattern.Type = MsoFillType::msoFillPatterned;
    pattern.Pattern = 14;
    other = pattern;
    other.Pattern = 15;
    EXPECT_FALSE(hasArrived(pattern, other));

    FillProperties texture = solid(kRed);
    texture.Type = MsoFillType::msoFillTextured;
    texture.TextureType = host::MsoTextureType::msoTextureUserDefined;
    texture.TextureName = "/a.png";
    other = texture;
    EXPECT_TRUE(hasArrived(texture, other));
    other.TextureName = "/b.png";
    EXPECT_FALSE(hasArrived(texture, other));
}

TEST_F(StoredFillsOf, SaysWhatAFormatIsKnownToDo) {
    worked->addSolid("A", kRed);
    const auto shape = stored->addSolid("A", kRed);
    static_cast<FillProperties&>(shape->fill) = oneColorGradient();
    shape->fill.GradientColorType = MsoGradientColorType::msoGradientTwoColors;
    EXPECT_EQ(compare({{"A", {1, oneColorGradient()}}}).differences.at(0).reason,
              "stores a one-colour gradient as a two-colour one");

    static_cast<FillProperties&>(shape->fill) = solid(kBlue);
    shape->fill.Transparency = 0.38F;
    FillProperties asked = solid(kBlue);
    asked.Transparency = 0.375F;
    EXPECT_EQ(compare({{"A", {1, asked}}}).differences.at(0).reason,
              "rounds transparency to a whole percentage");
    asked.Transparency = 0.5F;
    EXPECT_EQ(compare({{"A", {1, asked}}}).differences.at(0).reason, "changes this transparency");
}

}  // namespace
}  // namespace huebrush::batch
