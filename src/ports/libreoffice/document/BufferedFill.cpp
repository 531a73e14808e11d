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
    mapping::FillWrites& edit = gather().edit;
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
    const float checked = mapping::checkedTransparency(transparency);
    gather().edit.transparency = checked;
}

void BufferedFill::Solid() {
    build(mapping::solidBuild());
}

void BufferedFill::Patterned(std::int32_t pattern) {
    build(mapping::patternBuild(pattern));
}

void BufferedFill::OneColorGradient(std::int32_t style, std::int32_t variant, float degree) {
    build(mapping::oneColorBuild(style, variant, degree));
}

void BufferedFill::TwoColorGradient(std::int32_t style, std::int32_t variant) {
    build(mapping::twoColorBuild(style, variant));
}

void BufferedFill::PresetGradient(std::int32_t style, std::int32_t variant, std::int32_t type) {
    build(mapping::presetGradientBuild(style, variant, type));
}

void BufferedFill::PresetTextured(std::int32_t texture) {
    build(mapping::presetTextureBuild(texture));
}

void BufferedFill::UserTextured(const std::string& file) {
    const std::string picture =
        officeCalls([&] { return document_->shapes().tables().addFile(file); });
    build(mapping::userTextureBuild(file));
    gather().userPicture = picture;
}

void BufferedFill::refresh() {
    // Only after the answer: it carries out writes, which end what was current.
    const mapping::HostFill answer = shapes_.size() == 1
                                         ? document_->fillOf(*shapes_.front())
                                         : document_->commonFillOf(nodesOf(shapes_));
    answer_ = &document_->shapes().keep(answer);
    stamp_ = document_->shapes().stamp();
}

void BufferedFill::build(const mapping::FillBuild& build) {
    mapping::FillWrites& edit = gather().edit;
    edit.build = build;
    if (!edit.foreColor) edit.foreColor = foreColor_;
    if (!edit.backColor) edit.backColor = backColor_;
}

}  // namespace huebrush::libreoffice
