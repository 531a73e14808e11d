// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/bar/ToolBarButton.h"

#include <utility>

#include "base/Error.h"
#include "forms/Runtime.h"
#include "ports/libreoffice/bar/ButtonCommand.h"

namespace huebrush::libreoffice {

ToolBarButton::ToolBarButton(CommandStates& states, std::function<void()> changed, Kept kept)
    : states_(states),
      changed_(std::move(changed)),
      tag_(std::move(kept.tag)),
      caption_(std::move(kept.caption)),
      tooltip_(std::move(kept.tooltip)) {
    publishState();
}

std::string ToolBarButton::command() const {
    return tag_.empty() ? std::string() : commandOfTag(tag_);
}

void ToolBarButton::setTag(const std::string& tag) {
    if (!tag_.empty()) states_.forget(command());
    tag_ = tag;
    publishState();
    changeTexts();
}

void ToolBarButton::setCaption(const std::string& caption) {
    caption_ = caption;
    changeTexts();
}

void ToolBarButton::setTooltipText(const std::string& text) {
    tooltip_ = text;
    changeTexts();
}

void ToolBarButton::changeTexts() {
    textsChanged_ = true;
    changed_();
}

void ToolBarButton::setEnabled(bool enabled) {
    enabled_ = enabled;
    publishState();
}

void ToolBarButton::Delete() {
    if (deleted_) {
        throw base::Error(base::ErrorNumber::kNoSuchControl, "Tlačítko už bylo odstraněno.");
    }
    if (!tag_.empty()) states_.forget(command());
    deleted_ = true;
    changed_();
}

void ToolBarButton::CopyFace() {
    forms::Runtime::current().Clipboard().SetData(face_);
}

void ToolBarButton::PasteFace() {
    face_ = forms::Runtime::current().Clipboard().GetData();
    faceChanged_ = true;
    changed_();
}

void ToolBarButton::publishState() {
    if (tag_.empty() || deleted_) return;
    states_.setEnabled(command(), enabled_);
}

}  // namespace huebrush::libreoffice
