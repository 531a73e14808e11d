// SPDX-License-Identifier: MPL-2.0

#include "host/HostContract.h"

#include <set>

#include "base/Color.h"
#include "base/Error.h"

namespace huebrush::host {

namespace {

constexpr std::int32_t kRed = base::rgb(200, 0, 0);
constexpr std::int32_t kGreen = base::rgb(0, 160, 20);
constexpr std::int32_t kBlue = base::rgb(10, 20, 250);

/// The writes of the logic, in its order.
void paint(FillFormat& fill, const std::function<void()>& build, float transparency = 0) {
    fill.setForeColorRGB(kBlue);
    fill.setBackColorRGB(kGreen);
    build();
    fill.setTransparency(transparency);
    fill.setVisible(MsoTriState::msoTrue);
}

std::vector<std::string> namesOf(const std::vector<ShapePointer>& shapes) {
    std::vector<std::string> names;
    names.reserve(shapes.size());
    for (const ShapePointer& shape : shapes) names.push_back(shape->Name());
    return names;
}

/// What a host reports all at once is what it answers one by one.
void expectKnownAsRead(FillFormat& fill) {
    const FillProperties* const atOnce = fill.known();
    if (atOnce == nullptr) return;
    const FillProperties known = *atOnce;
    EXPECT_EQ(known.Visible, fill.Visible());
    EXPECT_EQ(known.ForeColorRGB, fill.ForeColorRGB());
    EXPECT_EQ(known.BackColorRGB, fill.BackColorRGB());
    EXPECT_EQ(known.Transparency, fill.Transparency());
    EXPECT_EQ(known.Type, fill.Type());
    EXPECT_EQ(known.GradientStyle, fill.GradientStyle());
    EXPECT_EQ(known.GradientColorType, fill.GradientColorType());
    EXPECT_EQ(known.GradientVariant, fill.GradientVariant());
    EXPECT_EQ(known.GradientDegree, fill.GradientDegree());
    EXPECT_EQ(known.PresetGradientType, fill.PresetGradientType());
    EXPECT_EQ(known.TextureType, fill.TextureType());
    EXPECT_EQ(known.PresetTexture, fill.PresetTexture());
    EXPECT_EQ(known.Pattern, fill.Pattern());
    if (known.UnknownTexture) return;
    EXPECT_EQ(known.TextureName, fill.TextureName());
}

std::int32_t colorOf(const ShapePointer& shape) {
    return shape->Fill().ForeColorRGB();
}

}  // namespace

std::vector<ShapePointer> HostContract::all() {
    std::vector<ShapePointer> result;
    const auto enumerator = shapes()->enumerate();
    while (const ShapePointer shape = enumerator->next()) result.push_back(shape);
    return result;
}

ShapePointer HostContract::first() {
    return shapes()->enumerate()->next();
}

// Documents

TEST_P(HostContract, AnEmptyDocumentHasNoShapesAndNoSelection) {
    EXPECT_EQ(shapes()->Count(), 0);
    EXPECT_EQ(shapes()->enumerate()->next(), nullptr);
    EXPECT_EQ(host().document()->Selection()->ShapeRange()->Count(), 0);
}

TEST_P(HostContract, DocumentsKnowThemselves) {
    const auto document = host().document();
    EXPECT_TRUE(document->isSame(*host().document()));
    EXPECT_TRUE(document->isSame(*document->Selection()->Document()));
    EXPECT_FALSE(document->isSame(*host().otherDocument()));
}

// Walking

TEST_P(HostContract, ShapesComeInTheOrderOfTheDocument) {
    for (int i = 0; i < 40; ++i) host().addRectangle("", base::rgb(static_cast<unsigned>(i), 0, 0));
    const std::vector<ShapePointer> shapes = all();
    ASSERT_EQ(shapes.size(), 40U);
    for (int i = 0; i < 40; ++i) {
        EXPECT_EQ(colorOf(shapes[static_cast<std::size_t>(i)]),
                  base::rgb(static_cast<unsigned>(i), 0, 0));
    }
    EXPECT_EQ(this->shapes()->Count(), 40);
}

TEST_P(HostContract, AGroupIsOneShapeAndHasItsMembersInOrder) {
    host().addRectangle("alone", kBlue);
    const auto a = host().addRectangle("a", kRed);
    const auto b = host().addRectangle("b", kGreen);
    host().group("group", {a, b});
    const std::vector<ShapePointer> shapes = all();
    ASSERT_EQ(shapes.size(), 2U);
    EXPECT_EQ(this->shapes()->Count(), 2);
    EXPECT_NE(shapes[0]->Type(), MsoShapeType::msoGroup);
    ASSERT_EQ(shapes[1]->Type(), MsoShapeType::msoGroup);
    const auto members = shapes[1]->GroupItems();
    ASSERT_EQ(members->Count(), 2);
    EXPECT_EQ(colorOf(members->Item(1)), kRed);
    EXPECT_EQ(colorOf(members->Item(2)), kGreen);
}

TEST_P(HostContract, GroupsNest) {
    const auto inner =
        host().group("inner", {host().addRectangle("a", kRed), host().addRectangle("b", kRed)});
    host().group("outer", {inner, host().addRectangle("c", kBlue)});
    const auto outer = first();
    ASSERT_EQ(outer->Type(), MsoShapeType::msoGroup);
    const auto members = outer->GroupItems();
    ASSERT_EQ(members->Count(), 2);
    ASSERT_EQ(members->Item(1)->Type(), MsoShapeType::msoGroup);
    EXPECT_EQ(members->Item(1)->GroupItems()->Count(), 2);
    EXPECT_EQ(colorOf(members->Item(2)), kBlue);
}

TEST_P(HostContract, AnIndexOutsideAListIsAnError) {
    host().group("g", {host().addRectangle("a", kRed), host().addRectangle("b", kRed)});
    const auto members = first()->GroupItems();
    EXPECT_THROW(members->Item(0), base::Error);
    EXPECT_THROW(members->Item(3), base::Error);
}

// Names

TEST_P(HostContract, NamesFindTheirShapesInTheOrderGiven) {
    host().addRectangle("one", kRed);
    host().addRectangle("two", kGreen);
    host().addRectangle("three", kBlue);
    std::vector<std::string> names = namesOf(all());
    std::swap(names[0], names[2]);
    const auto range = shapes()->Range(names);
    ASSERT_EQ(range->Count(), 3);
    EXPECT_EQ(colorOf(range->Item(1)), kBlue);
    EXPECT_EQ(colorOf(range->Item(2)), kGreen);
    EXPECT_EQ(colorOf(range->Item(3)), kRed);
}

TEST_P(HostContract, ARangeFindsMembersOfNestedGroups) {
    const auto inner =
        host().group("inner", {host().addRectangle("a", kRed), host().addRectangle("b", kGreen)});
    host().group("outer", {inner, host().addRectangle("c", kBlue)});
    const auto outer = first()->GroupItems();
    const auto deep = outer->Item(1)->GroupItems()->Item(2);
    const auto range = shapes()->Range({deep->Name(), outer->Item(2)->Name()});
    ASSERT_EQ(range->Count(), 2);
    EXPECT_EQ(colorOf(range->Item(1)), kGreen);
    EXPECT_EQ(colorOf(range->Item(2)), kBlue);
}

TEST_P(HostContract, ANameThatNoShapeHasIsAnError) {
    host().addRectangle("one", kRed);
    EXPECT_THROW(shapes()->Range({"no such shape"}), base::Error);
    EXPECT_THROW(shapes()->Range({first()->Name(), "no such shape"}), base::Error);
}

TEST_P(HostContract, NamesAreUnique) {
    const auto inner =
        host().group("A", {host().addRectangle("A", kRed), host().addRectangle("", kRed)});
    host().group("", {inner, host().addRectangle("A", kRed)});
    host().addRectangle("A", kRed);
    host().addRectangle("", kRed);
    std::vector<std::string> names = namesOf(all());
    const auto outer = first()->GroupItems();
    names.push_back(outer->Item(1)->Name());
    names.push_back(outer->Item(2)->Name());
    names.push_back(outer->Item(1)->GroupItems()->Item(1)->Name());
    names.push_back(outer->Item(1)->GroupItems()->Item(2)->Name());
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), 7U);
    EXPECT_EQ(shapes()->Range(names)->Count(), 7);
}

