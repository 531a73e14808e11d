// SPDX-License-Identifier: MPL-2.0

#include "fill/CFill.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ports/memory/TestHost.h"

namespace huebrush::fill {
namespace {

using host::MsoFillType;
using host::MsoGradientColorType;
using host::MsoTextureType;
using host::MsoTriState;
using Calls = std::vector<std::string>;

/// Puts ".Fill." entries into the form in which the expectations below are written.
Calls ofSun(const Calls& members) {
    Calls calls;
    for (const std::string& member : members) {
        const auto blank = member.find(' ');
        calls.push_back(member.substr(0, blank) + " Sun.Fill." + member.substr(blank + 1));
    }
    return calls;
}

class CFillTest : public ::testing::Test {
 protected:
    CFillTest() { shape = test.document->addSolid("Sun", 0x0000C0); }

    host::FillFormat& fill() { return shape->Fill(); }
    memory::FillState& state() { return shape->fill; }
    void makeOneColorGradient(float degree) {
        state().Type = MsoFillType::msoFillGradient;
        state().GradientColorType = MsoGradientColorType::msoGradientOneColor;
        state().GradientStyle = 1;
        state().GradientVariant = 2;
        state().GradientDegree = degree;
    }
    void makeUserTexture(const std::string& file) {
        state().Type = MsoFillType::msoFillTextured;
        state().TextureType = MsoTextureType::msoTextureUserDefined;
        state().TextureName = file;
    }
    /// The calls of an action on the shape's fill.
    template <class Action>
    Calls callsOf(const Action& action) {
        test.startLog();
        action();
        return test.calls();
    }

