// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/document/BufferedFill.h"

#include <utility>

#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

using host::MsoTriState;

BufferedFill::~BufferedFill() {
    if (!document_->isOpen() || !document_->fills().gathers(*this)) return;
    try {
        document_->fills().finishEdit();
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
    FillWrites& edit = gather().edit;
    const bool isFirst = edit.empty();
    edit.visible = visible == MsoTriState::msoFalse ? MsoTriState::msoFalse : MsoTriState::msoTrue;
    if (isFirst) return;
    document_->fills().finishEdit();
    foreColor_.reset();
    backColor_.reset();
}

void BufferedFill::setForeColorRGB(std::int32_t color) {
    gather().edit.foreColor = color;
    foreColor_ = color;
}

void BufferedFill::setBackColorRGB(std::int32_t color) {
    gather().edit.backColor = color;
    backColor_ = color;
}

void BufferedFill::setTransparency(float transparency) {
    const float checked = checkedTransparency(transparency);
    gather().edit.transparency = checked;
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
    const std::string picture =
        officeCalls([&] { return document_->shapes().tables().addFile(file); });
    build(userTextureBuild(file));
    gather().userPicture = picture;
}

void BufferedFill::refresh() {
    // Only after the answer: it carries out writes, which end what was current.
    const HostFill answer = shapes_.size() == 1 ? document_->fillOf(*shapes_.front())
                                                : document_->commonFillOf(nodesOf(shapes_));
    answer_ = &document_->shapes().keep(answer);
    stamp_ = document_->shapes().stamp();
}

void BufferedFill::build(const FillBuild& build) {
    FillWrites& edit = gather().edit;
    edit.build = build;
    if (!edit.foreColor) edit.foreColor = foreColor_;
    if (!edit.backColor) edit.backColor = backColor_;
}

}  // namespace huebrush::libreoffice