TEST_P(HostContract, NamesOutliveOtherShapesComingAndGoing) {
    const auto before = host().addRectangle("before", kRed);
    host().addRectangle("kept", kGreen);
    const ShapePointer kept = all()[1];
    const std::string name = kept->Name();
    host().remove(before);
    host().addRectangle("after", kBlue);
    EXPECT_EQ(kept->Name(), name);
    EXPECT_EQ(colorOf(shapes()->Range({name})->Item(1)), kGreen);
}

// Fills: what is written is read, on every kind

namespace {

struct FillCase {
    const char* what;
    std::function<void(FillFormat&)> build;
    std::function<void(FillFormat&)> check;
};

std::vector<FillCase> fillCases() {
    std::vector<FillCase> cases;
    cases.push_back({"solid", [](FillFormat& fill) { fill.Solid(); },
                     [](FillFormat& fill) {
                         EXPECT_EQ(fill.Type(), MsoFillType::msoFillSolid);
                         EXPECT_EQ(fill.ForeColorRGB(), kBlue);
                     }});
    for (const std::int32_t pattern : {1, 7, 12, 33, 48}) {
        cases.push_back({"pattern", [=](FillFormat& fill) { fill.Patterned(pattern); },
                         [=](FillFormat& fill) {
                             EXPECT_EQ(fill.Type(), MsoFillType::msoFillPatterned);
                             EXPECT_EQ(fill.Pattern(), pattern);
                             EXPECT_EQ(fill.ForeColorRGB(), kBlue);
                             EXPECT_EQ(fill.BackColorRGB(), kGreen);
                         }});
    }
    for (std::int32_t style = 1; style <= 7; ++style) {
        for (std::int32_t variant = 1; variant <= 4; ++variant) {
            const auto isGradient = [=](FillFormat& fill, MsoGradientColorType colors) {
                EXPECT_EQ(fill.Type(), MsoFillType::msoFillGradient);
                EXPECT_EQ(fill.GradientColorType(), colors);
                EXPECT_EQ(fill.GradientStyle(), style);
                EXPECT_EQ(fill.GradientVariant(), variant);
            };
            cases.push_back({"two-colour gradient",
                             [=](FillFormat& fill) { fill.TwoColorGradient(style, variant); },
                             [=](FillFormat& fill) {
                                 isGradient(fill, MsoGradientColorType::msoGradientTwoColors);
                                 EXPECT_EQ(fill.ForeColorRGB(), kBlue);
                                 EXPECT_EQ(fill.BackColorRGB(), kGreen);
                             }});
            cases.push_back(
                {"one-colour gradient",
                 [=](FillFormat& fill) { fill.OneColorGradient(style, variant, 0.23F); },
                 [=](FillFormat& fill) {
                     isGradient(fill, MsoGradientColorType::msoGradientOneColor);
                     EXPECT_EQ(fill.GradientDegree(), 0.23F);
                     EXPECT_EQ(fill.ForeColorRGB(), kBlue);
                 }});
            cases.push_back(
                {"preset gradient",
                 [=](FillFormat& fill) { fill.PresetGradient(style, variant, style * 3); },
                 [=](FillFormat& fill) {
                     isGradient(fill, MsoGradientColorType::msoGradientPresetColors);
                     EXPECT_EQ(fill.PresetGradientType(), style * 3);
                 }});
        }
    }
    for (const std::int32_t texture : {1, 11, 24}) {
        cases.push_back({"preset texture", [=](FillFormat& fill) { fill.PresetTextured(texture); },
                         [=](FillFormat& fill) {
                             EXPECT_EQ(fill.Type(), MsoFillType::msoFillTextured);
                             EXPECT_EQ(fill.TextureType(), MsoTextureType::msoTexturePreset);
                             EXPECT_EQ(fill.PresetTexture(), texture);
                         }});
    }
    return cases;
}

}  // namespace

