// SPDX-License-Identifier: MPL-2.0

#include "recolor/FillWords.h"

#include <cmath>

#include "base/Color.h"
#include "base/Text.h"

namespace huebrush::recolor {

namespace {

using base::text;
using base::toHex;
using host::MsoFillType;
using host::MsoGradientColorType;
using host::MsoTextureType;

std::string gradientWords(const fill::FillProperties& fill) {
    switch (fill.GradientColorType) {
        case MsoGradientColorType::msoGradientOneColor:
            return text("přechod ", toHex(fill.ForeColorRGB));
        case MsoGradientColorType::msoGradientTwoColors:
            return text("přechod ", toHex(fill.ForeColorRGB), " až ", toHex(fill.BackColorRGB));
        case MsoGradientColorType::msoGradientPresetColors:
            return text("přednastavený přechod ", fill.PresetGradientType);
        default:
            return "přechod";
    }
}

std::string textureWords(const fill::FillProperties& fill) {
    if (fill.TextureType == MsoTextureType::msoTexturePreset) {
        return text("přednastavená textura ", fill.PresetTexture);
    }
    return fill.TextureName.empty() ? "textura" : text("textura ", fill.TextureName);
}

std::string bodyWords(const fill::FillProperties& fill) {
    switch (fill.Type) {
        case MsoFillType::msoFillSolid:
            return toHex(fill.ForeColorRGB);
        case MsoFillType::msoFillPatterned:
            return text("vzorek ", fill.Pattern, ", ", toHex(fill.ForeColorRGB), " na ",
                        toHex(fill.BackColorRGB));
        case MsoFillType::msoFillGradient:
            return gradientWords(fill);
        case MsoFillType::msoFillTextured:
            return textureWords(fill);
        case MsoFillType::msoFillPicture:
            return "obrázek";
        case MsoFillType::msoFillBackground:
            return "pozadí";
        default:
            return "různé výplně";
    }
}

}  // namespace

std::string wordsOf(const fill::FillProperties& fill) {
    if (fill.Visible == host::MsoTriState::msoFalse) return "bez výplně";
    std::string words = bodyWords(fill);
    constexpr float kPerCent = 100;
    const auto transparency = std::lround(fill.Transparency * kPerCent);
    if (transparency != 0) words += text(", průhlednost ", transparency, " %");
    return words;
}

std::string objectsText(std::size_t count) {
    constexpr std::size_t kFew = 4;
    if (count == 1) return "1 objekt";
    return text(count, count >= 2 && count <= kFew ? " objekty" : " objektů");
}

}  // namespace huebrush::recolor
