// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "forms/MenuChoice.h"
#include "view/Geometry.h"

namespace huebrush::view {

/// Where the lines of a menu lie in its window.
class MenuLayout {
 public:
    /// `textWidth` and `textHeight` in pixels: of the widest entry, and of a line of text.
    MenuLayout(const std::vector<forms::MenuEntry>& entries, const Scale& scale,
               std::int32_t textWidth, std::int32_t textHeight);

    const Size& size() const { return size_; }
    const Rectangle& placeOf(std::size_t line) const { return lines_.at(line); }
    /// The line at a place, separators included.
    std::optional<std::size_t> lineAt(const Point& at) const;
    /// The square before the text, where a tick shows.
    Rectangle tickOf(std::size_t line) const;
    /// Where the text of a line begins.
    Point textOf(std::size_t line) const;
    /// The line that is drawn for a separator.
    Rectangle ruleOf(std::size_t line) const;
    /// How thick lines are drawn.
    std::int32_t thickness() const { return thickness_; }

 private:
    std::int32_t gap_;
    std::int32_t lineHeight_;
    std::int32_t thickness_;
    Size size_;
    std::vector<Rectangle> lines_;
};

}  // namespace huebrush::view