TEST_P(HostContract, EveryFillReadsBackAsItWasWritten) {
    host().addRectangle("shape", kRed);
    const ShapePointer shape = first();
    for (const FillCase& one : fillCases()) {
        SCOPED_TRACE(one.what);
        for (const float transparency : {0.0F, 0.5F, 1.0F / 3}) {
            paint(
                shape->Fill(), [&] { one.build(shape->Fill()); }, transparency);
            one.check(shape->Fill());
            one.check(first()->Fill());
            EXPECT_EQ(first()->Fill().Transparency(), transparency);
            EXPECT_EQ(first()->Fill().Visible(), MsoTriState::msoTrue);
            expectKnownAsRead(first()->Fill());
        }
    }
}

TEST_P(HostContract, AUserTextureKeepsTheNameOfItsFile) {
    host().addRectangle("shape", kRed);
    const ShapePointer shape = first();
    paint(shape->Fill(), [&] { shape->Fill().UserTextured(host().textureFile()); });
    EXPECT_EQ(first()->Fill().Type(), MsoFillType::msoFillTextured);
    EXPECT_EQ(first()->Fill().TextureType(), MsoTextureType::msoTextureUserDefined);
    EXPECT_EQ(first()->Fill().TextureName(), host().textureFile());
    expectKnownAsRead(first()->Fill());
}

