// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/Enumerations.h"
#include "host/FillProperties.h"

namespace huebrush::mapping {

/// What a property answers that the fill's type does not use: always the same, so that fills that
/// look equal are equal. (The host's own answers there are leftovers of earlier fills.)
namespace Unused {
inline constexpr std::int32_t kColor = 0xFFFFFF;
inline constexpr std::int32_t kNumber = host::kMixed;
inline constexpr float kDegree = 0.0F;
}  // namespace Unused

/// The properties that a call like Solid() or Patterned() decides, all at once.
struct FillBuild {
    host::MsoFillType type = host::MsoFillType::msoFillSolid;
    std::int32_t gradientStyle = Unused::kNumber;
    host::MsoGradientColorType gradientColorType =
        host::MsoGradientColorType::msoGradientColorMixed;
    std::int32_t gradientVariant = Unused::kNumber;
    float gradientDegree = Unused::kDegree;
    std::int32_t presetGradientType = Unused::kNumber;
    host::MsoTextureType textureType = host::MsoTextureType::msoTextureTypeMixed;
    std::int32_t presetTexture = Unused::kNumber;
    std::int32_t pattern = Unused::kNumber;
    /// The file of a user texture; nothing where it is not known.
    std::optional<std::string> textureName = std::string();

    friend bool operator==(const FillBuild&, const FillBuild&) = default;
};

/// A fill in the object model's terms. Colours have red in the low byte.
struct HostFill : FillBuild {
    host::MsoTriState visible = host::MsoTriState::msoFalse;
    std::int32_t foreColor = Unused::kColor;
    std::int32_t backColor = Unused::kColor;
    float transparency = 0.0F;
    /// The object model has no property for colours between the ends of a gradient, or of a
    /// gradient of transparency. This number stands for them: 0 without any, else beyond the values
    /// of every enumeration, and the same only for the same ones. propertiesOf() answers it as a
    /// property that the fill's type does not use, so that the fills differ; it is never written.
    std::int32_t stopsMark = 0;

    friend bool operator==(const HostFill&, const HostFill&) = default;

    bool shown() const { return visible != host::MsoTriState::msoFalse; }
    bool usesForeColor() const;
    bool usesBackColor() const;
};

/// The fill as its properties answer.
host::FillProperties propertiesOf(const HostFill& fill);

/// Writes to one fill that are carried out together. A part that was not written is left out.
struct FillWrites {
    std::optional<std::int32_t> foreColor = std::nullopt;
    std::optional<std::int32_t> backColor = std::nullopt;
    std::optional<FillBuild> build = std::nullopt;
    std::optional<float> transparency = std::nullopt;
    std::optional<host::MsoTriState> visible = std::nullopt;

    bool empty() const { return !foreColor && !backColor && !build && !transparency && !visible; }
};

/// The fill after the edit. A colour that the fill's type does not use is dropped.
HostFill edited(const HostFill& fill, const FillWrites& edit);

// The calls' arguments as a build; an error (5) where the object model has no such value.
FillBuild solidBuild();
FillBuild patternBuild(std::int32_t pattern);
FillBuild oneColorBuild(std::int32_t style, std::int32_t variant, float degree);
FillBuild twoColorBuild(std::int32_t style, std::int32_t variant);
FillBuild presetGradientBuild(std::int32_t style, std::int32_t variant, std::int32_t type);
FillBuild presetTextureBuild(std::int32_t texture);
FillBuild userTextureBuild(const std::string& file);
/// A transparency as the object model takes it; an error (5) outside 0 to 1.
float checkedTransparency(float transparency);

/// The common answer of several fills: kMixed, property by property, where they differ.
/// A file name that differs is not known.
class CommonFill {
 public:
    void add(const HostFill& fill);
    /// One without fill when nothing was added.
    const HostFill& value() const { return common_; }

 private:
    bool any_ = false;
    HostFill common_;
};

}  // namespace huebrush::mapping
