// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/Enumerations.h"
#include "host/FillProperties.h"

namespace huebrush::host {

/// The fill of a shape, or of all shapes of a range at once. Every call goes to the host and may
/// throw base::Error with the host's number; a property whose value differs among the shapes of a
/// range reads as kMixed. Colours are RGB, red in the low byte. Transparency runs from 0.0 (opaque)
/// to 1.0 (clear), GradientDegree from 0.0 (dark) to 1.0 (light).
class FillFormat {
 public:
    FillFormat() = default;
    FillFormat(const FillFormat&) = delete;
    FillFormat& operator=(const FillFormat&) = delete;
    virtual ~FillFormat() = default;

    virtual MsoTriState Visible() = 0;
    virtual void setVisible(MsoTriState visible) = 0;
    /// `ForeColor.RGB` and `BackColor.RGB` of the host.
    virtual std::int32_t ForeColorRGB() = 0;
    virtual void setForeColorRGB(std::int32_t color) = 0;
    virtual std::int32_t BackColorRGB() = 0;
    virtual void setBackColorRGB(std::int32_t color) = 0;
    virtual float Transparency() = 0;
    virtual void setTransparency(float transparency) = 0;

    virtual MsoFillType Type() = 0;
    virtual std::int32_t GradientStyle() = 0;
    virtual MsoGradientColorType GradientColorType() = 0;
    virtual std::int32_t GradientVariant() = 0;
    virtual float GradientDegree() = 0;
    virtual std::int32_t PresetGradientType() = 0;
    virtual MsoTextureType TextureType() = 0;
    virtual std::int32_t PresetTexture() = 0;
    /// The file of a user texture. A host may refuse to name it (an error).
    virtual std::string TextureName() = 0;
    virtual std::int32_t Pattern() = 0;

    /// The current values of all properties above, for a host that has them at hand: the scan
    /// compares each fill with thousands of others. Valid until something is written or events
    /// run. Nothing when the host has to be asked for each one.
    virtual const FillProperties* known() { return nullptr; }

    // The calls that build a fill of one type from the colours that the fill has at the moment.
    virtual void Solid() = 0;
    virtual void Patterned(std::int32_t pattern) = 0;
    virtual void OneColorGradient(std::int32_t style, std::int32_t variant, float degree) = 0;
    virtual void TwoColorGradient(std::int32_t style, std::int32_t variant) = 0;
    virtual void PresetGradient(std::int32_t style, std::int32_t variant, std::int32_t type) = 0;
    virtual void PresetTextured(std::int32_t texture) = 0;
    virtual void UserTextured(const std::string& file) = 0;

    /// The colours of all stops of a gradient that has more than its two ends, in their order;
    /// empty for every other fill, and in a host that has no such gradients.
    virtual std::vector<std::int32_t> GradientStops() { return {}; }
    /// Gives the stops other colours: as many as there are. All else of the fill stays.
    virtual void setGradientStops(const std::vector<std::int32_t>& colors) {
        static_cast<void>(colors);
    }
};

}  // namespace huebrush::host