TEST_P(HostContract, AHiddenFillKeepsItsOtherProperties) {
    host().addRectangle("shape", kRed);
    const ShapePointer shape = first();
    for (const FillCase& one : fillCases()) {
        SCOPED_TRACE(one.what);
        paint(
            shape->Fill(), [&] { one.build(shape->Fill()); }, 0.25F);
        shape->Fill().setVisible(MsoTriState::msoFalse);
        EXPECT_EQ(first()->Fill().Visible(), MsoTriState::msoFalse);
        one.check(first()->Fill());
        shape->Fill().setVisible(MsoTriState::msoTrue);
        EXPECT_EQ(first()->Fill().Visible(), MsoTriState::msoTrue);
        one.check(first()->Fill());
        EXPECT_EQ(first()->Fill().Transparency(), 0.25F);
    }
}

TEST_P(HostContract, AHiddenDestinationTakesItsColours) {
    host().addRectangle("shape", kRed);
    const ShapePointer shape = first();
    shape->Fill().setForeColorRGB(kBlue);
    shape->Fill().setBackColorRGB(kGreen);
    shape->Fill().Solid();
    shape->Fill().setTransparency(0.5F);
    shape->Fill().setVisible(MsoTriState::msoFalse);
    EXPECT_EQ(first()->Fill().Visible(), MsoTriState::msoFalse);
    shape->Fill().setVisible(MsoTriState::msoTrue);
    EXPECT_EQ(colorOf(first()), kBlue);
    EXPECT_EQ(first()->Fill().Transparency(), 0.5F);
}

TEST_P(HostContract, ColoursAloneRecolourAGradient) {
    host().addRectangle("shape", kRed);
    const ShapePointer shape = first();
    paint(shape->Fill(), [&] { shape->Fill().TwoColorGradient(2, 3); });
    shape->Fill().setForeColorRGB(kRed);
    EXPECT_EQ(first()->Fill().ForeColorRGB(), kRed);
    EXPECT_EQ(first()->Fill().BackColorRGB(), kGreen);
    EXPECT_EQ(first()->Fill().GradientStyle(), 2);
    EXPECT_EQ(first()->Fill().GradientVariant(), 3);
}

TEST_P(HostContract, ReadsBetweenWritesChangeNothing) {
    host().addRectangle("shape", kRed);
    const ShapePointer shape = first();
    FillFormat& fill = shape->Fill();
    fill.setForeColorRGB(kBlue);
    EXPECT_EQ(fill.ForeColorRGB(), kBlue);
    fill.setBackColorRGB(kGreen);
    EXPECT_EQ(fill.Type(), MsoFillType::msoFillSolid);
    fill.TwoColorGradient(1, 1);
    EXPECT_EQ(fill.BackColorRGB(), kGreen);
    EXPECT_EQ(fill.ForeColorRGB(), kBlue);
}

TEST_P(HostContract, AFillWrittenOnOneShapeStaysOffTheOthers) {
    host().addRectangle("a", kRed);
    host().addRectangle("b", kRed);
    const ShapePointer shape = first();
    paint(shape->Fill(), [&] { shape->Fill().Patterned(5); });
    EXPECT_EQ(all()[1]->Fill().Type(), MsoFillType::msoFillSolid);
    EXPECT_EQ(colorOf(all()[1]), kRed);
}

TEST_P(HostContract, ARangeWritesToEveryShape) {
    for (int i = 0; i < 100; ++i) host().addRectangle("", kRed);
    std::vector<std::string> names = namesOf(all());
    names.resize(70);
    const auto range = shapes()->Range(names);
    paint(
        range->Fill(), [&] { range->Fill().Solid(); }, 0.5F);
    const std::vector<ShapePointer> shapes = all();
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        EXPECT_EQ(colorOf(shapes[i]), i < 70 ? kBlue : kRed) << i;
        EXPECT_EQ(shapes[i]->Fill().Transparency(), i < 70 ? 0.5F : 0.0F) << i;
    }
}

TEST_P(HostContract, AShapeWithoutFillStaysWithoutFill) {
    host().addLine("line");
    const ShapePointer line = first();
    EXPECT_EQ(line->Fill().Visible(), MsoTriState::msoFalse);
}

