#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/FillFormat.h"
#include "ports/libreoffice/document/OpenDocument.h"

namespace huebrush::libreoffice {

/// The fill of some shapes. Writes are gathered, because each one to the office costs as much as
/// thousands of reads here, and carried out together: when visibility is written after others (a
/// whole fill ends or begins with it), before any read or other use of the document, and at the end
/// of this object.
/// What can be wrong with a call's arguments, or with the shapes, is an error of that call.
///
/// The logic compares each fill with thousands of others, so where the last answer is kept is known
/// here, together with what says whether it still holds.
class BufferedFill : public host::FillFormat {
 public:
    explicit BufferedFill(std::shared_ptr<OpenDocument> document)
        : document_(std::move(document)) {}
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

    /// Carries out what was gathered.
    void commit();

 protected:
    OpenDocument& document() const { return *document_; }
    /// The answer of the shapes.
    virtual HostFill answer() = 0;
    /// The shapes, groups taken apart.
    virtual std::vector<NodePointer> leaves() = 0;

 private:
    /// Writes that are gathered. Most fills are never written.
    struct Writing {
        FillEdit edit;
        /// The shapes that it is for.
        std::vector<NodePointer> leaves;
        std::string userPicture;
        /// Colours written since the last build: one that the fill does not use is still there for
        /// the next build.
        std::optional<std::int32_t> foreColor;
        std::optional<std::int32_t> backColor;
    };

    const host::FillProperties& read() {
        if (!document_->holds(stamp_)) refresh();
        return *answer_;
    }
    void refresh();
    Writing& writing();
    void build(const FillBuild& build);

    std::shared_ptr<OpenDocument> document_;
    OpenDocument::Stamp stamp_ = 0;
    const host::FillProperties* answer_ = nullptr;
    std::unique_ptr<Writing> writing_;
};

/// The fill of one shape or group.
class ShapeFillFormat final : public BufferedFill {
 public:
    ShapeFillFormat(std::shared_ptr<OpenDocument> document, NodePointer node)
        : BufferedFill(std::move(document)), node_(std::move(node)) {}

 protected:
    HostFill answer() override { return document().fillOf(*node_); }
    std::vector<NodePointer> leaves() override;

 private:
    NodePointer node_;
};

/// One fill for several shapes and groups.
class RangeFillFormat final : public BufferedFill {
 public:
    RangeFillFormat(std::shared_ptr<OpenDocument> document, std::vector<NodePointer> nodes)
        : BufferedFill(std::move(document)), nodes_(std::move(nodes)) {}

 protected:
    HostFill answer() override { return document().commonFillOf(nodes_); }
    std::vector<NodePointer> leaves() override;

 private:
    std::vector<NodePointer> nodes_;
};

}  // namespace huebrush::libreoffice
