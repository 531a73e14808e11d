// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>

#include "host/Enumerations.h"

namespace huebrush::host {

/// The sixteen properties of a fill as plain values. The comment gives each one's place in the
/// order of the record columns. A new one describes no fill.
struct FillProperties {
    MsoTriState Visible{};                     // 1
    std::int32_t ForeColorRGB = 0;             // 2, red in the low byte
    std::int32_t BackColorRGB = 0;             // 3
    float Transparency = 0;                    // 4, 0.0 opaque to 1.0 clear
    std::int32_t GradientStyle = 0;            // 5
    MsoGradientColorType GradientColorType{};  // 6
    std::int32_t GradientVariant = 0;          // 7
    float GradientDegree = 0;                  // 8, of one-colour gradients only
    std::int32_t PresetGradientType = 0;       // 9
    MsoFillType Type{};                        // 10
    MsoTextureType TextureType{};              // 11
    std::int32_t PresetTexture = 0;            // 12
    std::string TextureName;                   // 13, of user textures only
    bool UnknownTexture = false;               // 14, the host refused the name
    std::int32_t Pattern = 0;                  // 15
    std::string PictureName;                   // 16, only carried to and from palettes

    friend bool operator==(const FillProperties&, const FillProperties&) = default;
};

}  // namespace huebrush::host