// Groups and ranges answer with what is common

TEST_P(HostContract, AGroupAnswersWithTheCommonValue) {
    host().group("g", {host().addRectangle("a", kRed), host().addRectangle("b", kRed)});
    EXPECT_EQ(first()->Fill().ForeColorRGB(), kRed);
    EXPECT_EQ(first()->Fill().Visible(), MsoTriState::msoTrue);
    EXPECT_EQ(first()->Fill().Type(), MsoFillType::msoFillSolid);
}

TEST_P(HostContract, AGroupAnswersMixedWhereItsMembersDiffer) {
    const auto inner =
        host().group("inner", {host().addRectangle("a", kRed), host().addRectangle("b", kBlue)});
    host().group("outer", {inner, host().addRectangle("c", kRed)});
    const ShapePointer outer = first();
    EXPECT_EQ(outer->Fill().ForeColorRGB(), kMixed);
    EXPECT_EQ(outer->Fill().Type(), MsoFillType::msoFillSolid);
    outer->GroupItems()->Item(2)->Fill().setVisible(MsoTriState::msoFalse);
    EXPECT_EQ(outer->Fill().Visible(), MsoTriState::msoTriStateMixed);
    outer->GroupItems()->Item(1)->GroupItems()->Item(2)->Fill().setForeColorRGB(kRed);
    EXPECT_EQ(outer->Fill().ForeColorRGB(), kRed);
}

TEST_P(HostContract, AGroupsLineIsItsMembersLine) {
    host().group("g", {host().addRectangle("a", kRed), host().addRectangle("b", kRed)});
    const ShapePointer group = first();
    const ShapePointer member = group->GroupItems()->Item(1);
    group->GroupItems()->Item(2)->Line().setVisible(MsoTriState::msoTrue);
    member->Line().setVisible(MsoTriState::msoTrue);
    EXPECT_EQ(group->Line().Visible(), MsoTriState::msoTrue);
    member->Line().setVisible(MsoTriState::msoFalse);
    EXPECT_EQ(member->Line().Visible(), MsoTriState::msoFalse);
    EXPECT_EQ(group->Line().Visible(), MsoTriState::msoTriStateMixed);
}

TEST_P(HostContract, ALinesColourIsWrittenAlone) {
    host().addRectangle("a", kRed);
    const ShapePointer shape = first();
    shape->Line().setVisible(MsoTriState::msoTrue);
    shape->Line().setForeColorRGB(kBlue);
    EXPECT_EQ(shape->Line().ForeColorRGB(), kBlue);
    EXPECT_EQ(shape->Line().Visible(), MsoTriState::msoTrue);
    EXPECT_EQ(shape->Fill().ForeColorRGB(), kRed);
    EXPECT_EQ(first()->Line().ForeColorRGB(), kBlue);
}

TEST_P(HostContract, WritingAGroupsLineWritesAllMembers) {
    const auto inner = host().group("inner", {host().addLine("a"), host().addRectangle("b", kRed)});
    host().group("outer", {inner, host().addRectangle("c", kRed)});
    const ShapePointer outer = first();
    outer->Line().setVisible(MsoTriState::msoTrue);
    outer->Line().setForeColorRGB(kGreen);
    EXPECT_EQ(outer->Line().ForeColorRGB(), kGreen);
    EXPECT_EQ(outer->GroupItems()->Item(1)->GroupItems()->Item(1)->Line().ForeColorRGB(), kGreen);
    outer->GroupItems()->Item(2)->Line().setForeColorRGB(kBlue);
    EXPECT_EQ(outer->Line().ForeColorRGB(), kMixed);
}

TEST_P(HostContract, WritingAGroupsFillWritesAllMembers) {
    const auto inner =
        host().group("inner", {host().addRectangle("a", kRed), host().addRectangle("b", kBlue)});
    host().group("outer", {inner, host().addRectangle("c", kRed)});
    const ShapePointer outer = first();
    paint(outer->Fill(), [&] { outer->Fill().Solid(); });
    EXPECT_EQ(outer->Fill().ForeColorRGB(), kBlue);
    EXPECT_EQ(colorOf(outer->GroupItems()->Item(1)->GroupItems()->Item(1)), kBlue);
}

// Deleted shapes

