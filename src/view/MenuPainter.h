// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>

#include "forms/MenuChoice.h"
#include "view/Canvas.h"
#include "view/MenuLayout.h"
#include "view/Theme.h"

namespace huebrush::view {

/// The layout of a menu that is drawn on such a canvas.
MenuLayout layoutOf(const forms::MenuChoice& choice, Canvas& canvas, const Scale& scale);

/// Draws a menu.
class MenuPainter {
 public:
    /// All outlive it.
    MenuPainter(Canvas& canvas, const Theme& theme, const MenuLayout& layout,
                const forms::MenuChoice& choice)
        : canvas_(canvas), theme_(theme), layout_(layout), choice_(choice) {}

    void paint() const;

 private:
    void paintLine(std::size_t line) const;
    void paintTick(const Rectangle& place, std::int32_t colour) const;
    void paintText(std::size_t line, std::int32_t colour) const;

    Canvas& canvas_;
    const Theme& theme_;
    const MenuLayout& layout_;
    const forms::MenuChoice& choice_;
};

}  // namespace huebrush::view
