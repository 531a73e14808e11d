// SPDX-License-Identifier: MPL-2.0

#include "mapping/HostFill.h"

#include "base/Error.h"
#include "base/Text.h"

namespace huebrush::mapping {

using host::MsoFillType;
using host::MsoGradientColorType;
using host::MsoTextureType;

namespace {

constexpr std::int32_t kLastGradientStyle = 7;
constexpr std::int32_t kLastVariant = 4;
constexpr std::int32_t kLastPresetGradient = 24;
constexpr std::int32_t kLastPattern = 54;
constexpr std::int32_t kLastTexture = 24;

std::int32_t checked(const char* what, std::int32_t value, std::int32_t last) {
    if (value < 1 || value > last) {
        throw base::Error(base::ErrorNumber::kInvalidProcedureCall,
                          base::text("Neplatná hodnota výplně: ", what, " ", value, "."));
    }
    return value;
}

float checkedFraction(const char* what, float value) {
    if (!(value >= 0.0F && value <= 1.0F)) {
        throw base::Error(base::ErrorNumber::kInvalidProcedureCall,
                          base::text("Neplatná hodnota výplně: ", what, " musí být od 0 do 1."));
    }
    return value;
}

FillBuild gradientBuild(MsoGradientColorType colors, std::int32_t style, std::int32_t variant) {
    FillBuild build;
    build.type = MsoFillType::msoFillGradient;
    build.gradientColorType = colors;
    build.gradientStyle = checked("styl přechodu", style, kLastGradientStyle);
    build.gradientVariant = checked("varianta přechodu", variant, kLastVariant);
    return build;
}

/// Makes `common` mixed where it differs from the value of a further fill.
template <class Value, class Other>
void join(Value& common, const Other& value, Value mixed) {
    if (!(common == value)) common = mixed;
}

}  // namespace

host::FillProperties propertiesOf(const HostFill& fill) {
    host::FillProperties properties;
    properties.Visible = fill.visible;
    properties.ForeColorRGB = fill.foreColor;
    properties.BackColorRGB = fill.backColor;
    properties.Transparency = fill.transparency;
    properties.GradientStyle = fill.gradientStyle;
    properties.GradientColorType = fill.gradientColorType;
    properties.GradientVariant = fill.gradientVariant;
    properties.GradientDegree = fill.gradientDegree;
    properties.PresetGradientType = fill.presetGradientType;
    properties.Type = fill.type;
    properties.TextureType = fill.textureType;
    properties.PresetTexture = fill.presetTexture;
    properties.TextureName = fill.textureName.value_or("");
    properties.UnknownTexture = !fill.textureName;
    properties.Pattern = fill.pattern;
    if (fill.stopsMark != 0) {
        const bool isGradient = fill.type == MsoFillType::msoFillGradient;
        (isGradient ? properties.Pattern : properties.PresetGradientType) = fill.stopsMark;
    }
    return properties;
}

bool HostFill::usesForeColor() const {
    switch (type) {
        case MsoFillType::msoFillSolid:
        case MsoFillType::msoFillPatterned:
            return true;
        case MsoFillType::msoFillGradient:
            return gradientColorType != MsoGradientColorType::msoGradientPresetColors;
        default:
            return false;
    }
}

bool HostFill::usesBackColor() const {
    return type == MsoFillType::msoFillPatterned ||
           (type == MsoFillType::msoFillGradient &&
            gradientColorType == MsoGradientColorType::msoGradientTwoColors);
}

HostFill edited(const HostFill& fill, const FillWrites& edit) {
    HostFill result = fill;
    if (edit.build) static_cast<FillBuild&>(result) = *edit.build;
    if (edit.foreColor) result.foreColor = *edit.foreColor;
    if (edit.backColor) result.backColor = *edit.backColor;
    if (!result.usesForeColor()) result.foreColor = Unused::kColor;
    if (!result.usesBackColor()) result.backColor = Unused::kColor;
    if (edit.transparency) result.transparency = *edit.transparency;
    if (edit.visible) result.visible = *edit.visible;
    return result;
}

FillBuild solidBuild() {
    return {};
}

FillBuild patternBuild(std::int32_t pattern) {
    FillBuild build;
    build.type = MsoFillType::msoFillPatterned;
    build.pattern = checked("vzorek", pattern, kLastPattern);
    return build;
}

FillBuild oneColorBuild(std::int32_t style, std::int32_t variant, float degree) {
    FillBuild build = gradientBuild(MsoGradientColorType::msoGradientOneColor, style, variant);
    build.gradientDegree = checkedFraction("stupeň přechodu", degree);
    return build;
}

FillBuild twoColorBuild(std::int32_t style, std::int32_t variant) {
    return gradientBuild(MsoGradientColorType::msoGradientTwoColors, style, variant);
}

FillBuild presetGradientBuild(std::int32_t style, std::int32_t variant, std::int32_t type) {
    FillBuild build = gradientBuild(MsoGradientColorType::msoGradientPresetColors, style, variant);
    build.presetGradientType = checked("předvolený přechod", type, kLastPresetGradient);
    return build;
}

FillBuild presetTextureBuild(std::int32_t texture) {
    FillBuild build;
    build.type = MsoFillType::msoFillTextured;
    build.textureType = MsoTextureType::msoTexturePreset;
    build.presetTexture = checked("textura", texture, kLastTexture);
    return build;
}

FillBuild userTextureBuild(const std::string& file) {
    FillBuild build;
    build.type = MsoFillType::msoFillTextured;
    build.textureType = MsoTextureType::msoTextureUserDefined;
    build.textureName = file;
    return build;
}

float checkedTransparency(float transparency) {
    return checkedFraction("průhlednost", transparency);
}

void CommonFill::add(const HostFill& fill) {
    if (!any_) {
        any_ = true;
        common_ = fill;
        return;
    }
    constexpr auto kMixedFraction = static_cast<float>(host::kMixed);
    join(common_.visible, fill.visible, host::MsoTriState::msoTriStateMixed);
    join(common_.foreColor, fill.foreColor, host::kMixed);
    join(common_.backColor, fill.backColor, host::kMixed);
    join(common_.transparency, fill.transparency, kMixedFraction);
    join(common_.type, fill.type, MsoFillType::msoFillMixed);
    join(common_.gradientStyle, fill.gradientStyle, host::kMixed);
    join(common_.gradientColorType, fill.gradientColorType,
         MsoGradientColorType::msoGradientColorMixed);
    join(common_.gradientVariant, fill.gradientVariant, host::kMixed);
    join(common_.gradientDegree, fill.gradientDegree, kMixedFraction);
    join(common_.presetGradientType, fill.presetGradientType, host::kMixed);
    join(common_.textureType, fill.textureType, MsoTextureType::msoTextureTypeMixed);
    join(common_.presetTexture, fill.presetTexture, host::kMixed);
    join(common_.pattern, fill.pattern, host::kMixed);
    join(common_.textureName, fill.textureName, std::optional<std::string>());
    join(common_.stopsMark, fill.stopsMark, host::kMixed);
}

}  // namespace huebrush::mapping
