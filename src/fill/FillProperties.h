// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>

#include "host/FillFormat.h"
#include "host/FillProperties.h"

namespace huebrush::fill {

using host::FillProperties;

/// One property: its name, where a copy keeps it, and how a host's fill gives it. The properties
/// that no host gives (14 and 16) have no reader.
template <class Value>
struct FillProperty {
    const char* name;
    Value FillProperties::*member;
    Value (host::FillFormat::*read)();
};

/// The table of the properties: the only place that ties names, copies and hosts together. Which
/// of them an operation touches, and in which order, is that operation's own list.
namespace property {
using host::FillFormat;
inline constexpr FillProperty<host::MsoTriState> kVisible{"Visible", &FillProperties::Visible,
                                                          &FillFormat::Visible};
inline constexpr FillProperty<std::int32_t> kForeColorRGB{
    "ForeColorRGB", &FillProperties::ForeColorRGB, &FillFormat::ForeColorRGB};
inline constexpr FillProperty<std::int32_t> kBackColorRGB{
    "BackColorRGB", &FillProperties::BackColorRGB, &FillFormat::BackColorRGB};
inline constexpr FillProperty<float> kTransparency{"Transparency", &FillProperties::Transparency,
                                                   &FillFormat::Transparency};
inline constexpr FillProperty<std::int32_t> kGradientStyle{
    "GradientStyle", &FillProperties::GradientStyle, &FillFormat::GradientStyle};
inline constexpr FillProperty<host::MsoGradientColorType> kGradientColorType{
    "GradientColorType", &FillProperties::GradientColorType, &FillFormat::GradientColorType};
inline constexpr FillProperty<std::int32_t> kGradientVariant{
    "GradientVariant", &FillProperties::GradientVariant, &FillFormat::GradientVariant};
inline constexpr FillProperty<float> kGradientDegree{
    "GradientDegree", &FillProperties::GradientDegree, &FillFormat::GradientDegree};
inline constexpr FillProperty<std::int32_t> kPresetGradientType{
    "PresetGradientType", &FillProperties::PresetGradientType, &FillFormat::PresetGradientType};
inline constexpr FillProperty<host::MsoFillType> kType{"Type", &FillProperties::Type,
                                                       &FillFormat::Type};
inline constexpr FillProperty<host::MsoTextureType> kTextureType{
    "TextureType", &FillProperties::TextureType, &FillFormat::TextureType};
inline constexpr FillProperty<std::int32_t> kPresetTexture{
    "PresetTexture", &FillProperties::PresetTexture, &FillFormat::PresetTexture};
inline constexpr FillProperty<std::string> kTextureName{"TextureName", &FillProperties::TextureName,
                                                        &FillFormat::TextureName};
inline constexpr FillProperty<bool> kUnknownTexture{"UnknownTexture",
                                                    &FillProperties::UnknownTexture, nullptr};
inline constexpr FillProperty<std::int32_t> kPattern{"Pattern", &FillProperties::Pattern,
                                                     &FillFormat::Pattern};
inline constexpr FillProperty<std::string> kPictureName{"PictureName", &FillProperties::PictureName,
                                                        nullptr};
}  // namespace property

/// Calls `visit` for each of the given properties, in the order given.
template <class Visit, class... Properties>
constexpr void forEachProperty(const Visit& visit, const Properties&... properties) {
    (visit(properties), ...);
}

/// All sixteen, in the order of the record columns.
template <class Visit>
constexpr void forEveryProperty(const Visit& visit) {
    using namespace property;
    forEachProperty(visit, kVisible, kForeColorRGB, kBackColorRGB, kTransparency, kGradientStyle,
                    kGradientColorType, kGradientVariant, kGradientDegree, kPresetGradientType,
                    kType, kTextureType, kPresetTexture, kTextureName, kUnknownTexture, kPattern,
                    kPictureName);
}

/// Whether a captured or live gradient has a degree of its own, and a texture a name: the two
/// conditions that all operations share.
constexpr bool hasDegree(host::MsoGradientColorType type) {
    return type == host::MsoGradientColorType::msoGradientOneColor;
}
constexpr bool hasTextureName(host::MsoFillType type, host::MsoTextureType textureType) {
    return type == host::MsoFillType::msoFillTextured &&
           textureType == host::MsoTextureType::msoTextureUserDefined;
}

}  // namespace huebrush::fill