    memory::TestHost test;
    memory::MemoryShapePointer shape;
    CFill descriptor;
};

// Capture.

const Calls kCaptureOfASolid = ofSun({
    "read Visible",
    "read ForeColor.RGB",
    "read BackColor.RGB",
    "read Type",
    "read GradientStyle",
    "read GradientColorType",
    "read GradientVariant",
    "read PresetGradientType",
    "read Transparency",
    "read TextureType",
    "read PresetTexture",
    "read Type",
    "read TextureType",
    "read Pattern",
});

TEST_F(CFillTest, ANewDescriptorDescribesNoFillAndNoChange) {
    EXPECT_EQ(descriptor.original(), FillProperties{});
    EXPECT_EQ(descriptor.destination(), FillProperties{});
    EXPECT_EQ(descriptor.DesVisible(), MsoTriState::msoFalse);
    EXPECT_FALSE(descriptor.Change());
}

TEST_F(CFillTest, CaptureReadsEveryPropertyInItsOrderAndTypeAndTextureTypeTwice) {
    EXPECT_EQ(callsOf([&] { descriptor.SaveOriginalFormat(fill()); }), kCaptureOfASolid);
    EXPECT_EQ(callsOf([&] { descriptor.SaveNewFormat(fill()); }), kCaptureOfASolid);
}

TEST_F(CFillTest, CaptureReadsTheDegreeOfAOneColourGradientAfterTheVariant) {
    makeOneColorGradient(0.25F);
    const Calls calls = callsOf([&] { descriptor.SaveOriginalFormat(fill()); });
    ASSERT_EQ(calls.size(), kCaptureOfASolid.size() + 1);
    EXPECT_EQ(calls[6], "read Sun.Fill.GradientVariant");
    EXPECT_EQ(calls[7], "read Sun.Fill.GradientDegree");
    EXPECT_EQ(calls[8], "read Sun.Fill.PresetGradientType");
    EXPECT_EQ(descriptor.original().GradientDegree, 0.25F);
}

TEST_F(CFillTest, CaptureReadsTheNameOfAUserTextureBeforeThePattern) {
    makeUserTexture("wood.jpg");
    const Calls calls = callsOf([&] { descriptor.SaveOriginalFormat(fill()); });
    ASSERT_EQ(calls.size(), kCaptureOfASolid.size() + 1);
    EXPECT_EQ(calls[calls.size() - 2], "read Sun.Fill.TextureName");
    EXPECT_EQ(calls.back(), "read Sun.Fill.Pattern");
    EXPECT_EQ(descriptor.original().TextureName, "wood.jpg");
    EXPECT_FALSE(descriptor.original().UnknownTexture);
}

TEST_F(CFillTest, CaptureReadsNoNameOfAPresetTextureOrOfAnotherTypeWithAUserTexturesValue) {
    makeUserTexture("wood.jpg");
    state().TextureType = MsoTextureType::msoTexturePreset;
    descriptor.SaveOriginalFormat(fill());
    EXPECT_EQ(descriptor.original().TextureName, "");
    state().TextureType = MsoTextureType::msoTextureUserDefined;
    state().Type = MsoFillType::msoFillSolid;
    descriptor.SaveOriginalFormat(fill());
    EXPECT_EQ(descriptor.original().TextureName, "");
}

TEST_F(CFillTest, CaptureKeepsTheHiddenValuesOfOtherFillTypes) {
    state().GradientStyle = 4;
    state().PresetTexture = 12;
    state().Pattern = 9;
    descriptor.SaveOriginalFormat(fill());
    EXPECT_EQ(descriptor.original().GradientStyle, 4);
    EXPECT_EQ(descriptor.original().PresetTexture, 12);
    EXPECT_EQ(descriptor.original().Pattern, 9);
}

TEST_F(CFillTest, AfterSaveOriginalFormatTheDestinationEqualsTheOriginalAndNothingIsChanged) {
    makeOneColorGradient(0.25F);
    descriptor.setDesTransparency(0.5F);
    descriptor.SaveOriginalFormat(fill());
    EXPECT_EQ(descriptor.destination(), descriptor.original());
    EXPECT_EQ(descriptor.original().ForeColorRGB, 0x0000C0);
    EXPECT_FALSE(descriptor.Change());
}

TEST_F(CFillTest, SaveNewFormatFillsTheDestinationAloneAndMarksAChange) {
    descriptor.SaveNewFormat(fill());
    EXPECT_EQ(descriptor.destination().ForeColorRGB, 0x0000C0);
    EXPECT_EQ(descriptor.original(), FillProperties{});
    EXPECT_TRUE(descriptor.Change());
}

TEST_F(CFillTest, ARefusedTextureNameIsNoErrorButAFlagAndAnEmptyName) {
    makeUserTexture("wood.jpg");
    descriptor.SaveNewFormat(fill());
    state().UnknownTexture = true;
    descriptor.SaveOriginalFormat(fill());
    EXPECT_TRUE(descriptor.original().UnknownTexture);
    EXPECT_EQ(descriptor.original().TextureName, "");
    EXPECT_TRUE(descriptor.destination().UnknownTexture);
    EXPECT_TRUE(test.runtime.boxes.empty());
}

TEST_F(CFillTest, ANameThatIsGivenLeavesTheUnknownFlagAsItWas) {
    makeUserTexture("wood.jpg");
    state().UnknownTexture = true;
    descriptor.SaveOriginalFormat(fill());
    state().UnknownTexture = false;
    descriptor.SaveOriginalFormat(fill());
    EXPECT_EQ(descriptor.original().TextureName, "wood.jpg");
    EXPECT_TRUE(descriptor.original().UnknownTexture);
}

TEST_F(CFillTest, WithoutAOneColourGradientTheDegreeKeepsItsValue) {
    makeOneColorGradient(0.25F);
    descriptor.SaveOriginalFormat(fill());
    state().GradientColorType = MsoGradientColorType::msoGradientTwoColors;
    state().GradientDegree = 0.75F;
    descriptor.SaveOriginalFormat(fill());
    EXPECT_EQ(descriptor.original().GradientDegree, 0.25F);
}

TEST_F(CFillTest, APictureOrBackgroundFillIsCapturedWithItsTypeAndNothingOfItsImage) {
    for (const auto type : {MsoFillType::msoFillPicture, MsoFillType::msoFillBackground}) {
        state().Type = type;
        EXPECT_EQ(callsOf([&] { descriptor.SaveOriginalFormat(fill()); }), kCaptureOfASolid);
        EXPECT_EQ(descriptor.original().Type, type);
        EXPECT_EQ(descriptor.original().PictureName, "");
    }
}

TEST_F(CFillTest, AFailedCaptureOfTheOriginalKeepsWhatWasReadAndDoesNotRestore) {
    descriptor.setDesTransparency(0.5F);
    test.log().failAt("read Sun.Fill.GradientStyle", base::Error(7, "popis"));
    descriptor.SaveOriginalFormat(fill());
    EXPECT_EQ(descriptor.original().ForeColorRGB, 0x0000C0);
    EXPECT_EQ(descriptor.original().Type, MsoFillType::msoFillSolid);
    EXPECT_EQ(descriptor.original().PresetTexture, 0);
    EXPECT_TRUE(descriptor.Change());
    EXPECT_EQ(descriptor.destination().ForeColorRGB, 0);
    EXPECT_EQ(
        test.runtime.boxes,
        (std::vector<memory::ShownBox>{{"Chyba v modulu \"Huebrush.CFill.SaveOriginalFormat\"..."
                                        "\r\n\r\nPři pokusu získat aktuální výplň vzikla chyba..."
                                        "\r\n\r\nSystémový popis výjimky:\r\npopis",
                                        16, "Chyba č. 7"}}));
}

TEST_F(CFillTest, AFailedCaptureOfTheDestinationMarksNoChange) {
    test.log().failAt("read Sun.Fill.Pattern", base::Error(7, "popis"));
    descriptor.SaveNewFormat(fill());
    EXPECT_FALSE(descriptor.Change());
    EXPECT_EQ(descriptor.destination().ForeColorRGB, 0x0000C0);
    EXPECT_EQ(test.runtime.boxes.at(0).text,
              "Chyba v modulu \"Huebrush.CFill.SaveNewFormat\"...\r\n\r\nChyba při dočasném "
              "uchovávání nových vlastností...\r\n\r\nSystémový popis výjimky:\r\npopis");
}

TEST_F(CFillTest, EveryReadOfACaptureMayFailAndIsReportedOnce) {
    for (std::size_t call = 1; call <= kCaptureOfASolid.size(); ++call) {
        test.runtime.boxes.clear();
        test.log().failAt("", base::Error(7, "popis"), call, 1);
        descriptor.SaveNewFormat(fill());
        test.log().failNoMore();
        EXPECT_EQ(test.runtime.boxes.size(), 1U) << kCaptureOfASolid[call - 1];
    }
    EXPECT_FALSE(descriptor.Change());
}

TEST_F(CFillTest, ARefusedTextureNameTakesThePlaceOfOneThatWasCapturedBefore) {
    makeUserTexture("wood.jpg");
    descriptor.SaveOriginalFormat(fill());
    descriptor.SaveNewFormat(fill());
    state().UnknownTexture = true;
    descriptor.SaveNewFormat(fill());
    EXPECT_EQ(descriptor.destination().TextureName, "");
    EXPECT_TRUE(descriptor.destination().UnknownTexture);
    EXPECT_EQ(descriptor.original().TextureName, "wood.jpg");
    descriptor.SaveOriginalFormat(fill());
    EXPECT_EQ(descriptor.original().TextureName, "");
    EXPECT_EQ(descriptor.destination().TextureName, "");
}

/// A kind of fill whose capture and copy read more than those of a solid fill.
struct FillKind {
    const char* name;
    MsoFillType type;
    MsoGradientColorType colors;
    MsoTextureType texture;
};
constexpr FillKind kRichFills[] = {
    {"pattern", MsoFillType::msoFillPatterned, MsoGradientColorType::msoGradientColorMixed,
     MsoTextureType::msoTextureTypeMixed},
    {"one colour", MsoFillType::msoFillGradient, MsoGradientColorType::msoGradientOneColor,
     MsoTextureType::msoTextureTypeMixed},
    {"two colours", MsoFillType::msoFillGradient, MsoGradientColorType::msoGradientTwoColors,
     MsoTextureType::msoTextureTypeMixed},
    {"preset colours", MsoFillType::msoFillGradient, MsoGradientColorType::msoGradientPresetColors,
     MsoTextureType::msoTextureTypeMixed},
    {"preset texture", MsoFillType::msoFillTextured, MsoGradientColorType::msoGradientColorMixed,
     MsoTextureType::msoTexturePreset},
    {"user texture", MsoFillType::msoFillTextured, MsoGradientColorType::msoGradientColorMixed,
     MsoTextureType::msoTextureUserDefined},
};

TEST_F(CFillTest, EveryReadOfEveryKindOfFillMayFailAndOnlyTheTexturesNameIsNoError) {
    for (const FillKind& kind : kRichFills) {
        state().Type = kind.type;
        state().GradientColorType = kind.colors;
        state().TextureType = kind.texture;
        const Calls calls = callsOf([&] { descriptor.SaveNewFormat(fill()); });
        for (std::size_t call = 1; call <= calls.size(); ++call) {
            SCOPED_TRACE(kind.name + (": " + calls[call - 1]));
            for (const bool isNew : {false, true}) {
                CFill fresh;
                test.runtime.boxes.clear();
                test.log().failAt("", base::Error(7, "popis"), call, 1);
                isNew ? fresh.SaveNewFormat(fill()) : fresh.SaveOriginalFormat(fill());
                test.log().failNoMore();
                const bool isName = calls[call - 1] == "read Sun.Fill.TextureName";
                EXPECT_EQ(test.runtime.boxes.size(), isName ? 0U : 1U);
                EXPECT_EQ(fresh.Change(), isNew && isName);
                const FillProperties& captured = isNew ? fresh.destination() : fresh.original();
                EXPECT_EQ(captured.UnknownTexture, isName);
            }
        }
    }
}

// The two copies.

TEST_F(CFillTest, RestoreThrowsTheDestinationAway) {
    descriptor.SaveOriginalFormat(fill());
    descriptor.setDesVisible(MsoTriState::msoFalse);
    descriptor.setDesTransparency(0.5F);
    descriptor.Restore();
    EXPECT_EQ(descriptor.destination(), descriptor.original());
    EXPECT_FALSE(descriptor.Change());
}

TEST_F(CFillTest, RestoreAfterApplyChangeReturnsToTheAppliedFill) {
    descriptor.SaveOriginalFormat(fill());
    state().ForeColorRGB = 7;
    descriptor.SaveNewFormat(fill());
    descriptor.ApplyChange();
    EXPECT_FALSE(descriptor.Change());
    descriptor.setDesVisible(MsoTriState::msoFalse);
    descriptor.Restore();
    EXPECT_EQ(descriptor.destination().ForeColorRGB, 7);
    EXPECT_EQ(descriptor.DesVisible(), MsoTriState::msoTrue);
}

TEST_F(CFillTest, ApplyChangeLeavesTheOriginalsUnknownFlagAndRestoreTakesItBack) {
    makeUserTexture("wood.jpg");
    state().UnknownTexture = true;
    descriptor.SaveNewFormat(fill());
    descriptor.ApplyChange();
    EXPECT_FALSE(descriptor.original().UnknownTexture);
    EXPECT_TRUE(descriptor.destination().UnknownTexture);
    descriptor.Restore();
    EXPECT_FALSE(descriptor.destination().UnknownTexture);
}

TEST_F(CFillTest, NeitherDirectionCopiesThePictureNameOrThePreview) {
    FillProperties given;
    given.PictureName = "photo.png";
    descriptor.setDestination(given);
    descriptor.FillPreview = base::Picture(base::PictureFormat::bitmap, {1});
    descriptor.ApplyChange();
    EXPECT_EQ(descriptor.original().PictureName, "");
    descriptor.Restore();
    EXPECT_EQ(descriptor.destination().PictureName, "photo.png");
    EXPECT_FALSE(descriptor.FillPreview.empty());
}

TEST_F(CFillTest, AStaleDegreeAndTextureNameStayWhereTheOtherCopyUsesNone) {
    FillProperties given;
    given.GradientDegree = 0.75F;
    given.TextureName = "old.jpg";
    descriptor.setDestination(given);
    descriptor.SaveOriginalFormat(fill());
    EXPECT_EQ(descriptor.destination().GradientDegree, 0.75F);
    EXPECT_EQ(descriptor.destination().TextureName, "old.jpg");
    given.GradientColorType = MsoGradientColorType::msoGradientTwoColors;
    given.Type = MsoFillType::msoFillTextured;
    given.TextureType = MsoTextureType::msoTexturePreset;
    descriptor.setDestination(given);
    descriptor.ApplyChange();
    EXPECT_EQ(descriptor.original().GradientDegree, 0);
    EXPECT_EQ(descriptor.original().TextureName, "");
}

TEST_F(CFillTest, DegreeAndTextureNameAreCopiedWhereTheFillUsesThem) {
    FillProperties given;
    given.GradientColorType = MsoGradientColorType::msoGradientOneColor;
    given.GradientDegree = 0.75F;
    given.Type = MsoFillType::msoFillTextured;
    given.TextureType = MsoTextureType::msoTextureUserDefined;
    given.TextureName = "wood.jpg";
    descriptor.setDestination(given);
    descriptor.ApplyChange();
    EXPECT_EQ(descriptor.original(), given);
}

TEST_F(CFillTest, SettingTheTransparencyToItsOwnValueIsAChangeAllTheSame) {
    descriptor.SaveOriginalFormat(fill());
    descriptor.setDesTransparency(descriptor.DesTransparency());
    EXPECT_TRUE(descriptor.Change());
}

TEST_F(CFillTest, SettingTheVisibilityToItsOwnValueIsAChangeAllTheSame) {
    descriptor.SaveOriginalFormat(fill());
    descriptor.setDesVisible(descriptor.DesVisible());
    EXPECT_TRUE(descriptor.Change());
}

// SetFormat.

class SetFormatTest : public CFillTest {
 protected:
    Calls callsWith(const FillProperties& given) {
        descriptor.setDestination(given);
        return callsOf([&] { descriptor.SetFormat(fill()); });
    }
    static FillProperties filled(MsoFillType type) {
        FillProperties given;
        given.Visible = MsoTriState::msoTrue;
        given.ForeColorRGB = 1;
        given.BackColorRGB = 2;
        given.Type = type;
        given.Transparency = 0.5F;
        given.GradientStyle = 3;
        given.GradientVariant = 4;
        given.GradientDegree = 0.25F;
        given.PresetGradientType = 5;
        given.PresetTexture = 6;
        given.TextureName = "wood.jpg";
        given.Pattern = 7;
        return given;
    }
    /// The calls around the one that makes the type.
    static Calls around(const Calls& type) {
        Calls calls = {"write ForeColor.RGB 1", "write BackColor.RGB 2"};
        calls.insert(calls.end(), type.begin(), type.end());
        calls.insert(calls.end(), {"write Transparency 0.5", "write Visible -1"});
        return ofSun(calls);
    }
};

TEST_F(SetFormatTest, WritesColoursThenTypeThenTransparencyThenVisibility) {
    EXPECT_EQ(callsWith(filled(MsoFillType::msoFillSolid)), around({"call Solid"}));
}

TEST_F(SetFormatTest, BuildsAPatternFromItsNumber) {
    EXPECT_EQ(callsWith(filled(MsoFillType::msoFillPatterned)), around({"call Patterned 7"}));
}

TEST_F(SetFormatTest, BuildsAGradientByItsColourType) {
    FillProperties given = filled(MsoFillType::msoFillGradient);
    given.GradientColorType = MsoGradientColorType::msoGradientOneColor;
    EXPECT_EQ(callsWith(given), around({"call OneColorGradient 3 4 0.25"}));
    given.GradientColorType = MsoGradientColorType::msoGradientTwoColors;
    EXPECT_EQ(callsWith(given), around({"call TwoColorGradient 3 4"}));
    given.GradientColorType = MsoGradientColorType::msoGradientPresetColors;
    EXPECT_EQ(callsWith(given), around({"call PresetGradient 3 4 5"}));
    given.GradientColorType = MsoGradientColorType::msoGradientColorMixed;
    EXPECT_EQ(callsWith(given), around({}));
}

TEST_F(SetFormatTest, BuildsATextureByItsKind) {
    FillProperties given = filled(MsoFillType::msoFillTextured);
    given.TextureType = MsoTextureType::msoTexturePreset;
    EXPECT_EQ(callsWith(given), around({"call PresetTextured 6"}));
    given.TextureType = MsoTextureType::msoTextureUserDefined;
    EXPECT_EQ(callsWith(given), around({"call UserTextured wood.jpg"}));
    given.TextureType = MsoTextureType::msoTextureTypeMixed;
    EXPECT_EQ(callsWith(given), around({}));
}

TEST_F(SetFormatTest, AUserTextureOfUnknownNameKeepsTheShapesOwnType) {
    FillProperties given = filled(MsoFillType::msoFillTextured);
    given.TextureType = MsoTextureType::msoTextureUserDefined;
    given.UnknownTexture = true;
    state().Type = MsoFillType::msoFillPatterned;
    EXPECT_EQ(callsWith(given), around({}));
    EXPECT_EQ(state().Type, MsoFillType::msoFillPatterned);
    EXPECT_EQ(state().ForeColorRGB, 1);
    EXPECT_EQ(state().Transparency, 0.5F);
}

TEST_F(SetFormatTest, APictureOrBackgroundChangesColoursTransparencyAndVisibilityOnly) {
    EXPECT_EQ(callsWith(filled(MsoFillType::msoFillPicture)), around({}));
    EXPECT_EQ(callsWith(filled(MsoFillType::msoFillBackground)), around({}));
    EXPECT_EQ(callsWith(filled(MsoFillType::msoFillMixed)), around({}));
    EXPECT_EQ(state().Type, MsoFillType::msoFillSolid);
}

TEST_F(SetFormatTest, ADestinationWithoutFillWritesEverythingAndHidesTheFillLast) {
    FillProperties given = filled(MsoFillType::msoFillSolid);
    given.Visible = MsoTriState::msoFalse;
    EXPECT_EQ(callsWith(given), ofSun({"write ForeColor.RGB 1", "write BackColor.RGB 2",
                                       "call Solid", "write Transparency 0.5", "write Visible 0"}));
    EXPECT_EQ(state().Visible, MsoTriState::msoFalse);
    EXPECT_EQ(state().ForeColorRGB, 1);
}

TEST_F(SetFormatTest, ChangesNeitherCopyOfTheDescriptor) {
    descriptor.SaveOriginalFormat(fill());
    const FillProperties original = descriptor.original();
    const FillProperties given = filled(MsoFillType::msoFillSolid);
    callsWith(given);
    EXPECT_EQ(descriptor.original(), original);
    EXPECT_EQ(descriptor.destination(), given);
    EXPECT_TRUE(descriptor.Change());
}

TEST_F(SetFormatTest, AFailureLeavesTheStepsDoneSoFarAndIsReported) {
    FillProperties given = filled(MsoFillType::msoFillPatterned);
    test.log().failAt("call Sun.Fill.Patterned", base::Error(7, "popis"));
    callsWith(given);
    EXPECT_EQ(state().ForeColorRGB, 1);
    EXPECT_EQ(state().Type, MsoFillType::msoFillSolid);
    EXPECT_EQ(state().Transparency, 0);
    EXPECT_EQ(test.runtime.boxes.at(0).text,
              "Chyba v modulu \"Huebrush.CFill.SetFormat\"...\r\n\r\nChyba při aplikaci nové "
              "výplně...\r\n\r\nSystémový popis výjimky:\r\npopis");
}

TEST_F(SetFormatTest, WhatIsCapturedFromOneShapeMakesAnotherTheSame) {
    makeOneColorGradient(0.25F);
    state().BackColorRGB = 0x123456;
    descriptor.SaveOriginalFormat(fill());
    const auto other = test.document->addSolid("Other", 9);
    descriptor.SetFormat(other->Fill());
    EXPECT_EQ(other->fill, state());
}

// The table of properties.

TEST(FillPropertiesTest, StandInTheOrderOfTheRecordColumns) {
    Calls names;
    forEveryProperty([&](const auto& property) { names.emplace_back(property.name); });
    EXPECT_EQ(names,
              (Calls{"Visible", "ForeColorRGB", "BackColorRGB", "Transparency", "GradientStyle",
                     "GradientColorType", "GradientVariant", "GradientDegree", "PresetGradientType",
                     "Type", "TextureType", "PresetTexture", "TextureName", "UnknownTexture",
                     "Pattern", "PictureName"}));
}

}  // namespace
}  // namespace huebrush::fill
