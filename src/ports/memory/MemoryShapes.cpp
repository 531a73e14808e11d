// SPDX-License-Identifier: MPL-2.0

#include "ports/memory/MemoryShapes.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "base/Text.h"
#include "ports/memory/MemoryHost.h"

namespace huebrush::memory {

namespace {

constexpr std::int32_t kDeletedShape = -2147024809;
constexpr std::int32_t kRefusedTextureName = -2147467259;

using base::text;
using host::MsoFillType;
using host::MsoGradientColorType;
using host::MsoTextureType;
using host::MsoTriState;

[[noreturn]] void throwDeleted(const std::string& owner) {
    throw base::Error(kDeletedShape, text("Objekt „", owner, "“ byl odstraněn."));
}

template <class Enumeration>
std::string number(Enumeration value) {
    return text(static_cast<std::int32_t>(value));
}

std::string number(float value) {
    std::string shown = std::to_string(value);
    shown.erase(shown.find_last_not_of('0') + 1);
    if (shown.ends_with('.')) shown.pop_back();
    return shown;
}

}  // namespace

MemoryFill::MemoryFill(CallLog& log, std::string owner, FillState& state)
    : log_(log), owner_(std::move(owner)), single_(&state) {}

MemoryFill::MemoryFill(CallLog& log, std::string owner, States states)
    : log_(log), owner_(std::move(owner)), states_(std::move(states)) {}

void MemoryFill::requireAlive() const {
    if (deleted_) throwDeleted(owner_);
}

template <class Value>
Value MemoryFill::read(const char* property, Value host::FillProperties::*member, Value mixed) {
    log_.note([&] { return text("read ", owner_, ".Fill.", property); });
    requireAlive();
    if (single_ != nullptr) return single_->*member;
    const std::vector<FillState*> states = states_();
    if (states.empty()) return mixed;
    const Value& first = states.front()->*member;
    const bool common = std::all_of(states.begin(), states.end(),
                                    [&](FillState* state) { return state->*member == first; });
    return common ? first : mixed;
}

template <class Value>
void MemoryFill::write(const char* property, Value host::FillProperties::*member,
                       const Value& value, const std::string& shown) {
    log_.note([&] { return text("write ", owner_, ".Fill.", property, " ", shown); });
    requireAlive();
    if (single_ != nullptr) {
        single_->*member = value;
        return;
    }
    for (FillState* const state : states_()) state->*member = value;
}

void MemoryFill::call(const std::string& operation, const std::function<void(FillState&)>& change) {
    log_.note([&] { return text("call ", owner_, ".Fill.", operation); });
    requireAlive();
    if (single_ != nullptr) {
        change(*single_);
        return;
    }
    for (FillState* const state : states_()) change(*state);
}

MsoTriState MemoryFill::Visible() {
    return read("Visible", &FillState::Visible, MsoTriState::msoTriStateMixed);
}
void MemoryFill::setVisible(MsoTriState visible) {
    write("Visible", &FillState::Visible, visible, number(visible));
}
std::int32_t MemoryFill::ForeColorRGB() {
    return read("ForeColor.RGB", &FillState::ForeColorRGB, host::kMixed);
}
void MemoryFill::setForeColorRGB(std::int32_t color) {
    write("ForeColor.RGB", &FillState::ForeColorRGB, color, text(color));
}
std::int32_t MemoryFill::BackColorRGB() {
    return read("BackColor.RGB", &FillState::BackColorRGB, host::kMixed);
}
void MemoryFill::setBackColorRGB(std::int32_t color) {
    write("BackColor.RGB", &FillState::BackColorRGB, color, text(color));
}
float MemoryFill::Transparency() {
    return read("Transparency", &FillState::Transparency, static_cast<float>(host::kMixed));
}
void MemoryFill::setTransparency(float transparency) {
    write("Transparency", &FillState::Transparency, transparency, number(transparency));
}
MsoFillType MemoryFill::Type() {
    return read("Type", &FillState::Type, MsoFillType::msoFillMixed);
}
std::int32_t MemoryFill::GradientStyle() {
    return read("GradientStyle", &FillState::GradientStyle, host::kMixed);
}
MsoGradientColorType MemoryFill::GradientColorType() {
    return read("GradientColorType", &FillState::GradientColorType,
                MsoGradientColorType::msoGradientColorMixed);
}
std::int32_t MemoryFill::GradientVariant() {
    return read("GradientVariant", &FillState::GradientVariant, host::kMixed);
}
float MemoryFill::GradientDegree() {
    return read("GradientDegree", &FillState::GradientDegree, static_cast<float>(host::kMixed));
}
std::int32_t MemoryFill::PresetGradientType() {
    return read("PresetGradientType", &FillState::PresetGradientType, host::kMixed);
}
MsoTextureType MemoryFill::TextureType() {
    return read("TextureType", &FillState::TextureType, MsoTextureType::msoTextureTypeMixed);
}
std::int32_t MemoryFill::PresetTexture() {
    return read("PresetTexture", &FillState::PresetTexture, host::kMixed);
}
std::string MemoryFill::TextureName() {
    const bool refused = read("TextureName", &FillState::UnknownTexture, true);
    if (refused) throw base::Error(kRefusedTextureName, "Název textury není k dispozici.");
    if (single_ != nullptr) return single_->TextureName;
    return states_().front()->TextureName;
}
std::int32_t MemoryFill::Pattern() {
    return read("Pattern", &FillState::Pattern, host::kMixed);
}
const host::FillProperties* MemoryFill::known() {
    requireAlive();
    return single_ != nullptr && single_->givenAtOnce ? single_ : nullptr;
}

void MemoryFill::Solid() {
    call("Solid", [](FillState& state) { state.Type = MsoFillType::msoFillSolid; });
}

void MemoryFill::Patterned(std::int32_t pattern) {
    call(text("Patterned ", pattern), [&](FillState& state) {
        state.Type = MsoFillType::msoFillPatterned;
        state.Pattern = pattern;
    });
}

namespace {
void makeGradient(FillState& state, MsoGradientColorType type, std::int32_t style,
                  std::int32_t variant) {
    state.Type = MsoFillType::msoFillGradient;
    state.GradientColorType = type;
    state.GradientStyle = style;
    state.GradientVariant = variant;
}
}  // namespace

void MemoryFill::OneColorGradient(std::int32_t style, std::int32_t variant, float degree) {
    call(text("OneColorGradient ", style, " ", variant, " ", number(degree)),
         [&](FillState& state) {
             makeGradient(state, MsoGradientColorType::msoGradientOneColor, style, variant);
             state.GradientDegree = degree;
         });
}

void MemoryFill::TwoColorGradient(std::int32_t style, std::int32_t variant) {
    call(text("TwoColorGradient ", style, " ", variant), [&](FillState& state) {
        makeGradient(state, MsoGradientColorType::msoGradientTwoColors, style, variant);
    });
}

void MemoryFill::PresetGradient(std::int32_t style, std::int32_t variant, std::int32_t type) {
    call(text("PresetGradient ", style, " ", variant, " ", type), [&](FillState& state) {
        makeGradient(state, MsoGradientColorType::msoGradientPresetColors, style, variant);
        state.PresetGradientType = type;
    });
}

void MemoryFill::PresetTextured(std::int32_t texture) {
    call(text("PresetTextured ", texture), [&](FillState& state) {
        state.Type = MsoFillType::msoFillTextured;
        state.TextureType = MsoTextureType::msoTexturePreset;
        state.PresetTexture = texture;
    });
}

std::vector<std::int32_t> MemoryFill::GradientStops() {
    requireAlive();
    return single_ == nullptr ? std::vector<std::int32_t>() : single_->stops;
}

void MemoryFill::setGradientStops(const std::vector<std::int32_t>& colors) {
    call(text("GradientStops ", colors.size()), [&](FillState& state) {
        state.stops = colors;
        state.ForeColorRGB = colors.front();
        state.BackColorRGB = colors.back();
    });
}

void MemoryFill::UserTextured(const std::string& file) {
    call(text("UserTextured ", file), [&](FillState& state) {
        state.Type = MsoFillType::msoFillTextured;
        state.TextureType = MsoTextureType::msoTextureUserDefined;
        state.TextureName = file;
        state.UnknownTexture = false;
    });
}

namespace {

/// The common value of the lines of a shape's leaves, or `mixed`.
template <class Value>
Value commonOfLeaves(MemoryShape& shape, Value MemoryShape::*member, Value mixed) {
    std::vector<MemoryShape*> leaves;
    shape.collectLeaves(leaves);
    if (leaves.empty()) return mixed;
    const Value first = leaves.front()->*member;
    const bool common = std::all_of(leaves.begin(), leaves.end(), [&](const MemoryShape* leaf) {
        return leaf->*member == first;
    });
    return common ? first : mixed;
}

}  // namespace

MsoTriState MemoryLine::Visible() {
    shape_.document().log().note([&] { return text("read ", shape_.name(), ".Line.Visible"); });
    shape_.requireAlive();
    return commonOfLeaves(shape_, &MemoryShape::lineVisible, MsoTriState::msoTriStateMixed);
}

void MemoryLine::setVisible(MsoTriState visible) {
    shape_.document().log().note(
        [&] { return text("write ", shape_.name(), ".Line.Visible ", number(visible)); });
    write(&MemoryShape::lineVisible, visible);
}

std::int32_t MemoryLine::ForeColorRGB() {
    shape_.document().log().note(
        [&] { return text("read ", shape_.name(), ".Line.ForeColor.RGB"); });
    shape_.requireAlive();
    return commonOfLeaves(shape_, &MemoryShape::lineColor, host::kMixed);
}

void MemoryLine::setForeColorRGB(std::int32_t color) {
    shape_.document().log().note(
        [&] { return text("write ", shape_.name(), ".Line.ForeColor.RGB ", color); });
    write(&MemoryShape::lineColor, color);
}

template <class Value>
void MemoryLine::write(Value MemoryShape::*member, Value value) {
    shape_.requireAlive();
    std::vector<MemoryShape*> leaves;
    shape_.collectLeaves(leaves);
    for (MemoryShape* const leaf : leaves) leaf->*member = value;
}

MemoryShape::MemoryShape(MemoryDocument& document, std::string name, host::MsoShapeType type)
    : document_(document),
      name_(std::move(name)),
      type_(type),
      fill_(type == host::MsoShapeType::msoGroup ? MemoryFill(document.log(), name_,
                                                              [this] {
                                                                  std::vector<FillState*> fills;
                                                                  collectFills(fills);
                                                                  return fills;
                                                              })
                                                 : MemoryFill(document.log(), name_, fill)),
      line_(*this) {}

void MemoryShape::requireAlive() const {
    if (deleted) throwDeleted(name_);
}

std::string MemoryShape::Name() {
    document_.log().note([&] { return text("read ", name_, ".Name"); });
    requireAlive();
    return name_;
}

host::MsoShapeType MemoryShape::Type() {
    document_.log().note([&] { return text("read ", name_, ".Type"); });
    requireAlive();
    return type_;
}

std::shared_ptr<host::ShapeList> MemoryShape::GroupItems() {
    document_.log().note([&] { return text("read ", name_, ".GroupItems"); });
    requireAlive();
    return std::make_shared<MemoryRange>(document_, text(name_, ".GroupItems"), members);
}

void MemoryShape::Select() {
    document_.log().note([&] { return text("call ", name_, ".Select"); });
    requireAlive();
    document_.select({shared_from_this()});
}

void MemoryShape::rename(std::string name) {
    name_ = std::move(name);
    fill_.setOwner(name_);
}

void MemoryShape::markDeleted() {
    deleted = true;
    fill_.setDeleted();
    for (const auto& member : members) member->markDeleted();
}

void MemoryShape::collectLeaves(std::vector<MemoryShape*>& leaves) {
    if (type_ != host::MsoShapeType::msoGroup) leaves.push_back(this);
    for (const auto& member : members) member->collectLeaves(leaves);
}

void MemoryShape::collectFills(std::vector<FillState*>& fills) {
    std::vector<MemoryShape*> leaves;
    collectLeaves(leaves);
    for (MemoryShape* const leaf : leaves) fills.push_back(&leaf->fill);
}

MemoryRange::MemoryRange(MemoryDocument& document, std::string name,
                         std::vector<MemoryShapePointer> shapes)
    : document_(document),
      name_(std::move(name)),
      shapes_(std::move(shapes)),
      fill_(document.log(), name_, [this] {
          std::vector<FillState*> fills;
          for (const auto& shape : shapes_) {
              shape->requireAlive();
              shape->collectFills(fills);
          }
          return fills;
      }) {}

std::int32_t MemoryRange::Count() {
    document_.log().note([&] { return text("read ", name_, ".Count"); });
    return static_cast<std::int32_t>(shapes_.size());
}

host::ShapePointer MemoryRange::Item(std::int32_t index) {
    document_.log().note([&] { return text("read ", name_, ".Item ", index); });
    if (index < 1 || index > static_cast<std::int32_t>(shapes_.size())) {
        throw base::Error(base::ErrorNumber::kSubscriptOutOfRange,
                          "Požadovaný člen kolekce neexistuje.");
    }
    return shapes_[static_cast<std::size_t>(index - 1)];
}

void MemoryRange::Select() {
    document_.log().note([&] { return text("call ", name_, ".Select"); });
    for (const auto& shape : shapes_) shape->requireAlive();
    document_.select(shapes_);
}

}  // namespace huebrush::memory
