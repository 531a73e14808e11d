// SPDX-License-Identifier: MPL-2.0

#include "fill/mFillGraficalObject.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ports/memory/TestHost.h"

namespace huebrush::fill {
namespace {

using host::MsoFillType;
using host::MsoGradientColorType;
using host::MsoTextureType;
using host::MsoTriState;
using memory::FillState;
using Calls = std::vector<std::string>;

class TwoFills : public ::testing::Test {
 protected:
    TwoFills() {
        sample = test.document->addSolid("Sample", 0x0000C0);
        tested = test.document->addSolid("Tested", 0x0000C0);
    }
    /// The result is the same for a host that is asked for each property and for one that gives
    /// all of them at once.
    bool same() {
        const bool asked = IsSameFill(sample->Fill(), tested->Fill());
        both([](FillState& state) { state.givenAtOnce = true; });
        EXPECT_EQ(IsSameFill(sample->Fill(), tested->Fill()), asked);
        both([](FillState& state) { state.givenAtOnce = false; });
        return asked;
    }
    /// Makes the same change to both.
    void both(const std::function<void(FillState&)>& change) {
        change(sample->fill);
        change(tested->fill);
    }

    memory::TestHost test;
    memory::MemoryShapePointer sample;
    memory::MemoryShapePointer tested;
};

void makeGradient(FillState& state, MsoGradientColorType colors, float degree) {
    state.Type = MsoFillType::msoFillGradient;
    state.GradientColorType = colors;
    state.GradientStyle = 1;
    state.GradientVariant = 2;
    state.GradientDegree = degree;
}

void makeUserTexture(FillState& state, const std::string& file) {
    state.Type = MsoFillType::msoFillTextured;
    state.TextureType = MsoTextureType::msoTextureUserDefined;
    state.TextureName = file;
}

class IsSameFillTest : public TwoFills {
 protected:
    /// Compares the two fills, which are equal, once for each of the reads, which then fails.
    void expectFalseAtEachFailingRead() {
        test.startLog();
        ASSERT_TRUE(IsSameFill(sample->Fill(), tested->Fill()));
        const std::size_t reads = test.calls().size();
        for (std::size_t read = 1; read <= reads; ++read) {
            test.log().failAt("", base::Error(7, "popis"), read, 1);
            EXPECT_FALSE(IsSameFill(sample->Fill(), tested->Fill())) << read;
            test.log().failNoMore();
        }
    }
    static Calls ofBoth(const std::string& member) {
        return {"read Sample.Fill." + member, "read Tested.Fill." + member};
    }
    /// Every read of a comparison of two visible fills, but for degree and texture name.
    static Calls allReads() {
        Calls calls = ofBoth("Visible");
        const auto add = [&](const Calls& more) {
            calls.insert(calls.end(), more.begin(), more.end());
        };
        add({"read Tested.Fill.Visible"});
        for (const char* member : {"ForeColor.RGB", "BackColor.RGB", "Type", "GradientStyle",
                                   "GradientColorType", "GradientVariant"}) {
            add(ofBoth(member));
        }
        add({"read Sample.Fill.GradientColorType"});
        for (const char* member :
             {"PresetGradientType", "Transparency", "TextureType", "PresetTexture"}) {
            add(ofBoth(member));
        }
        add({"read Sample.Fill.Type", "read Sample.Fill.TextureType"});
        add(ofBoth("Pattern"));
        return calls;
    }
    Calls callsOfComparison() {
        test.startLog();
        same();
        return test.calls();
    }
};

TEST_F(IsSameFillTest, EqualFillsAreTheSame) {
    EXPECT_TRUE(same());
}

TEST_F(IsSameFillTest, TwoShapesWithoutFillAreTheSameWhateverTheirColours) {
    both([](FillState& state) { state.Visible = MsoTriState::msoFalse; });
    tested->fill.ForeColorRGB = 1;
    tested->fill.Type = MsoFillType::msoFillPatterned;
    EXPECT_TRUE(same());
}

TEST_F(IsSameFillTest, TwoShapesWithoutFillAreComparedByVisibilityAlone) {
    both([](FillState& state) { state.Visible = MsoTriState::msoFalse; });
    EXPECT_EQ(callsOfComparison(), (Calls{"read Sample.Fill.Visible", "read Tested.Fill.Visible",
                                          "read Tested.Fill.Visible"}));
}

TEST_F(IsSameFillTest, AFilledAndAnUnfilledShapeDifferAtTheFirstStep) {
    sample->fill.Visible = MsoTriState::msoFalse;
    EXPECT_FALSE(same());
    EXPECT_EQ(callsOfComparison().size(), 3U);
    std::swap(sample->fill, tested->fill);
    EXPECT_FALSE(same());
}

TEST_F(IsSameFillTest, ReadsEveryPropertyOfBothInItsOrder) {
    EXPECT_EQ(callsOfComparison(), allReads());
}

TEST_F(IsSameFillTest, MakesEveryComparisonAfterTheFirstDifferenceToo) {
    tested->fill.ForeColorRGB = 1;
    EXPECT_EQ(callsOfComparison(), allReads());
    EXPECT_FALSE(same());
}

TEST_F(IsSameFillTest, TheDegreeIsReadAfterTheSamplesColourType) {
    both([](FillState& state) {
        makeGradient(state, MsoGradientColorType::msoGradientOneColor, 0.5F);
    });
    const Calls calls = callsOfComparison();
    ASSERT_EQ(calls.size(), allReads().size() + 2);
    EXPECT_EQ(calls[15], "read Sample.Fill.GradientColorType");
    EXPECT_EQ(calls[16], "read Sample.Fill.GradientDegree");
    EXPECT_EQ(calls[17], "read Tested.Fill.GradientDegree");
}

TEST_F(IsSameFillTest, TheTextureNameIsReadAfterTheSamplesTypeAndTextureType) {
    both([](FillState& state) { makeUserTexture(state, "wood.jpg"); });
    const Calls calls = callsOfComparison();
    ASSERT_EQ(calls.size(), allReads().size() + 2);
    EXPECT_EQ(calls[calls.size() - 4], "read Sample.Fill.TextureName");
    EXPECT_EQ(calls[calls.size() - 3], "read Tested.Fill.TextureName");
}

TEST_F(IsSameFillTest, AnyDifferentPropertyMakesTwoFillsDiffer) {
    const std::vector<std::pair<const char*, std::function<void(FillState&)>>> changes{
        {"ForeColorRGB", [](FillState& state) { state.ForeColorRGB += 1; }},
        {"BackColorRGB", [](FillState& state) { state.BackColorRGB -= 1; }},
        {"Type", [](FillState& state) { state.Type = MsoFillType::msoFillPatterned; }},
        {"GradientStyle", [](FillState& state) { state.GradientStyle = 6; }},
        {"GradientColorType",
         [](FillState& state) {
             state.GradientColorType = MsoGradientColorType::msoGradientTwoColors;
         }},
        {"GradientVariant", [](FillState& state) { state.GradientVariant = 3; }},
        {"PresetGradientType", [](FillState& state) { state.PresetGradientType = 4; }},
        {"Transparency", [](FillState& state) { state.Transparency = 0.00001F; }},
        {"TextureType",
         [](FillState& state) { state.TextureType = MsoTextureType::msoTexturePreset; }},
        {"PresetTexture", [](FillState& state) { state.PresetTexture = 1; }},
        {"Pattern", [](FillState& state) { state.Pattern = 1; }},
    };
    for (const auto& [name, change] : changes) {
        const FillState before = tested->fill;
        change(tested->fill);
        EXPECT_FALSE(same()) << name;
        std::swap(sample->fill, tested->fill);
        EXPECT_FALSE(same()) << name << " the other way round";
        sample->fill = before;
        tested->fill = before;
    }
}

TEST_F(IsSameFillTest, SolidFillsOfOneColourWithDifferentHiddenValuesDiffer) {
    tested->fill.GradientStyle = 2;
    EXPECT_FALSE(same());
    tested->fill.GradientStyle = sample->fill.GradientStyle;
    tested->fill.Pattern = 2;
    EXPECT_FALSE(same());
    tested->fill.Pattern = sample->fill.Pattern;
    tested->fill.PresetTexture = 2;
    EXPECT_FALSE(same());
}

TEST_F(IsSameFillTest, AOneColourAndATwoColourGradientDiffer) {
    makeGradient(sample->fill, MsoGradientColorType::msoGradientOneColor, 0.5F);
    makeGradient(tested->fill, MsoGradientColorType::msoGradientTwoColors, 0.5F);
    EXPECT_FALSE(same());
}

TEST_F(IsSameFillTest, OneColourGradientsThatDifferInTheirDegreeOnlyDiffer) {
    makeGradient(sample->fill, MsoGradientColorType::msoGradientOneColor, 0.5F);
    makeGradient(tested->fill, MsoGradientColorType::msoGradientOneColor, 0.25F);
    EXPECT_FALSE(same());
    tested->fill.GradientDegree = 0.5F;
    EXPECT_TRUE(same());
}

TEST_F(IsSameFillTest, TwoColourGradientsThatDifferInTheirHiddenDegreeAreTheSame) {
    makeGradient(sample->fill, MsoGradientColorType::msoGradientTwoColors, 0.5F);
    makeGradient(tested->fill, MsoGradientColorType::msoGradientTwoColors, 0.25F);
    EXPECT_TRUE(same());
}

TEST_F(IsSameFillTest, UserTexturesFromDifferentFilesDiffer) {
    makeUserTexture(sample->fill, "wood.jpg");
    makeUserTexture(tested->fill, "stone.jpg");
    EXPECT_FALSE(same());
    tested->fill.TextureName = "wood.jpg";
    EXPECT_TRUE(same());
}

TEST_F(IsSameFillTest, TextureNamesThatDifferInCaseOnlyDiffer) {
    makeUserTexture(sample->fill, "wood.jpg");
    makeUserTexture(tested->fill, "Wood.jpg");
    EXPECT_FALSE(same());
}

TEST_F(IsSameFillTest, UserTexturesWhoseNamesTheHostRefusesAreNeverTheSame) {
    both([](FillState& state) {
        makeUserTexture(state, "wood.jpg");
        state.UnknownTexture = true;
    });
    EXPECT_FALSE(same());
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(IsSameFillTest, TextureNamesOfOtherFillTypesAreNotCompared) {
    sample->fill.TextureName = "a";
    tested->fill.TextureName = "b";
    EXPECT_TRUE(same());
}

TEST_F(IsSameFillTest, TwoPictureFillsOfEqualPropertiesAreTheSame) {
    both([](FillState& state) { state.Type = MsoFillType::msoFillPicture; });
    EXPECT_TRUE(same());
}

TEST_F(IsSameFillTest, AMixedVisibilityIsAFillAndComparedWithTheRest) {
    both([](FillState& state) { state.Visible = MsoTriState::msoTriStateMixed; });
    EXPECT_TRUE(same());
    tested->fill.ForeColorRGB = 1;
    EXPECT_FALSE(same());
    tested->fill.ForeColorRGB = sample->fill.ForeColorRGB;
    for (const auto other : {MsoTriState::msoTrue, MsoTriState::msoFalse}) {
        tested->fill.Visible = other;
        EXPECT_FALSE(same());
        std::swap(sample->fill, tested->fill);
        EXPECT_FALSE(same()) << "the other way round";
        std::swap(sample->fill, tested->fill);
    }
}

TEST_F(IsSameFillTest, FillsOfMixedVisibilityAreReadInFull) {
    both([](FillState& state) { state.Visible = MsoTriState::msoTriStateMixed; });
    EXPECT_EQ(callsOfComparison(), allReads());
}

TEST_F(IsSameFillTest, ANameIsComparedOfAUserTextureOnly) {
    both([](FillState& state) { makeUserTexture(state, "wood.jpg"); });
    tested->fill.TextureName = "stone.jpg";
    both([](FillState& state) { state.TextureType = MsoTextureType::msoTexturePreset; });
    EXPECT_TRUE(same());
    both([](FillState& state) {
        state.TextureType = MsoTextureType::msoTextureUserDefined;
        state.Type = MsoFillType::msoFillPicture;
    });
    EXPECT_TRUE(same());
}

TEST_F(IsSameFillTest, AHostErrorAtAnyReadOfAGradientOrTextureMakesTheResultFalse) {
    const std::vector<std::function<void(FillState&)>> kinds{
        [](FillState& state) {
            makeGradient(state, MsoGradientColorType::msoGradientOneColor, 0.5F);
        },
        [](FillState& state) { makeUserTexture(state, "wood.jpg"); }};
    for (const auto& kind : kinds) {
        both(kind);
        expectFalseAtEachFailingRead();
    }
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(IsSameFillTest, AHostErrorAtAnyReadMakesTheResultFalseWithoutAReport) {
    expectFalseAtEachFailingRead();
    EXPECT_TRUE(test.runtime.boxes.empty());
    EXPECT_TRUE(same());
}

class CopyFillTest : public TwoFills {
 protected:
    Calls callsOfCopy() {
        test.startLog();
        CopyFill(sample->Fill(), tested->Fill());
        return test.calls();
    }
    /// The calls of a copy with those that make the type in their place.
    static Calls around(const Calls& type) {
        Calls calls{"read Sample.Fill.Visible",       "write Tested.Fill.Visible -1",
                    "read Sample.Fill.ForeColor.RGB", "write Tested.Fill.ForeColor.RGB 192",
                    "read Sample.Fill.BackColor.RGB", "write Tested.Fill.BackColor.RGB 16777215",
                    "read Sample.Fill.Type"};
        calls.insert(calls.end(), type.begin(), type.end());
        calls.insert(calls.end(),
                     {"read Sample.Fill.Transparency", "write Tested.Fill.Transparency 0"});
        return calls;
    }
};

TEST_F(CopyFillTest, CopiesVisibilityColoursTypeAndTransparencyInThisOrder) {
    EXPECT_EQ(callsOfCopy(), around({"call Tested.Fill.Solid"}));
}

TEST_F(CopyFillTest, CopiesAPattern) {
    sample->fill.Type = MsoFillType::msoFillPatterned;
    sample->fill.Pattern = 9;
    EXPECT_EQ(callsOfCopy(), around({"read Sample.Fill.Pattern", "call Tested.Fill.Patterned 9"}));
}

TEST_F(CopyFillTest, CopiesAGradientByItsColourType) {
    makeGradient(sample->fill, MsoGradientColorType::msoGradientOneColor, 0.5F);
    EXPECT_EQ(callsOfCopy(),
              around({"read Sample.Fill.GradientColorType", "read Sample.Fill.GradientStyle",
                      "read Sample.Fill.GradientVariant", "read Sample.Fill.GradientDegree",
                      "call Tested.Fill.OneColorGradient 1 2 0.5"}));
    sample->fill.GradientColorType = MsoGradientColorType::msoGradientTwoColors;
    EXPECT_EQ(
        callsOfCopy(),
        around({"read Sample.Fill.GradientColorType", "read Sample.Fill.GradientStyle",
                "read Sample.Fill.GradientVariant", "call Tested.Fill.TwoColorGradient 1 2"}));
    sample->fill.GradientColorType = MsoGradientColorType::msoGradientPresetColors;
    sample->fill.PresetGradientType = 7;
    EXPECT_EQ(callsOfCopy(),
              around({"read Sample.Fill.GradientColorType", "read Sample.Fill.GradientStyle",
                      "read Sample.Fill.GradientVariant", "read Sample.Fill.PresetGradientType",
                      "call Tested.Fill.PresetGradient 1 2 7"}));
    sample->fill.GradientColorType = MsoGradientColorType::msoGradientColorMixed;
    EXPECT_EQ(callsOfCopy(), around({"read Sample.Fill.GradientColorType"}));
}

TEST_F(CopyFillTest, CopiesATextureByItsKind) {
    sample->fill.Type = MsoFillType::msoFillTextured;
    sample->fill.TextureType = MsoTextureType::msoTexturePreset;
    sample->fill.PresetTexture = 5;
    EXPECT_EQ(callsOfCopy(),
              around({"read Sample.Fill.TextureType", "read Sample.Fill.PresetTexture",
                      "call Tested.Fill.PresetTextured 5"}));
    makeUserTexture(sample->fill, "wood.jpg");
    EXPECT_EQ(callsOfCopy(), around({"read Sample.Fill.TextureType", "read Sample.Fill.TextureName",
                                     "call Tested.Fill.UserTextured wood.jpg"}));
}

TEST_F(CopyFillTest, FromAPictureCopiesVisibilityColoursAndTransparencyOnly) {
    sample->fill.Type = MsoFillType::msoFillPicture;
    sample->fill.ForeColorRGB = 0x0000C0;
    tested->fill.Type = MsoFillType::msoFillPatterned;
    EXPECT_EQ(callsOfCopy(), around({}));
    EXPECT_EQ(tested->fill.Type, MsoFillType::msoFillPatterned);
}

TEST_F(CopyFillTest, FromAUserTextureOfRefusedNameKeepsTheTargetsTypeAndGoesOn) {
    makeUserTexture(sample->fill, "wood.jpg");
    sample->fill.UnknownTexture = true;
    sample->fill.Transparency = 0.5F;
    tested->fill.Type = MsoFillType::msoFillPatterned;
    EXPECT_NO_THROW(callsOfCopy());
    EXPECT_EQ(tested->fill.Type, MsoFillType::msoFillPatterned);
    EXPECT_EQ(tested->fill.Transparency, 0.5F);
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(CopyFillTest, AUserTextureThatTheHostCannotLoadIsNoErrorEither) {
    makeUserTexture(sample->fill, "gone.jpg");
    test.log().failAt("call Tested.Fill.UserTextured", base::Error(7, "popis"));
    EXPECT_NO_THROW(callsOfCopy());
    EXPECT_EQ(test.calls().back(), "write Tested.Fill.Transparency 0");
}

TEST_F(CopyFillTest, AMixedVisibilityIsCopiedAsItIs) {
    sample->fill.Visible = MsoTriState::msoTriStateMixed;
    callsOfCopy();
    EXPECT_EQ(tested->fill.Visible, MsoTriState::msoTriStateMixed);
}

TEST_F(CopyFillTest, AnyOtherHostErrorOfAnyKindOfFillPassesToTheCaller) {
    const std::vector<std::function<void(FillState&)>> kinds{
        [](FillState&) {},
        [](FillState& state) { state.Type = MsoFillType::msoFillPatterned; },
        [](FillState& state) {
            makeGradient(state, MsoGradientColorType::msoGradientOneColor, 0.5F);
        },
        [](FillState& state) {
            makeGradient(state, MsoGradientColorType::msoGradientTwoColors, 0.5F);
        },
        [](FillState& state) {
            makeGradient(state, MsoGradientColorType::msoGradientPresetColors, 0.5F);
        },
        [](FillState& state) {
            makeUserTexture(state, "wood.jpg");
            state.TextureType = MsoTextureType::msoTexturePreset;
        },
        [](FillState& state) { makeUserTexture(state, "wood.jpg"); }};
    for (const auto& kind : kinds) {
        kind(sample->fill);
        const Calls calls = callsOfCopy();
        for (std::size_t call = 1; call <= calls.size(); ++call) {
            const std::string& failing = calls[call - 1];
            const bool isOfUserTexture = failing == "read Sample.Fill.TextureName" ||
                                         failing == "call Tested.Fill.UserTextured wood.jpg";
            test.log().failAt("", base::Error(7, "popis"), call, 1);
            if (isOfUserTexture) {
                EXPECT_NO_THROW(CopyFill(sample->Fill(), tested->Fill())) << failing;
            } else {
                EXPECT_THROW(CopyFill(sample->Fill(), tested->Fill()), base::Error) << failing;
            }
            test.log().failNoMore();
        }
    }
    EXPECT_TRUE(test.runtime.boxes.empty());
}

}  // namespace
}  // namespace huebrush::fill
