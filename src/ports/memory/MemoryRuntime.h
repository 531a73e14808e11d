// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "forms/PopupMenu.h"
#include "forms/Runtime.h"
#include "ports/memory/CallLog.h"

namespace huebrush::memory {

/// A message box that was shown.
struct ShownBox {
    std::string text;
    std::int32_t style = 0;
    std::string title;

    friend bool operator==(const ShownBox&, const ShownBox&) = default;
};

/// A menu as the user saw it when it was open.
struct ShownMenu {
    struct Item {
        std::string caption;
        bool enabled = true;
        bool checked = false;
    };
    std::string owner;
    double x = 0;
    double y = 0;
    std::vector<Item> items;
};

/// The forms runtime without a screen. A test says beforehand how boxes are answered, which menu
/// item is picked and what happens in the event pump, and reads afterwards what was shown.
class MemoryRuntime final : public forms::Runtime,
                            private forms::Clipboard,
                            private forms::Settings,
                            private forms::Component,
                            private forms::System {
 public:
    forms::MsgBoxResult MsgBox(const std::string& text, std::int32_t style,
                               const std::string& title) override;
    void PopupMenu(forms::PopupMenu& menu, forms::Control& owner, double x, double y) override;
    std::string ChooseFile(const forms::FileDialog& dialog) override;
    void DoEvents() override;
    forms::Clipboard& Clipboard() override { return *this; }
    forms::Settings& Settings() override { return *this; }
    const forms::Component& Component() override { return *this; }
    forms::System& System() override { return *this; }
    void showForm(forms::Form& form, bool modal) override;
    void closeForm(forms::Form& form) override;
    void setTopMost(forms::Form& form, bool topMost) override;

    /// Where the calls of the runtime are noted, boxes excepted (they are in `boxes`); may be none.
    CallLog* log = nullptr;

    /// The answers to boxes, first in first out; a box without one is answered by its default.
    std::deque<forms::MsgBoxResult> answers;
    std::vector<ShownBox> boxes;
    /// What happens while a box is open, which is when a port lets events through too.
    std::function<void()> onBox;
    /// What happens while a menu is open, before the pick.
    std::function<void()> onMenu;
    /// The captions of the items to pick, first in first out; none closes the menu without a pick.
    std::deque<std::string> picks;
    std::vector<ShownMenu> menus;
    /// The files that the user chooses, first in first out; none cancels the dialog.
    std::deque<std::string> chosenFiles;
    std::vector<forms::FileDialog> fileDialogs;
    /// What happens in the pump; called with the number of the pump, counted from 1.
    std::function<void(std::size_t)> onPump;
    std::size_t pumps = 0;
    std::vector<std::string> windowCalls;
    /// What happens while a modal form is open; without it the form stays open behind the call.
    std::function<void(forms::Form&)> onModal;

    base::Picture clipboard;
    std::size_t clipboardClears = 0;
    /// Makes each use of the clipboard fail.
    bool clipboardFails = false;
    std::map<std::tuple<std::string, std::string, std::string>, std::string> settings;
    /// The settings saved, in their order: "section/key=value".
    std::vector<std::string> savedSettings;
    char separator = '.';
    std::string componentFolder = "/huebrush";
    std::string componentVersion = "4.3.2";
    /// The folder for temporary files.
    std::string temporary = "/tmp";
    /// The registry: by key and name, under the one root that there is.
    std::map<std::pair<std::string, std::string>, forms::RegistryValue> registry;
    std::set<std::string> files;
    std::vector<std::string> started;

 private:
    void Clear() override;
    base::Picture GetData() override;
    void SetData(const base::Picture& picture) override;
    std::optional<std::string> GetSetting(const std::string& application,
                                          const std::string& section,
                                          const std::string& key) override;
    void SaveSetting(const std::string& application, const std::string& section,
                     const std::string& key, const std::string& value) override;
    std::string version() const override { return componentVersion; }
    std::string folder() const override { return componentFolder; }
    std::string name() const override { return "huebrush"; }
    std::string temporaryFolder() const override { return temporary; }
    std::string userFolder() const override { return componentFolder; }
    base::Picture icon(std::int32_t number) const override;
    char decimalSeparator() const override;
    std::optional<forms::RegistryValue> registryValue(forms::RegistryRoot root,
                                                      const std::string& key,
                                                      const std::string& name) override;
    bool fileExists(const std::string& path) override;
    void start(const std::string& path) override;
    void requireClipboard() const;
    template <class... Parts>
    void note(const Parts&... parts) const;
};

}  // namespace huebrush::memory
