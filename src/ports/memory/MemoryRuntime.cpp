#include "ports/memory/MemoryRuntime.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "forms/Form.h"

namespace huebrush::memory {

namespace {

using base::text;
using forms::MsgBoxResult;

constexpr std::int32_t kClipboardBusy = 521;

MsgBoxResult defaultAnswer(std::int32_t style) {
    switch (style & forms::MsgBoxStyle::kButtonsMask) {
        case forms::MsgBoxStyle::kAbortRetryIgnore:
            return MsgBoxResult::abort;
        case forms::MsgBoxStyle::kYesNo:
        case forms::MsgBoxStyle::kYesNoCancel:
            return MsgBoxResult::yes;
        default:
            return MsgBoxResult::ok;
    }
}

template <class Value>
Value takeFirst(std::deque<Value>& queue, Value otherwise) {
    if (queue.empty()) return otherwise;
    Value first = std::move(queue.front());
    queue.pop_front();
    return first;
}

}  // namespace

MsgBoxResult MemoryRuntime::MsgBox(const std::string& text, std::int32_t style,
                                   const std::string& title) {
    boxes.push_back({text, style, title});
    return takeFirst(answers, defaultAnswer(style));
}

void MemoryRuntime::PopupMenu(forms::PopupMenu& menu, forms::Control& owner, double x, double y) {
    menu.Click();
    ShownMenu shown{owner.name(), x, y, {}};
    for (const forms::MenuItem* const item : menu.items()) {
        shown.items.push_back({item->Caption, item->Enabled, item->Checked});
    }
    menus.push_back(std::move(shown));
    const std::string pick = takeFirst(picks, std::string{});
    if (pick.empty()) return;
    for (forms::MenuItem* const item : menu.items()) {
        if (item->Caption != pick) continue;
        if (item->Enabled) item->Click();
        return;
    }
    throw base::Error(base::ErrorNumber::kInternal, text("The menu has no item ", pick));
}

void MemoryRuntime::DoEvents() {
    ++pumps;
    if (onPump) onPump(pumps);
}

void MemoryRuntime::showForm(forms::Form& form, bool modal) {
    windowCalls.push_back(text("show ", form.name(), modal ? " modal" : ""));
}
void MemoryRuntime::closeForm(forms::Form& form) {
    windowCalls.push_back(text("close ", form.name()));
}
void MemoryRuntime::setTopMost(forms::Form& form, bool topMost) {
    windowCalls.push_back(text(topMost ? "raise " : "lower ", form.name()));
}

void MemoryRuntime::requireClipboard() const {
    if (clipboardFails) throw base::Error(kClipboardBusy, "Schránku nelze otevřít.");
}
void MemoryRuntime::Clear() {
    requireClipboard();
    clipboard = {};
    ++clipboardClears;
}
base::Picture MemoryRuntime::GetData() {
    requireClipboard();
    return clipboard;
}
void MemoryRuntime::SetData(const base::Picture& picture) {
    requireClipboard();
    clipboard = picture;
}

std::optional<std::string> MemoryRuntime::GetSetting(const std::string& application,
                                                     const std::string& section,
                                                     const std::string& key) {
    const auto found = settings.find({application, section, key});
    if (found == settings.end()) return std::nullopt;
    return found->second;
}

void MemoryRuntime::SaveSetting(const std::string& application, const std::string& section,
                                const std::string& key, const std::string& value) {
    settings[{application, section, key}] = value;
    savedSettings.push_back(text(section, "/", key, "=", value));
}

base::Picture MemoryRuntime::icon(std::int32_t number) const {
    const std::string name = text("icon ", number);
    return {base::PictureFormat::icon, {name.begin(), name.end()}};
}

}  // namespace huebrush::memory
