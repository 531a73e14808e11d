// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "host/FillFormat.h"
#include "host/Shape.h"
#include "ports/word/com/Object.h"

namespace huebrush::word {

/// The fill of one of Word's shapes or ranges, which is asked for when it is first needed.
class WordFill final : public host::FillFormat {
 public:
    explicit WordFill(Object owner) : owner_(std::move(owner)) {}

    host::MsoTriState Visible() override;
    void setVisible(host::MsoTriState visible) override;
    std::int32_t ForeColorRGB() override;
    void setForeColorRGB(std::int32_t color) override;
    std::int32_t BackColorRGB() override;
    void setBackColorRGB(std::int32_t color) override;
    float Transparency() override;
    void setTransparency(float transparency) override;
    host::MsoFillType Type() override;
    std::int32_t GradientStyle() override;
    host::MsoGradientColorType GradientColorType() override;
    std::int32_t GradientVariant() override;
    float GradientDegree() override;
    std::int32_t PresetGradientType() override;
    host::MsoTextureType TextureType() override;
    std::int32_t PresetTexture() override;
    std::string TextureName() override;
    std::int32_t Pattern() override;
    void Solid() override;
    void Patterned(std::int32_t pattern) override;
    void OneColorGradient(std::int32_t style, std::int32_t variant, float degree) override;
    void TwoColorGradient(std::int32_t style, std::int32_t variant) override;
    void PresetGradient(std::int32_t style, std::int32_t variant, std::int32_t type) override;
    void PresetTextured(std::int32_t texture) override;
    void UserTextured(const std::string& file) override;

 private:
    const Object& fill();
    template <class Value = std::int32_t>
    Value number(const char* property);
    Object color(const char* property);

    Object owner_;
    Object fill_;
};

/// The line of one of Word's shapes.
class WordLine final : public host::LineFormat {
 public:
    explicit WordLine(Object owner) : owner_(std::move(owner)) {}

    host::MsoTriState Visible() override;
    void setVisible(host::MsoTriState visible) override;
    std::int32_t ForeColorRGB() override;
    void setForeColorRGB(std::int32_t color) override;

 private:
    const Object& line();

    Object owner_;
    Object line_;
};

}  // namespace huebrush::word
