// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>

#include "fill/FillProperties.h"

namespace huebrush::fill {

template <class Get>
void applyGradient(host::FillFormat& target, const Get& get) {
    using namespace property;
    const auto colorType = get(kGradientColorType);
    if (colorType == host::MsoGradientColorType::msoGradientOneColor) {
        const std::int32_t style = get(kGradientStyle);
        const std::int32_t variant = get(kGradientVariant);
        target.OneColorGradient(style, variant, get(kGradientDegree));
    } else if (colorType == host::MsoGradientColorType::msoGradientTwoColors) {
        const std::int32_t style = get(kGradientStyle);
        target.TwoColorGradient(style, get(kGradientVariant));
    } else if (colorType == host::MsoGradientColorType::msoGradientPresetColors) {
        const std::int32_t style = get(kGradientStyle);
        const std::int32_t variant = get(kGradientVariant);
        target.PresetGradient(style, variant, get(kPresetGradientType));
    }
}

/// Calls the host's operation that builds a fill of the type that `get` gives, with the values that
/// it gives, and nothing for a type that cannot be built. `get(property)` answers the value of a
/// property at the moment it is needed; `userTexture()` builds the user texture.
template <class Get, class UserTexture>
void applyFillType(host::FillFormat& target, const Get& get, const UserTexture& userTexture) {
    using namespace property;
    switch (get(kType)) {
        case host::MsoFillType::msoFillSolid:
            target.Solid();
            break;
        case host::MsoFillType::msoFillPatterned:
            target.Patterned(get(kPattern));
            break;
        case host::MsoFillType::msoFillGradient:
            applyGradient(target, get);
            break;
        case host::MsoFillType::msoFillTextured:
            switch (get(kTextureType)) {
                case host::MsoTextureType::msoTexturePreset:
                    target.PresetTextured(get(kPresetTexture));
                    break;
                case host::MsoTextureType::msoTextureUserDefined:
                    userTexture();
                    break;
                default:
                    break;
            }
            break;
        default:
            break;
    }
}

}  // namespace huebrush::fill
