// SPDX-License-Identifier: MPL-2.0

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "forms/Runtime.h"
#include "ports/memory/MemoryHost.h"

namespace huebrush::memory {

namespace {

using base::text;

template <class Value>
void note(CallLog& log, const char* kind, const std::string& owner, const char* member,
          const Value& value) {
    log.note([&] { return text(kind, " ", owner, ".", member, " ", value); });
}

void note(CallLog& log, const char* kind, const std::string& owner, const char* member) {
    log.note([&] { return text(kind, " ", owner, ".", member); });
}

}  // namespace

MemoryButton::MemoryButton(MemoryBar& bar, std::string id)
    : face(bar.blankFace()), bar_(bar), id_(std::move(id)) {}

void MemoryButton::setTag(const std::string& value) {
    note(bar_.log(), "write", id_, "Tag", value);
    tag = value;
}
void MemoryButton::setCaption(const std::string& value) {
    note(bar_.log(), "write", id_, "Caption", value);
    caption = value;
}
void MemoryButton::setTooltipText(const std::string& value) {
    note(bar_.log(), "write", id_, "TooltipText", value);
    tooltip = value;
}
void MemoryButton::setEnabled(bool value) {
    note(bar_.log(), "write", id_, "Enabled", value ? -1 : 0);
    enabled = value;
}
void MemoryButton::Delete() {
    note(bar_.log(), "call", id_, "Delete");
    auto& buttons = bar_.buttons;
    const auto self = std::find_if(buttons.begin(), buttons.end(),
                                   [&](const auto& button) { return button.get() == this; });
    if (self == buttons.end()) {
        throw base::Error(base::ErrorNumber::kInvalidProcedureCall, "Tlačítko již neexistuje.");
    }
    buttons.erase(self);
}
void MemoryButton::CopyFace() {
    note(bar_.log(), "call", id_, "CopyFace");
    forms::Runtime::current().Clipboard().SetData(face);
}
void MemoryButton::PasteFace() {
    note(bar_.log(), "call", id_, "PasteFace");
    face = forms::Runtime::current().Clipboard().GetData();
}
void MemoryButton::Execute() {
    Click();
}

MemoryBar::MemoryBar(MemoryBars& bars, std::string barName)
    : name(std::move(barName)), bars_(bars) {}

CallLog& MemoryBar::log() const {
    return bars_.log();
}
const base::Picture& MemoryBar::blankFace() const {
    return bars_.blankFace;
}

std::string MemoryBar::Name() {
    note(log(), "read", "Bar", "Name");
    return name;
}
void MemoryBar::setVisible(bool value) {
    note(log(), "write", "Bar", "Visible", value ? -1 : 0);
    visible = value;
}
void MemoryBar::Delete() {
    note(log(), "call", "Bar", "Delete");
    auto& all = bars_.bars;
    all.erase(
        std::remove_if(all.begin(), all.end(), [&](const auto& bar) { return bar.get() == this; }),
        all.end());
}
std::int32_t MemoryBar::Position() {
    note(log(), "read", "Bar", "Position");
    return position;
}
void MemoryBar::setPosition(std::int32_t value) {
    note(log(), "write", "Bar", "Position", value);
    position = value;
}
std::int32_t MemoryBar::Left() {
    note(log(), "read", "Bar", "Left");
    return left;
}
void MemoryBar::setLeft(std::int32_t value) {
    note(log(), "write", "Bar", "Left", value);
    left = value;
}
std::int32_t MemoryBar::Top() {
    note(log(), "read", "Bar", "Top");
    return top;
}
void MemoryBar::setTop(std::int32_t value) {
    note(log(), "write", "Bar", "Top", value);
    top = value;
}
std::int32_t MemoryBar::RowIndex() {
    note(log(), "read", "Bar", "RowIndex");
    return rowIndex;
}
void MemoryBar::setRowIndex(std::int32_t value) {
    note(log(), "write", "Bar", "RowIndex", value);
    rowIndex = value;
}

host::CommandBarControlPointer MemoryBar::addButton() {
    note(log(), "call", "Bar", "Controls.Add");
    return buttons.emplace_back(std::make_shared<MemoryButton>(*this, text("Button", ++made_)));
}

host::CommandBarControlPointer MemoryBar::FindControl(const std::string& tag) {
    note(log(), "read", "Bar", "FindControl", tag);
    const auto found = std::find_if(buttons.begin(), buttons.end(),
                                    [&](const auto& button) { return button->tag == tag; });
    return found == buttons.end() ? nullptr : *found;
}

void MemoryHostControl::Execute() {
    application_.log.note([&] { return text("call Control ", id_, ".Execute"); });
    application_.runTool(id_);
}

CallLog& MemoryBars::log() const {
    return application_.log;
}

std::int32_t MemoryBars::Count() {
    note(log(), "read", "CommandBars", "Count");
    return static_cast<std::int32_t>(bars.size());
}

host::CommandBarPointer MemoryBars::Item(std::int32_t index) {
    note(log(), "read", "CommandBars", "Item", index);
    if (index < 1 || static_cast<std::size_t>(index) > bars.size()) {
        throw base::Error(base::ErrorNumber::kSubscriptOutOfRange,
                          "Požadovaný člen kolekce neexistuje.");
    }
    return bars[static_cast<std::size_t>(index - 1)];
}

host::CommandBarPointer MemoryBars::Add(const std::string& name) {
    note(log(), "call", "CommandBars", "Add", name);
    return addExisting(name);
}

host::CommandBarControlPointer MemoryBars::FindControl(std::int32_t id) {
    note(log(), "read", "CommandBars", "FindControl", id);
    if (missingControls.contains(id)) return nullptr;
    return std::make_shared<MemoryHostControl>(application_, id);
}

std::shared_ptr<MemoryBar> MemoryBars::find(const std::string& name) const {
    for (const auto& bar : bars) {
        if (bar->name == name) return bar;
    }
    return nullptr;
}

std::shared_ptr<MemoryBar> MemoryBars::addExisting(const std::string& name) {
    return bars.emplace_back(std::make_shared<MemoryBar>(*this, name));
}

}  // namespace huebrush::memory
