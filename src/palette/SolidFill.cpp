// SPDX-License-Identifier: MPL-2.0

#include "palette/SolidFill.h"

#include <cstdint>

#include "base/Bitmap.h"

namespace huebrush::palette {

namespace {

constexpr std::int32_t kPixelsWide = 81;
constexpr std::int32_t kPixelsHigh = 25;

}  // namespace

fill::FillProperties solidFill(base::Rgb color) {
    fill::FillProperties fill;
    fill.Visible = host::MsoTriState::msoTrue;
    fill.Type = host::MsoFillType::msoFillSolid;
    fill.ForeColorRGB = color;
    fill.BackColorRGB = base::rgb(255, 255, 255);
    fill.GradientStyle = host::kMixed;
    fill.GradientColorType = host::MsoGradientColorType::msoGradientColorMixed;
    fill.GradientVariant = host::kMixed;
    fill.PresetGradientType = host::kMixed;
    fill.TextureType = host::MsoTextureType::msoTextureTypeMixed;
    fill.PresetTexture = host::kMixed;
    fill.Pattern = host::kMixed;
    return fill;
}

jet::Value previewOf(const fill::FillProperties& fill) {
    const bool isSolid =
        fill.Visible == host::MsoTriState::msoTrue && fill.Type == host::MsoFillType::msoFillSolid;
    // Palettes store whole numbers: a transparency of less than a half is none.
    if (!isSolid || jet::toLong(fill.Transparency) != 0) return {};
    return base::bitmapFileIn(fill.ForeColorRGB, kPixelsWide, kPixelsHigh);
}

}  // namespace huebrush::palette
