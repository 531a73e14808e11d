// SPDX-License-Identifier: MPL-2.0

#include "forms/MenuChoice.h"

#include <algorithm>
#include <cctype>

namespace huebrush::forms {

namespace {

char lower(char letter) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
}

bool isCalledBy(const MenuEntry& entry, char letter) {
    const std::size_t at = entry.key.value_or(0);
    return entry.usable() && at < entry.text.size() && lower(entry.text[at]) == lower(letter);
}

}  // namespace

MenuEntry::MenuEntry(const MenuItem& item)
    : enabled(item.Enabled), checked(item.Checked), separator(item.isSeparator()) {
    const std::string& caption = item.Caption;
    for (std::size_t at = 0; at < caption.size(); ++at) {
        const bool isMark = caption[at] == '&' && at + 1 < caption.size();
        if (isMark && caption[++at] != '&' && !key) key = text.size();
        text += caption[at];
    }
}

std::string MenuEntry::throughKey() const {
    constexpr unsigned kContinues = 0x80;
    constexpr unsigned kContinuationBits = 0xC0;
    std::size_t end = key.value() + 1;
    while (end < text.size() &&
           (static_cast<unsigned char>(text[end]) & kContinuationBits) == kContinues) {
        ++end;
    }
    return text.substr(0, end);
}

MenuChoice::MenuChoice(const PopupMenu& menu) {
    for (const MenuItem* const item : menu.items()) entries_.emplace_back(*item);
}

void MenuChoice::moveDown() {
    moveBy(1, highlighted_.value_or(entries_.size() - 1));
}

void MenuChoice::moveUp() {
    moveBy(entries_.size() - 1, highlighted_.value_or(0));
}

void MenuChoice::moveToFirst() {
    highlighted_.reset();
    moveDown();
}

void MenuChoice::moveToLast() {
    highlighted_.reset();
    moveUp();
}

void MenuChoice::moveBy(std::size_t step, std::size_t from) {
    const std::size_t count = entries_.size();
    for (std::size_t tried = 0; tried < count; ++tried) {
        from = (from + step) % count;
        if (!entries_[from].usable()) continue;
        highlighted_ = from;
        return;
    }
}

bool MenuChoice::pointAt(std::optional<std::size_t> line) {
    if (!line || !entries_.at(*line).usable()) return false;
    highlighted_ = line;
    return true;
}

bool MenuChoice::call(char letter) {
    const auto isCalled = [&](const MenuEntry& entry) { return isCalledBy(entry, letter); };
    const auto count = std::ranges::count_if(entries_, isCalled);
    if (count == 0) return false;
    do {
        moveDown();
    } while (!isCalled(entries_[*highlighted_]));
    return count == 1;
}

}  // namespace huebrush::forms