TEST_P(HostContract, ADeletedShapeIsAnErrorOfItsUse) {
    const auto gone = host().addRectangle("gone", kRed);
    host().addRectangle("kept", kGreen);
    const ShapePointer shape = first();
    const std::string name = shape->Name();
    host().remove(gone);
    EXPECT_THROW(shape->Fill().Visible(), base::Error);
    EXPECT_THROW(shape->Fill().setForeColorRGB(kBlue), base::Error);
    EXPECT_THROW(shape->Line().Visible(), base::Error);
    EXPECT_THROW(shape->Line().setForeColorRGB(kBlue), base::Error);
    EXPECT_THROW(shapes()->Range({name}), base::Error);
    EXPECT_EQ(shapes()->Count(), 1);
    EXPECT_EQ(colorOf(first()), kGreen);
}

TEST_P(HostContract, AMemberOfADeletedGroupIsDeleted) {
    const auto group =
        host().group("g", {host().addRectangle("a", kRed), host().addRectangle("b", kRed)});
    const ShapePointer member = first()->GroupItems()->Item(2);
    host().remove(group);
    EXPECT_THROW(member->Fill().ForeColorRGB(), base::Error);
    EXPECT_EQ(shapes()->Count(), 0);
}

// Selection

TEST_P(HostContract, ASelectedShapeIsTheSelection) {
    host().addRectangle("a", kRed);
    host().addRectangle("b", kGreen);
    all()[1]->Select();
    const auto range = host().document()->Selection()->ShapeRange();
    ASSERT_EQ(range->Count(), 1);
    EXPECT_EQ(colorOf(range->Item(1)), kGreen);
    EXPECT_EQ(range->Item(1)->Name(), all()[1]->Name());
    all()[0]->Select();
    EXPECT_EQ(colorOf(host().document()->Selection()->ShapeRange()->Item(1)), kRed);
    EXPECT_EQ(host().document()->Selection()->ShapeRange()->Count(), 1);
}

TEST_P(HostContract, ARangeIsSelectedAtOnce) {
    for (int i = 0; i < 60; ++i) host().addRectangle("", i % 2 == 0 ? kRed : kGreen);
    std::vector<std::string> names;
    for (const ShapePointer& shape : all()) {
        if (colorOf(shape) == kRed) names.push_back(shape->Name());
    }
    ASSERT_EQ(names.size(), 30U);
    shapes()->Range(names)->Select();
    const auto range = host().document()->Selection()->ShapeRange();
    ASSERT_EQ(range->Count(), 30);
    std::set<std::string> selected;
    for (std::int32_t i = 1; i <= range->Count(); ++i) selected.insert(range->Item(i)->Name());
    EXPECT_EQ(selected, std::set<std::string>(names.begin(), names.end()));
}

TEST_P(HostContract, ASelectedGroupStaysOneShape) {
    host().group("g", {host().addRectangle("a", kRed), host().addRectangle("b", kGreen)});
    first()->Select();
    const auto range = host().document()->Selection()->ShapeRange();
    ASSERT_EQ(range->Count(), 1);
    EXPECT_EQ(range->Item(1)->Type(), MsoShapeType::msoGroup);
    EXPECT_EQ(range->Item(1)->GroupItems()->Count(), 2);
}

TEST_P(HostContract, ASelectionWritesToItsShapes) {
    host().addRectangle("a", kRed);
    host().addRectangle("b", kRed);
    shapes()->Range(namesOf(all()))->Select();
    const auto range = host().document()->Selection()->ShapeRange();
    paint(range->Fill(), [&] { range->Fill().Solid(); });
    EXPECT_EQ(colorOf(all()[0]), kBlue);
    EXPECT_EQ(colorOf(all()[1]), kBlue);
}

// New shapes

TEST_P(HostContract, ANewShapeIsLastAndCanBeFilled) {
    host().addRectangle("a", kRed);
    const ShapePointer added =
        shapes()->AddShape(MsoAutoShapeType::msoShapeRectangle, 0, 0, 60.7F, 19);
    added->Line().setVisible(MsoTriState::msoFalse);
    EXPECT_EQ(shapes()->Count(), 2);
    EXPECT_EQ(added->Line().Visible(), MsoTriState::msoFalse);
    EXPECT_EQ(added->Fill().Visible(), MsoTriState::msoTrue);
    paint(added->Fill(), [&] { added->Fill().OneColorGradient(1, 1, 0.5F); });
    EXPECT_EQ(all()[1]->Fill().Type(), MsoFillType::msoFillGradient);
    EXPECT_EQ(all()[1]->Name(), added->Name());
}

}  // namespace huebrush::host
