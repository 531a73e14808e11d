// SPDX-License-Identifier: MPL-2.0

#include "mapping/FillMapping.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "base/Color.h"
#include "base/Error.h"
#include "mapping/Textures.h"

namespace huebrush::mapping {

using host::MsoFillType;
using host::MsoTriState;

namespace {

constexpr std::int32_t kRed = base::rgb(255, 0, 0);
constexpr std::int32_t kBlue = base::rgb(10, 20, 250);

KnownFill plainShape() {
    OfficeFill office;
    office.style = OfficeFillStyle::solid;
    office.color = 0x729FCF;
    return knownFillOf(office, {}, {});
}

HostFill built(const FillBuild& build, float transparency = 0.0F) {
    return edited({}, {.foreColor = kRed,
                       .backColor = kBlue,
                       .build = build,
                       .transparency = transparency,
                       .visible = MsoTriState::msoTrue});
}

std::optional<OwnPicture> pictureOf(const OfficeFill& office) {
    if (office.style != OfficeFillStyle::bitmap) return {};
    return ownPictureNamed(office.bitmapName);
}

/// What a shape answers after the target was written and read back, as a new reader sees it.
KnownFill afterWriting(const FillTarget& target) {
    std::optional<RememberedFill> remembered;
    if (target.remembered) remembered = rememberedFillOf(toText(*target.remembered));
    return knownFillOf(target.office, pictureOf(target.office), remembered);
}

KnownFill write(const HostFill& fill, const KnownFill& on) {
    return afterWriting(targetFor(fill, on, "Huebrush file 1 2"));
}

std::vector<FillBuild> everyBuild() {
    std::vector<FillBuild> builds = {solidBuild(), userTextureBuild("/pictures/brick wall;1.png")};
    for (std::int32_t pattern = 1; pattern <= kPatternCount; ++pattern) {
        builds.push_back(patternBuild(pattern));
    }
    for (std::int32_t texture = 1; texture <= kTextureCount; ++texture) {
        builds.push_back(presetTextureBuild(texture));
    }
    for (std::int32_t style = 1; style <= 7; ++style) {
        for (std::int32_t variant = 1; variant <= 4; ++variant) {
            builds.push_back(twoColorBuild(style, variant));
            for (const float degree : {0.0F, 0.23F, 0.5F, 1.0F}) {
                builds.push_back(oneColorBuild(style, variant, degree));
            }
            for (std::int32_t type = 1; type <= 24; ++type) {
                builds.push_back(presetGradientBuild(style, variant, type));
            }
        }
    }
    return builds;
}

TEST(FillMapping, EveryFillReadsBackAsItself) {
    for (const FillBuild& build : everyBuild()) {
        for (const float transparency : {0.0F, 0.5F, 1.0F / 3, 1.0F}) {
            const HostFill fill = built(build, transparency);
            EXPECT_EQ(write(fill, plainShape()).host, fill)
                << "type " << static_cast<int>(build.type) << " style " << build.gradientStyle
                << " variant " << build.gradientVariant << " pattern " << build.pattern;
        }
    }
}

TEST(FillMapping, AHiddenFillReadsBackAsItselfAndShowsAgain) {
    for (const FillBuild& build : everyBuild()) {
        const HostFill shown = built(build, 0.25F);
        const KnownFill first = write(shown, plainShape());
        const HostFill hidden = edited(shown, {.visible = MsoTriState::msoFalse});
        const KnownFill second = write(hidden, first);
        ASSERT_EQ(second.office.style, OfficeFillStyle::none);
        EXPECT_EQ(second.host, hidden);
        const KnownFill third = write(shown, second);
        EXPECT_EQ(third.host, shown);
        EXPECT_TRUE(isSameOfficeFill(third.office, first.office));
    }
}

TEST(FillMapping, WhatTheOfficeCanHoldIsNotRemembered) {
    EXPECT_FALSE(targetFor(built(solidBuild(), 0.5F), plainShape(), "").remembered);
    EXPECT_FALSE(targetFor(built(patternBuild(12)), plainShape(), "").remembered);
    EXPECT_FALSE(targetFor(built(presetTextureBuild(3)), plainShape(), "").remembered);
    for (std::int32_t style = 1; style <= 5; ++style) {
        for (std::int32_t variant = 1; variant <= 4; ++variant) {
            EXPECT_FALSE(
                targetFor(built(twoColorBuild(style, variant)), plainShape(), "").remembered)
                << style << '/' << variant;
        }
    }
    EXPECT_TRUE(targetFor(built(oneColorBuild(1, 1, 0.2F)), plainShape(), "").remembered);
    EXPECT_TRUE(targetFor(built(solidBuild(), 1.0F / 3), plainShape(), "").remembered);
}

TEST(FillMapping, AMemoryCountsOnlyWhileTheOfficesFillIsTheOneWritten) {
    const FillTarget target = targetFor(built(oneColorBuild(2, 1, 0.7F)), plainShape(), "");
    ASSERT_TRUE(target.remembered);
    OfficeFill changed = target.office;
    changed.gradient.endColor ^= 1;
    const HostFill read = knownFillOf(changed, {}, target.remembered).host;
    EXPECT_EQ(read.gradientColorType, host::MsoGradientColorType::msoGradientTwoColors);
    EXPECT_EQ(knownFillOf(target.office, {}, target.remembered).host,
              built(oneColorBuild(2, 1, 0.7F)));
}

TEST(FillMapping, PlainSolidsAreEqualWhateverLiesUnderThem) {
    OfficeFill a;
    a.style = OfficeFillStyle::solid;
    a.color = 0xFF0000;
    OfficeFill b = a;
    b.gradient = {OfficeGradientStyle::radial, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    b.hatch = {OfficeHatchStyle::three, 1, 2, 3};
    b.bitmapName = "left over";
    b.bitmapMode = OfficeBitmapMode::stretch;
    EXPECT_EQ(hostFillOf(a, {}), hostFillOf(b, {}));
    const HostFill written = write(built(solidBuild()), plainShape()).host;
    EXPECT_EQ(written, hostFillOf(a, {}));
}

TEST(FillMapping, EveryOfficeGradientHasOneNearestGradient) {
    for (int style = 0; style <= 5; ++style) {
        for (std::int32_t angle = -3600; angle <= 7200; angle += 50) {
            for (const std::int32_t offset : {0, 20, 50, 80, 100}) {
                OfficeFill office;
                office.style = OfficeFillStyle::gradient;
                office.gradient.style = static_cast<OfficeGradientStyle>(style);
                office.gradient.angle = angle;
                office.gradient.xOffset = offset;
                const HostFill fill = hostFillOf(office, {});
                ASSERT_EQ(fill.type, MsoFillType::msoFillGradient);
                const KnownFill again = write(fill, plainShape());
                EXPECT_EQ(again.host, fill);
                EXPECT_EQ(hostFillOf(again.office, {}), fill) << "not approximated by itself";
            }
        }
    }
}

TEST(FillMapping, AGradientsIntensityIsPartOfItsColors) {
    OfficeFill office;
    office.style = OfficeFillStyle::gradient;
    office.gradient.startColor = 0x804020;
    office.gradient.startIntensity = 50;
    EXPECT_EQ(hostFillOf(office, {}).foreColor, base::rgb(0x40, 0x20, 0x10));
}

TEST(FillMapping, RecolouringAGradientKeepsItsShape) {
    OfficeFill office;
    office.style = OfficeFillStyle::gradient;
    office.gradient = {
        OfficeGradientStyle::linear, 0x00FF00, 0x0000FF, 330, 12, 50, 50, 100, 100, 7};
    const KnownFill now = knownFillOf(office, {}, {});
    const FillTarget target = targetFor(
        edited(now.host,
               {.foreColor = kRed,
                .build = twoColorBuild(now.host.gradientStyle, now.host.gradientVariant)}),
        now, "");
    EXPECT_EQ(target.office.gradient.angle, 330);
    EXPECT_EQ(target.office.gradient.border, 12);
    EXPECT_EQ(target.office.gradient.stepCount, 7);
    EXPECT_EQ(afterWriting(target).host.foreColor, kRed);
    EXPECT_EQ(afterWriting(target).host.backColor, now.host.backColor);
}

TEST(FillMapping, RecolouringAHatchKeepsItsLines) {
    OfficeFill office;
    office.style = OfficeFillStyle::hatch;
    office.hatch = {OfficeHatchStyle::two, 0xFF0000, 90, 450};
    const KnownFill now = knownFillOf(office, {}, {});
    EXPECT_EQ(now.host.type, MsoFillType::msoFillPatterned);
    EXPECT_EQ(now.host.foreColor, kRed);
    const FillTarget target = targetFor(edited(now.host, {.foreColor = kBlue}), now, "");
    EXPECT_EQ(target.office.style, OfficeFillStyle::hatch);
    EXPECT_EQ(target.office.hatch.distance, 90);
    EXPECT_EQ(afterWriting(target).host.foreColor, kBlue);
}

TEST(FillMapping, APictureKeepsItsPictureAndTakesTheTransparency) {
    OfficeFill office;
    office.style = OfficeFillStyle::bitmap;
    office.bitmapName = "photo";
    office.bitmapMode = OfficeBitmapMode::stretch;
    const KnownFill now = knownFillOf(office, {}, {});
    EXPECT_EQ(now.host.type, MsoFillType::msoFillPicture);
    const HostFill wanted = edited(now.host, {.foreColor = kRed, .transparency = 0.5F});
    const FillTarget target = targetFor(wanted, now, "");
    EXPECT_EQ(target.office.bitmapName, "photo");
    EXPECT_EQ(target.office.transparence, 50);
    EXPECT_EQ(afterWriting(target).host.foreColor, Unused::kColor);
    const KnownFill hidden =
        write(edited(wanted, {.visible = MsoTriState::msoFalse}), afterWriting(target));
    EXPECT_EQ(hidden.host.type, MsoFillType::msoFillPicture);
    EXPECT_EQ(targetFor(wanted, hidden, "").office.bitmapName, "photo");
}

TEST(FillMapping, ATextureOfUnknownOriginIsAUserTextureWithoutName) {
    OfficeFill office;
    office.style = OfficeFillStyle::bitmap;
    office.bitmapName = "msFillBitmap 3";
    const HostFill fill = hostFillOf(office, {});
    EXPECT_EQ(fill.type, MsoFillType::msoFillTextured);
    EXPECT_EQ(fill.textureType, host::MsoTextureType::msoTextureUserDefined);
    EXPECT_FALSE(fill.textureName);
}

TEST(FillMapping, ATransparenceGradientReadsAsItsMean) {
    OfficeFill office;
    office.style = OfficeFillStyle::solid;
    office.transparenceGradient = OfficeGradient{};
    EXPECT_EQ(hostFillOf(office, {}).transparency, 0.5F);
    const KnownFill now = knownFillOf(office, {}, {});
    EXPECT_TRUE(
        targetFor(edited(now.host, {.foreColor = kRed}), now, "").office.transparenceGradient);
    EXPECT_FALSE(
        targetFor(edited(now.host, {.transparency = 0.25F}), now, "").office.transparenceGradient);
}

/// From 0xFF0000 over another colour to 0x0000FF.
OfficeGradient gradientOver(std::int32_t color, std::int32_t place = 5000) {
    OfficeGradient gradient;
    gradient.startColor = 0xFF0000;
    gradient.endColor = 0x0000FF;
    gradient.stops = {{0, 0xFF0000}, {place, color}, {10000, 0x0000FF}};
    return gradient;
}

KnownFill shapeWith(const OfficeGradient& gradient) {
    OfficeFill office;
    office.style = OfficeFillStyle::gradient;
    office.gradient = gradient;
    return knownFillOf(office, {}, {});
}

TEST(GradientStops, GetOtherColoursAndKeepTheirPlaces) {
    KnownFill now = shapeWith(gradientOver(0x00FF00, 3000));
    now.host.transparency = 0.25F;
    EXPECT_EQ(stopColorsOf(now.office), (std::vector<std::int32_t>{0x0000FF, 0x00FF00, 0xFF0000}));
    const KnownFill changed = withStopColors(now, {0x010203, 0x040506, 0x070809});
    EXPECT_EQ(stopColorsOf(changed.office),
              (std::vector<std::int32_t>{0x010203, 0x040506, 0x070809}));
    EXPECT_EQ(changed.office.gradient.stops[1].place, 3000);
    EXPECT_EQ(changed.office.gradient.startColor, 0x030201);
    EXPECT_EQ(changed.office.gradient.endColor, 0x090807);
    EXPECT_EQ(changed.host.transparency, 0.25F);
    EXPECT_NE(changed.host.stopsMark, now.host.stopsMark);
    EXPECT_EQ(withStopColors(now, {1, 2}).host, now.host) << "another number of colours";
}

TEST(GradientStops, OfAGradientThatBeginsAtTheirEndStayTurned) {
    OfficeGradient turned = gradientOver(0x00FF00);
    std::swap(turned.startColor, turned.endColor);
    const KnownFill changed = withStopColors(shapeWith(turned), {0x010203, 0x040506, 0x070809});
    EXPECT_EQ(changed.office.gradient.startColor, 0x090807);
    EXPECT_EQ(changed.office.gradient.endColor, 0x030201);
}

TEST(GradientStops, MakeFillsDifferInWhatTheirTypeDoesNotUse) {
    OfficeGradient ends = gradientOver(0);
    ends.stops.clear();
    const HostFill plain = shapeWith(ends).host;
    const HostFill green = shapeWith(gradientOver(0x00FF00)).host;
    EXPECT_EQ(plain.stopsMark, 0);
    EXPECT_EQ(propertiesOf(plain).Pattern, Unused::kNumber);
    EXPECT_EQ(green, shapeWith(gradientOver(0x00FF00)).host);
    EXPECT_NE(propertiesOf(green), propertiesOf(plain));
    EXPECT_NE(propertiesOf(green), propertiesOf(shapeWith(gradientOver(0x00FF01)).host));
    EXPECT_NE(propertiesOf(green), propertiesOf(shapeWith(gradientOver(0x00FF00, 5001)).host));
    host::FillProperties used = propertiesOf(green);
    EXPECT_GT(used.Pattern, 0xFFFFFF);
    used.Pattern = Unused::kNumber;
    EXPECT_EQ(used, propertiesOf(plain));
}

TEST(GradientStops, OfTransparencyMakeFillsDiffer) {
    for (const FillBuild& build :
         {solidBuild(), patternBuild(3), presetGradientBuild(1, 1, 5), presetTextureBuild(4)}) {
        KnownFill clear = write(built(build), plainShape());
        clear.office.transparenceGradient = gradientOver(0x00FF00);
        const HostFill one = hostFillOf(clear.office, pictureOf(clear.office));
        clear.office.transparenceGradient = gradientOver(0x404040);
        const HostFill other = hostFillOf(clear.office, pictureOf(clear.office));
        EXPECT_EQ(one.transparency, other.transparency);
        EXPECT_NE(propertiesOf(one), propertiesOf(other));
        EXPECT_EQ(propertiesOf(one).Pattern == propertiesOf(other).Pattern,
                  one.type != MsoFillType::msoFillGradient);
    }
}

TEST(GradientStops, StayUntilTheColoursChange) {
    const KnownFill now = shapeWith(gradientOver(0x00FF00));
    const FillBuild build = twoColorBuild(now.host.gradientStyle, now.host.gradientVariant);
    const FillTarget clearer =
        targetFor(edited(now.host, {.build = build, .transparency = 0.5F}), now, "");
    EXPECT_EQ(clearer.office.gradient, now.office.gradient);
    EXPECT_EQ(clearer.host.stopsMark, now.host.stopsMark);
    EXPECT_EQ(afterWriting(clearer).host, clearer.host);
    const FillTarget recoloured =
        targetFor(edited(now.host, {.backColor = kRed, .build = build}), now, "");
    EXPECT_TRUE(recoloured.office.gradient.stops.empty());
    EXPECT_EQ(recoloured.host.stopsMark, 0);
    EXPECT_FALSE(recoloured.remembered);
    EXPECT_EQ(afterWriting(recoloured).host, recoloured.host);
    const FillTarget solid = targetFor(edited(now.host, {.build = solidBuild()}), now, "");
    EXPECT_EQ(solid.host.stopsMark, 0);
    EXPECT_FALSE(solid.remembered);
}

TEST(GradientStops, AreShownAgainAfterTheyWereHidden) {
    KnownFill now = shapeWith(gradientOver(0x00FF00));
    now.office.transparenceGradient = gradientOver(0x808080);
    now = knownFillOf(now.office, {}, {});
    const KnownFill hidden = write(edited(now.host, {.visible = MsoTriState::msoFalse}), now);
    EXPECT_EQ(hidden.office.style, OfficeFillStyle::none);
    const KnownFill shown = write(edited(hidden.host, {.visible = MsoTriState::msoTrue}), hidden);
    EXPECT_EQ(shown.office.gradient, now.office.gradient);
    EXPECT_EQ(shown.office.transparenceGradient, now.office.transparenceGradient);
    EXPECT_EQ(shown.host, now.host);
}

TEST(GradientStops, AMemoryOfTwoColoursDoesNotCountForMore) {
    const FillTarget target = targetFor(built(oneColorBuild(1, 1, 0.7F)), plainShape(), "");
    OfficeFill changed = target.office;
    changed.gradient.stops = gradientOver(0x00FF00).stops;
    EXPECT_EQ(knownFillOf(changed, {}, target.remembered).host.gradientColorType,
              host::MsoGradientColorType::msoGradientTwoColors);
}

TEST(GradientStops, AnythingElseThanTheirTextIsRefused) {
    const OfficeFill fill = shapeWith(gradientOver(0x00FF00)).office;
    const std::string text = toText(fill);
    ASSERT_TRUE(officeFillOf(text));
    EXPECT_EQ(officeFillOf(text)->gradient, fill.gradient);
    for (std::size_t length = 0; length < text.size(); ++length) {
        const auto cut = officeFillOf(text.substr(0, length));
        EXPECT_FALSE(cut && isSameOfficeFill(*cut, fill)) << length;
    }
    EXPECT_FALSE(officeFillOf(text + " 1"));
    EXPECT_FALSE(officeFillOf("2 0 0 0 6 0 0 0 0 50 50 100 100 0 0")) << "no stops";
    EXPECT_FALSE(officeFillOf("2 0 0 0 6 0 0 0 0 50 50 100 100 0 2000000000 1 1"));
    EXPECT_FALSE(officeFillOf("2 0 0 0 12 0 0 0 0 50 50 100 100 0")) << "no such style";
}

TEST(FillMapping, OneColourShadesRunFromBlackOverTheColourToWhite) {
    const auto endOf = [](float degree) {
        return targetFor(built(oneColorBuild(1, 1, degree)), plainShape(), "")
            .office.gradient.endColor;
    };
    EXPECT_EQ(endOf(0.0F), 0x000000);
    EXPECT_EQ(endOf(0.5F), 0xFF0000);
    EXPECT_EQ(endOf(1.0F), 0xFFFFFF);
}

TEST(FillMapping, RefusesWhatTheObjectModelDoesNotHave) {
    EXPECT_THROW(patternBuild(0), base::Error);
    EXPECT_THROW(patternBuild(kPatternCount + 1), base::Error);
    EXPECT_THROW(twoColorBuild(8, 1), base::Error);
    EXPECT_THROW(twoColorBuild(1, 5), base::Error);
    EXPECT_THROW(oneColorBuild(1, 1, 1.5F), base::Error);
    EXPECT_THROW(presetGradientBuild(1, 1, 25), base::Error);
    EXPECT_THROW(presetTextureBuild(25), base::Error);
    EXPECT_THROW(checkedTransparency(-0.5F), base::Error);
}

TEST(RememberedFill, AnythingElseThanItsTextIsRefused) {
    const FillTarget target = targetFor(built(userTextureBuild("C:\\a b;c.bmp"), 0.1F),
                                        plainShape(), "Huebrush file 7 8");
    ASSERT_TRUE(target.remembered);
    const std::string text = toText(*target.remembered);
    EXPECT_EQ(rememberedFillOf(text)->host.textureName, "C:\\a b;c.bmp");
    for (std::size_t length = 0; length < text.size(); ++length) {
        const auto cut = rememberedFillOf(text.substr(0, length));
        // A cut inside the last number leaves another number: then it no longer fits the shape.
        EXPECT_FALSE(cut && isSameOfficeFill(cut->written, target.office)) << length;
    }
    EXPECT_FALSE(rememberedFillOf(text + " 1"));
    EXPECT_FALSE(rememberedFillOf(";;;"));
    const std::string badPattern = "-1 0 0 0 2 -2 -2 -2 0 -2 -2 -2 99 1 %;1 0 0 0";
    EXPECT_FALSE(rememberedFillOf(badPattern)) << "a pattern that does not exist";
}

TEST(CommonFill, IsMixedWhereTheFillsDiffer) {
    CommonFill common;
    common.add(built(solidBuild()));
    EXPECT_EQ(common.value(), built(solidBuild()));
    common.add(built(patternBuild(5), 0.5F));
    EXPECT_EQ(common.value().visible, MsoTriState::msoTrue);
    EXPECT_EQ(common.value().foreColor, kRed);
    EXPECT_EQ(common.value().backColor, host::kMixed);
    EXPECT_EQ(common.value().type, MsoFillType::msoFillMixed);
    EXPECT_EQ(common.value().transparency, -2.0F);
    common.add(HostFill{});
    EXPECT_EQ(common.value().visible, MsoTriState::msoTriStateMixed);
    common.add(HostFill{});
    EXPECT_EQ(common.value().visible, MsoTriState::msoTriStateMixed);
}

TEST(Patterns, AreDifferentAndKnownByTheirPixels) {
    for (std::int32_t pattern = 1; pattern <= kPatternCount; ++pattern) {
        const PatternFill fill{pattern, 0x123456, 0xFEDCBA};
        EXPECT_EQ(patternOf(patternTile(fill)), fill) << pattern;
    }
    EXPECT_FALSE(patternOf(patternTile({1, 5, 5}))) << "a single colour";
    Image three = patternTile({1, 1, 2});
    three.set(7, 7, 3);
    EXPECT_FALSE(patternOf(three));
}

TEST(Textures, AreDifferentAndKnownByTheirPixels) {
    for (std::int32_t texture = 1; texture <= kTextureCount; ++texture) {
        EXPECT_EQ(textureOf(textureTile(texture)), texture);
    }
    EXPECT_FALSE(textureOf(Image(kTextureSize, kTextureSize)));
}

TEST(Textures, EdgesMeet) {
    // Across the edge pixels differ no more than they do somewhere inside.
    const auto difference = [](std::int32_t a, std::int32_t b) {
        return std::abs((a & 0xFF) - (b & 0xFF));
    };
    for (std::int32_t texture = 1; texture <= kTextureCount; ++texture) {
        const Image tile = textureTile(texture);
        const std::int32_t last = kTextureSize - 1;
        long inside = 0;
        long across = 0;
        for (std::int32_t y = 0; y < kTextureSize; ++y) {
            across += difference(tile.at(last, y), tile.at(0, y));
            long row = 0;
            for (std::int32_t x = 0; x < last; ++x) {
                row = std::max<long>(row, difference(tile.at(x, y), tile.at(x + 1, y)));
            }
            inside += row;
        }
        EXPECT_LE(across, inside) << texture;
    }
}

TEST(Image, SurvivesABitmapFile) {
    const Image tile = textureTile(5);
    EXPECT_EQ(imageOfBitmapFile(bitmapFileOf(tile)), tile);
    std::vector<std::uint8_t> bytes = bitmapFileOf(Image(3, 2));
    while (!bytes.empty()) {
        bytes.pop_back();
        EXPECT_EQ(imageOfBitmapFile(bytes).width(), 0);
    }
}

TEST(Image, ReadsBitmapsWithAPalette) {
    // 3 x 1 pixels of 1 bit: a palette of two colours, a row of 4 bytes.
    std::vector<std::uint8_t> bytes = bitmapFileOf(Image(3, 1));
    bytes.resize(54);
    bytes[28] = 1;
    bytes[10] = 62;
    for (const int byte : {0x10, 0x20, 0x30, 0, 0xFF, 0xFE, 0xFD, 0, 0x40, 0, 0, 0}) {
        bytes.push_back(static_cast<std::uint8_t>(byte));
    }
    const Image image = imageOfBitmapFile(bytes);
    ASSERT_EQ(image.width(), 3);
    EXPECT_EQ(image.at(0, 0), 0x302010);
    EXPECT_EQ(image.at(1, 0), 0xFDFEFF);
}

TEST(OwnPictures, AreKnownByTheirNames) {
    const OwnPicture pattern = PatternFill{7, 0xABCDEF, 0};
    EXPECT_EQ(ownPictureNamed(nameOf(pattern)), pattern);
    EXPECT_EQ(ownPictureOf(tileOf(pattern)), pattern);
    EXPECT_EQ(ownPictureNamed(nameOf(TextureFill{24})), OwnPicture(TextureFill{24}));
    EXPECT_FALSE(ownPictureNamed("Huebrush pattern 99 0 0"));
    EXPECT_FALSE(ownPictureNamed("Huebrush texture 0"));
    EXPECT_FALSE(ownPictureNamed("Huebrush pattern 7"));
    EXPECT_FALSE(ownPictureNamed("Marble"));
    EXPECT_NE(nameOfFile({1, 2}), nameOfFile({2, 1}));
}

}  // namespace

}  // namespace huebrush::mapping
