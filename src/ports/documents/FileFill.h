// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/FillFormat.h"
#include "ports/documents/ShapeTree.h"

namespace huebrush::documents {

/// The fill of a shape, or one for the shapes of a group or range. What is set is there at once;
/// the file gets it when the document is written.
class FileFill final : public host::FillFormat {
 public:
    explicit FileFill(std::vector<NodePointer> shapes) : shapes_(std::move(shapes)) {}

    host::MsoTriState Visible() override { return read().Visible; }
    std::int32_t ForeColorRGB() override { return read().ForeColorRGB; }
    std::int32_t BackColorRGB() override { return read().BackColorRGB; }
    float Transparency() override { return read().Transparency; }
    host::MsoFillType Type() override { return read().Type; }
    std::int32_t GradientStyle() override { return read().GradientStyle; }
    host::MsoGradientColorType GradientColorType() override { return read().GradientColorType; }
    std::int32_t GradientVariant() override { return read().GradientVariant; }
    float GradientDegree() override { return read().GradientDegree; }
    std::int32_t PresetGradientType() override { return read().PresetGradientType; }
    host::MsoTextureType TextureType() override { return read().TextureType; }
    std::int32_t PresetTexture() override { return read().PresetTexture; }
    std::string TextureName() override;
    std::int32_t Pattern() override { return read().Pattern; }
    const host::FillProperties* known() override { return &read(); }

    void setVisible(host::MsoTriState visible) override;
    void setForeColorRGB(std::int32_t color) override;
    void setBackColorRGB(std::int32_t color) override;
    void setTransparency(float transparency) override;
    void Solid() override;
    void Patterned(std::int32_t pattern) override;
    void OneColorGradient(std::int32_t style, std::int32_t variant, float degree) override;
    void TwoColorGradient(std::int32_t style, std::int32_t variant) override;
    void PresetGradient(std::int32_t style, std::int32_t variant, std::int32_t type) override;
    void PresetTextured(std::int32_t texture) override;
    void UserTextured(const std::string& file) override;
    std::vector<std::int32_t> GradientStops() override;
    void setGradientStops(const std::vector<std::int32_t>& colors) override;

 private:
    const host::FillProperties& read();
    void build(const mapping::FillBuild& build, const std::string& picture = {});
    void write(const mapping::FillWrites& writes, const std::string* picture = nullptr);

    std::vector<NodePointer> shapes_;
    /// The answer of several shapes.
    std::unique_ptr<host::FillProperties> common_;
    /// Colours that have been set: one that the fill does not use is still there for the next
    /// build.
    std::optional<std::int32_t> foreColor_;
    std::optional<std::int32_t> backColor_;
};

}  // namespace huebrush::documents
