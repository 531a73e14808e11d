// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/Document.h"
#include "ports/memory/CallLog.h"

namespace huebrush::memory {

class MemoryDocument;
class MemoryShape;

/// The values of a fill, as the memory host keeps them: whatever a test sets stays set, the values
/// that a fill type does not use included.
struct FillState : host::FillProperties {
    FillState() {
        Visible = host::MsoTriState::msoTrue;
        ForeColorRGB = BackColorRGB = 0xFFFFFF;
        Type = host::MsoFillType::msoFillSolid;
        GradientStyle = GradientVariant = PresetGradientType = host::kMixed;
        GradientColorType = host::MsoGradientColorType::msoGradientColorMixed;
        TextureType = host::MsoTextureType::msoTextureTypeMixed;
        PresetTexture = Pattern = host::kMixed;
    }

    /// The host gives all properties at once, as some hosts do.
    bool givenAtOnce = false;
    /// Of a gradient that has more than its two ends.
    std::vector<std::int32_t> stops = {};

    friend bool operator==(const FillState&, const FillState&) = default;
};

/// The fill of one shape, or of the shapes of a range: reads answer the common value or mixed.
class MemoryFill final : public host::FillFormat {
 public:
    using States = std::function<std::vector<FillState*>()>;

    /// The fill of one shape.
    MemoryFill(CallLog& log, std::string owner, FillState& state);
    /// The fill of several; `states` finds them at each call and may throw.
    MemoryFill(CallLog& log, std::string owner, States states);

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
    const host::FillProperties* known() override;
    void Solid() override;
    void Patterned(std::int32_t pattern) override;
    void OneColorGradient(std::int32_t style, std::int32_t variant, float degree) override;
    void TwoColorGradient(std::int32_t style, std::int32_t variant) override;
    void PresetGradient(std::int32_t style, std::int32_t variant, std::int32_t type) override;
    void PresetTextured(std::int32_t texture) override;
    void UserTextured(const std::string& file) override;
    std::vector<std::int32_t> GradientStops() override;
    void setGradientStops(const std::vector<std::int32_t>& colors) override;

    void setOwner(std::string owner) { owner_ = std::move(owner); }
    /// Every use fails from now on: the shape has been deleted.
    void setDeleted() { deleted_ = true; }

 private:
    template <class Value>
    Value read(const char* property, Value host::FillProperties::*member, Value mixed);
    template <class Value>
    void write(const char* property, Value host::FillProperties::*member, const Value& value,
               const std::string& shown);
    void call(const std::string& operation, const std::function<void(FillState&)>& change);
    void requireAlive() const;

    CallLog& log_;
    std::string owner_;
    FillState* single_ = nullptr;
    States states_;
    bool deleted_ = false;
};

class MemoryLine final : public host::LineFormat {
 public:
    explicit MemoryLine(MemoryShape& shape) : shape_(shape) {}
    host::MsoTriState Visible() override;
    void setVisible(host::MsoTriState visible) override;
    std::int32_t ForeColorRGB() override;
    void setForeColorRGB(std::int32_t color) override;

 private:
    template <class Value>
    void write(Value MemoryShape::*member, Value value);

    MemoryShape& shape_;
};

/// A shape or a group of the memory host. A test reads and sets its state directly; the logic goes
/// through the interface, and its calls are logged.
class MemoryShape final : public host::Shape, public std::enable_shared_from_this<MemoryShape> {
 public:
    MemoryShape(MemoryDocument& document, std::string name, host::MsoShapeType type);

    std::string Name() override;
    host::MsoShapeType Type() override;
    std::shared_ptr<host::ShapeList> GroupItems() override;
    host::FillFormat& Fill() override { return fill_; }
    host::LineFormat& Line() override { return line_; }
    void Select() override;

    FillState fill;
    host::MsoTriState lineVisible = host::MsoTriState::msoTrue;
    std::int32_t lineColor = 0;
    std::vector<std::shared_ptr<MemoryShape>> members;
    bool deleted = false;

    const std::string& name() const { return name_; }
    host::MsoShapeType type() const { return type_; }
    MemoryDocument& document() { return document_; }
    void rename(std::string name);
    /// Marks the shape and its members as deleted: every use fails from now on.
    void markDeleted();
    void requireAlive() const;
    /// The fills of the leaf shapes: its own, or those of the members at every depth.
    void collectFills(std::vector<FillState*>& fills);
    void collectLeaves(std::vector<MemoryShape*>& leaves);

 private:
    friend class MemoryLine;
    MemoryDocument& document_;
    std::string name_;
    host::MsoShapeType type_;
    MemoryFill fill_;
    MemoryLine line_;
};

using MemoryShapePointer = std::shared_ptr<MemoryShape>;

/// Several shapes of a document: a selection, a range, the members of a group.
class MemoryRange final : public host::ShapeRange {
 public:
    MemoryRange(MemoryDocument& document, std::string name, std::vector<MemoryShapePointer> shapes);

    std::int32_t Count() override;
    host::ShapePointer Item(std::int32_t index) override;
    host::FillFormat& Fill() override { return fill_; }
    void Select() override;

 private:
    MemoryDocument& document_;
    std::string name_;
    std::vector<MemoryShapePointer> shapes_;
    MemoryFill fill_;
};

}  // namespace huebrush::memory
