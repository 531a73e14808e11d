// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "forms/PopupMenu.h"

namespace huebrush::forms {

/// A line of a menu as it is shown.
struct MenuEntry {
    explicit MenuEntry(const MenuItem& item);

    /// Whether it can be picked.
    bool usable() const { return enabled && !separator; }
    /// What is shown before the letter of the access key.
    std::string beforeKey() const { return text.substr(0, key.value_or(0)); }
    /// The same with that letter. REQUIRES: an access key is marked.
    std::string throughKey() const;

    /// The caption as it is shown: without the mark of the access key.
    std::string text;
    /// Where in `text` the letter of the access key is; nothing where none is marked.
    std::optional<std::size_t> key;
    bool enabled;
    bool checked;
    bool separator;
};

/// Which line of an open menu is highlighted, and how keys and the mouse move on from it. Lines
/// that cannot be picked are passed over. At first none is highlighted.
class MenuChoice {
 public:
    explicit MenuChoice(const PopupMenu& menu);

    const std::vector<MenuEntry>& entries() const { return entries_; }
    std::optional<std::size_t> highlighted() const { return highlighted_; }

    /// To the next line below or above, and from the last one to the first.
    void moveDown();
    void moveUp();
    void moveToFirst();
    void moveToLast();
    /// To the line that the mouse is on, if it is on one that can be picked. Whether it is.
    bool pointAt(std::optional<std::size_t> line);
    /// To the next line that a letter selects: by its access key, or without one by its first
    /// letter. Whether there is only one, which is then picked. Letters of the English alphabet
    /// are the same in both cases.
    bool call(char letter);

 private:
    void moveBy(std::size_t step, std::size_t from);

    std::vector<MenuEntry> entries_;
    std::optional<std::size_t> highlighted_;
};

}  // namespace huebrush::forms
