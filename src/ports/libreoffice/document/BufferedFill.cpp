#include "ports/libreoffice/document/BufferedFill.h"

#include <utility>

namespace huebrush::libreoffice {

using host::MsoTriState;

namespace {

constexpr std::int32_t kNotAvailable = 4605;

}  // namespace

BufferedFill::~BufferedFill() {
    document_->unbuffer(this);
    try {
        commit();
    } catch (const std::exception&) {  // NOLINT: read as the shape's error
    }
}

std::string BufferedFill::TextureName() {
    const std::optional<std::string>& name = read().textureName;
    if (!name) throw base::Error(kNotAvailable, "Název textury není k dispozici.");
    return *name;
}

void BufferedFill::setVisible(MsoTriState visible) {
    edit().visible =
        visible == MsoTriState::msoFalse ? MsoTriState::msoFalse : MsoTriState::msoTrue;
    document_->commitBuffered();
    foreColor_.reset();
    backColor_.reset();
}

void BufferedFill::setForeColorRGB(std::int32_t color) {
    edit().foreColor = color;
    foreColor_ = color;
}

void BufferedFill::setBackColorRGB(std::int32_t color) {
    edit().backColor = color;
    backColor_ = color;
}

void BufferedFill::setTransparency(float transparency) {
    const float checked = checkedTransparency(transparency);
    edit().transparency = checked;
}

void BufferedFill::Solid() {
    build(solidBuild());
}

void BufferedFill::Patterned(std::int32_t pattern) {
    build(patternBuild(pattern));
}

void BufferedFill::OneColorGradient(std::int32_t style, std::int32_t variant, float degree) {
    build(oneColorBuild(style, variant, degree));
}

void BufferedFill::TwoColorGradient(std::int32_t style, std::int32_t variant) {
    build(twoColorBuild(style, variant));
}

void BufferedFill::PresetGradient(std::int32_t style, std::int32_t variant, std::int32_t type) {
    build(presetGradientBuild(style, variant, type));
}

void BufferedFill::PresetTextured(std::int32_t texture) {
    build(presetTextureBuild(texture));
}

void BufferedFill::UserTextured(const std::string& file) {
    edit();
    userPicture_ = officeCalls([&] { return document_->tables().addFile(file); });
    build(userTextureBuild(file));
}

FillEdit& BufferedFill::edit() {
    document_->buffer(this);
    if (edit_.empty()) {
        leaves_ = leaves();
        officeCalls([&] {
            for (const NodePointer& leaf : leaves_) document_->tree().checkAlive(*leaf);
        });
    }
    return edit_;
}

void BufferedFill::build(const FillBuild& build) {
    FillEdit& gathered = edit();
    gathered.build = build;
    if (!gathered.foreColor) gathered.foreColor = foreColor_;
    if (!gathered.backColor) gathered.backColor = backColor_;
}

void BufferedFill::commit() {
    const FillEdit edit = std::exchange(edit_, {});
    const std::vector<NodePointer> leaves = std::exchange(leaves_, {});
    if (!edit.empty()) document_->changeFills(leaves, edit, userPicture_);
}

std::vector<NodePointer> ShapeFillFormat::leaves() {
    std::vector<NodePointer> leaves;
    document().collectLeaves(node_, leaves);
    return leaves;
}

std::vector<NodePointer> RangeFillFormat::leaves() {
    std::vector<NodePointer> leaves;
    for (const NodePointer& node : nodes_) document().collectLeaves(node, leaves);
    return leaves;
}

const HostFill& RangeFillFormat::read() {
    common_ = document().commonFillOf(nodes_);
    return common_;
}

}  // namespace huebrush::libreoffice
