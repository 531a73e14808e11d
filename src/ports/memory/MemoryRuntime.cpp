// SPDX-License-Identifier: MPL-2.0

#include "ports/memory/MemoryRuntime.h"

#include <algorithm>
#include <utility>

#include "base/Bitmap.h"
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

template <class... Parts>
void MemoryRuntime::note(const Parts&... parts) const {
    if (log != nullptr) log->note([&] { return text(parts...); });
}

MsgBoxResult MemoryRuntime::MsgBox(const std::string& text, std::int32_t style,
                                   const std::string& title) {
    boxes.push_back({text, style, title});
    if (onBox) onBox();
    return takeFirst(answers, defaultAnswer(style));
}

void MemoryRuntime::PopupMenu(forms::PopupMenu& menu, forms::Control& owner, double x, double y) {
    note("call PopupMenu ", menu.Caption);
    menu.Click();
    ShownMenu shown{owner.name(), x, y, {}};
    for (const forms::MenuItem* const item : menu.items()) {
        shown.items.push_back({item->Caption, item->Enabled, item->Checked});
    }
    menus.push_back(std::move(shown));
    if (onMenu) onMenu();
    const std::string pick = takeFirst(picks, std::string{});
    if (pick.empty()) return;
    for (forms::MenuItem* const item : menu.items()) {
        if (item->Caption != pick) continue;
        if (item->Enabled) item->Click();
        return;
    }
    throw base::Error(base::ErrorNumber::kInternal, text("The menu has no item ", pick));
}

std::string MemoryRuntime::ChooseFile(const forms::FileDialog& dialog) {
    note("call ChooseFile ", dialog.title);
    fileDialogs.push_back(dialog);
    if (chosenFiles.empty()) base::throwCancelled();
    return takeFirst(chosenFiles, std::string{});
}

void MemoryRuntime::DoEvents() {
    note("call DoEvents");
    ++pumps;
    if (onPump) onPump(pumps);
}

void MemoryRuntime::showForm(forms::Form& form, bool modal) {
    note("call ", form.name(), ".Show");
    windowCalls.push_back(text("show ", form.name(), modal ? " modal" : ""));
    if (modal && onModal) onModal(form);
}
void MemoryRuntime::closeForm(forms::Form& form) {
    note("call ", form.name(), ".Close");
    windowCalls.push_back(text("close ", form.name()));
}
void MemoryRuntime::setTopMost(forms::Form& form, bool topMost) {
    note("call ", form.name(), topMost ? ".Raise" : ".Lower");
    windowCalls.push_back(text(topMost ? "raise " : "lower ", form.name()));
}

void MemoryRuntime::requireClipboard() const {
    if (clipboardFails) throw base::Error(kClipboardBusy, "Schránku nelze otevřít.");
}
void MemoryRuntime::Clear() {
    note("call Clipboard.Clear");
    requireClipboard();
    clipboard = {};
    ++clipboardClears;
}
base::Picture MemoryRuntime::GetData() {
    note("read Clipboard");
    requireClipboard();
    return clipboard;
}
void MemoryRuntime::SetData(const base::Picture& picture) {
    note("write Clipboard");
    requireClipboard();
    clipboard = picture;
}

std::optional<std::string> MemoryRuntime::GetSetting(const std::string& application,
                                                     const std::string& section,
                                                     const std::string& key) {
    note("read Setting ", section, "/", key);
    const auto found = settings.find({application, section, key});
    if (found == settings.end()) return std::nullopt;
    return found->second;
}

void MemoryRuntime::SaveSetting(const std::string& application, const std::string& section,
                                const std::string& key, const std::string& value) {
    note("write Setting ", section, "/", key, " ", value);
    settings[{application, section, key}] = value;
    savedSettings.push_back(text(section, "/", key, "=", value));
}

std::optional<forms::RegistryValue> MemoryRuntime::registryValue(forms::RegistryRoot root,
                                                                 const std::string& key,
                                                                 const std::string& name) {
    note("read Registry ", static_cast<std::uint32_t>(root), " ", key, " ", name);
    const auto found = registry.find({key, name});
    if (found == registry.end()) return std::nullopt;
    return found->second;
}

bool MemoryRuntime::fileExists(const std::string& path) {
    note("read File ", path);
    return files.contains(path);
}

void MemoryRuntime::start(const std::string& path) {
    note("call Start ", path);
    started.push_back(path);
}

char MemoryRuntime::decimalSeparator() const {
    note("read DecimalSeparator");
    return separator;
}

base::Picture MemoryRuntime::icon(std::int32_t number) const {
    note("read Icon ", number);
    const auto low = static_cast<std::uint8_t>(number & 0xFF);
    const auto high = static_cast<std::uint8_t>(number >> 8);
    return base::bitmapOf(1, 1, {low, high, 0, 0xFF});
}

}  // namespace huebrush::memory
