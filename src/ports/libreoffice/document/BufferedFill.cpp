#include "ports/libreoffice/document/BufferedFill.h"

#include <utility>

namespace huebrush::libreoffice {

using host::MsoTriState;

BufferedFill::~BufferedFill() {
    document_->unbuffer(this);
    try {
        commit();
    } catch (const std::exception&) {  // NOLINT: read as the shape's error
    }
}

std::string BufferedFill::TextureName() {
    const host::FillProperties& fill = read();
    if (fill.UnknownTexture) {
        throw base::Error(base::ErrorNumber::kNotAvailable, "Název textury není k dispozici.");
    }
    return fill.TextureName;
}

void BufferedFill::setVisible(MsoTriState visible) {
    FillEdit& edit = writing().edit;
    const bool isFirst = edit.empty();
    edit.visible = visible == MsoTriState::msoFalse ? MsoTriState::msoFalse : MsoTriState::msoTrue;
    if (isFirst) return;
    document_->commitBuffered();
    writing_.reset();
}

void BufferedFill::setForeColorRGB(std::int32_t color) {
    Writing& gathered = writing();
    gathered.edit.foreColor = gathered.foreColor = color;
}

void BufferedFill::setBackColorRGB(std::int32_t color) {
    Writing& gathered = writing();
    gathered.edit.backColor = gathered.backColor = color;
}

void BufferedFill::setTransparency(float transparency) {
    const float checked = checkedTransparency(transparency);
    writing().edit.transparency = checked;
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
    writing().userPicture = officeCalls([&] { return document_->tables().addFile(file); });
    build(userTextureBuild(file));
}

void BufferedFill::refresh() {
    // Only after the answer: it carries out writes, which end what was current.
    answer_ = &document_->keep(answer());
    stamp_ = document_->stamp();
}

BufferedFill::Writing& BufferedFill::writing() {
    document_->buffer(this);
    if (!writing_) writing_ = std::make_unique<Writing>();
    if (writing_->edit.empty()) {
        writing_->leaves = leaves();
        officeCalls([&] {
            for (const NodePointer& leaf : writing_->leaves) document_->tree().checkAlive(*leaf);
        });
    }
    return *writing_;
}

void BufferedFill::build(const FillBuild& build) {
    Writing& gathered = writing();
    gathered.edit.build = build;
    if (!gathered.edit.foreColor) gathered.edit.foreColor = gathered.foreColor;
    if (!gathered.edit.backColor) gathered.edit.backColor = gathered.backColor;
}

void BufferedFill::commit() {
    if (!writing_ || writing_->edit.empty()) return;
    const FillEdit edit = std::exchange(writing_->edit, {});
    const std::vector<NodePointer> leaves = std::exchange(writing_->leaves, {});
    document_->changeFills(leaves, edit, writing_->userPicture);
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

}  // namespace huebrush::libreoffice
