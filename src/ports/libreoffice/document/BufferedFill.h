// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/FillFormat.h"
#include "ports/libreoffice/document/OpenDocument.h"

namespace huebrush::libreoffice {

/// The fill of a shape or group, or one fill for several of them. What is set is gathered by the
/// document's FillWriter, and carried out when visibility is set after something else (a whole fill
/// ends or begins with it), before any read or other use of the document, and at the end of this
/// object. What can be wrong with a call's arguments, or with the shapes, is an error of that call.
///
/// The logic compares each fill with thousands of others, so where the last answer is kept is known
/// here, together with what says whether it still holds.
class BufferedFill final : public host::FillFormat {
 public:
    BufferedFill(std::shared_ptr<OpenDocument> document, ShapeHandles shapes)
        : document_(std::move(document)), shapes_(std::move(shapes)) {}
    BufferedFill(const BufferedFill&) = delete;
    BufferedFill& operator=(const BufferedFill&) = delete;
    ~BufferedFill() override;

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
    const host::FillProperties* known() override {
        const host::FillProperties& answer = read();
        return stamp_ == 0 ? nullptr : &answer;
    }

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

 private:
    const host::FillProperties& read() {
        if (!document_->holds(stamp_)) refresh();
        return *answer_;
    }
    void refresh();
    FillWriter::Gathered& gather() { return document_->fills().gather(*this, shapes_); }
    void build(const mapping::FillBuild& build);

    std::shared_ptr<OpenDocument> document_;
    ShapeHandles shapes_;
    OpenDocument::Stamp stamp_ = 0;
    const host::FillProperties* answer_ = nullptr;
    /// Colours set since a whole fill was: one that the fill does not use is still there for the
    /// next build.
    std::optional<std::int32_t> foreColor_;
    std::optional<std::int32_t> backColor_;
};

}  // namespace huebrush::libreoffice
