// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/bar/ToolBar.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "ports/libreoffice/bar/ButtonCommand.h"

namespace huebrush::libreoffice {

namespace {

/// The object model's docking position of a floating bar; the docked ones are BarPlace::Edge.
constexpr std::int32_t kFloating = 4;

using Item = BarConfiguration::Item;

std::vector<Item>::iterator findCommand(std::vector<Item>& items, const std::string& command) {
    return std::ranges::find(items, command, &BarConfiguration::commandOf);
}

void removeCommand(std::vector<Item>& items, const std::string& command) {
    const auto item = findCommand(items, command);
    if (item != items.end()) items.erase(item);
}

void putButton(std::vector<Item>& items, const BarConfiguration::Button& button) {
    const auto present = findCommand(items, button.command);
    if (present != items.end()) {
        *present = BarConfiguration::withTexts(*present, button);
    } else {
        items.push_back(BarConfiguration::itemOf(button));
    }
}

}  // namespace

void ToolBar::setVisible(bool visible) {
    BarPlace shown = place();
    shown.visible = visible;
    put(shown);
}

void ToolBar::Delete() {
    for (const auto& button : buttons_) {
        if (!button->deleted()) button->Delete();
    }
    write();
    deleted_ = true;
    office_.configuration.remove(bar_.url);
    office_.notes.setCreatedByUs(bar_.url, false);
    changed_();
}

bool ToolBar::isLeftBehind() {
    return !deleted_ && office_.notes.isCreatedByUs(bar_.url) &&
           office_.configuration.items(bar_.url).empty();
}

std::int32_t ToolBar::Position() {
    const BarPlace now = place();
    return now.floating ? kFloating : static_cast<std::int32_t>(now.edge);
}

void ToolBar::setPosition(std::int32_t position) {
    if (position < 0 || position > kFloating) {
        throw base::Error(base::ErrorNumber::kInvalidProcedureCall,
                          "Panel nástrojů nemá takové umístění.");
    }
    BarPlace moved = place();
    moved.floating = position == kFloating;
    if (!moved.floating) moved.edge = static_cast<BarPlace::Edge>(position);
    put(moved);
}

std::int32_t ToolBar::Left() {
    const BarPlace now = place();
    if (now.floating) return now.left;
    return now.upright() ? 0 : now.distance;
}

void ToolBar::setLeft(std::int32_t left) {
    BarPlace moved = place();
    if (moved.floating) {
        moved.left = left;
    } else if (!moved.upright()) {
        moved.distance = left;
    }
    put(moved);
}

std::int32_t ToolBar::Top() {
    const BarPlace now = place();
    if (now.floating) return now.top;
    return now.upright() ? now.distance : 0;
}

void ToolBar::setTop(std::int32_t top) {
    BarPlace moved = place();
    if (moved.floating) {
        moved.top = top;
    } else if (moved.upright()) {
        moved.distance = top;
    }
    put(moved);
}

std::int32_t ToolBar::RowIndex() {
    return place().row + 1;
}

void ToolBar::setRowIndex(std::int32_t row) {
    BarPlace moved = place();
    moved.row = std::max(row, 1) - 1;
    put(moved);
}

host::CommandBarControlPointer ToolBar::addButton() {
    return adopt(std::make_shared<ToolBarButton>(
        office_.states, [this] { changed(); }, IconFiles::blankFace()));
}

host::CommandBarControlPointer ToolBar::FindControl(const std::string& tag) {
    const std::string command = commandOfTag(tag);
    if (auto known = buttonOf(command)) return known;
    std::vector<Item> items = office_.configuration.items(bar_.url);
    const auto item = findCommand(items, command);
    if (item == items.end()) return nullptr;
    const BarConfiguration::Button kept = BarConfiguration::buttonOf(*item);
    const auto button = adopt(std::make_shared<ToolBarButton>(
        office_.states, [this] { changed(); },
        ToolBarButton::Kept{tag, kept.caption, kept.tooltip}));
    if (kept.tooltip.empty()) restoreToolTip(*button);
    return button;
}

/// The office stores a bar without its tool tips.
void ToolBar::restoreToolTip(ToolBarButton& button) {
    const std::string tip = office_.notes.toolTip(button.command());
    if (!tip.empty()) button.setTooltipText(tip);
}

std::shared_ptr<ToolBarButton> ToolBar::adopt(std::shared_ptr<ToolBarButton> button) {
    buttons_.push_back(button);
    return button;
}

std::shared_ptr<ToolBarButton> ToolBar::buttonOf(const std::string& command) const {
    const auto found = std::ranges::find_if(buttons_, [&](const auto& button) {
        return !button->deleted() && button->command() == command;
    });
    return found == buttons_.end() ? nullptr : *found;
}

void ToolBar::changed() {
    toWrite_ = true;
    changed_();
}

void ToolBar::write() {
    if (deleted_ || !std::exchange(toWrite_, false)) return;
    std::vector<Item> items = office_.configuration.items(bar_.url);
    for (const auto& button : buttons_) {
        if (button->command().empty()) continue;
        if (button->deleted()) {
            removeCommand(items, button->command());
            office_.configuration.removePictures(button->command());
        } else {
            writeTexts(items, *button);
            writeFace(*button);
        }
    }
    std::erase_if(buttons_, [](const auto& button) { return button->deleted(); });
    office_.configuration.replaceItems(bar_, items);
}

void ToolBar::writeTexts(std::vector<BarConfiguration::Item>& items, ToolBarButton& button) {
    if (!button.textsChanged()) return;
    putButton(items, {button.command(), button.caption(), button.tooltip()});
    office_.notes.setToolTip(button.command(), button.tooltip());
    button.textsWritten();
}

void ToolBar::writeFace(ToolBarButton& button) {
    if (!button.faceChanged() || button.face().empty()) return;
    office_.configuration.setPictures(button.command(), office_.faces.sizesOf(button.face()));
    button.faceWritten();
}

}  // namespace huebrush::libreoffice
