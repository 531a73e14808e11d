// SPDX-License-Identifier: MPL-2.0

#include "view/MenuPainter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace huebrush::view {

namespace {

/// How far the lines between others fade into the background.
constexpr double kFaintLine = 0.75;

}  // namespace

MenuLayout layoutOf(const forms::MenuChoice& choice, Canvas& canvas, const Scale& scale) {
    std::int32_t widest = 0;
    for (const forms::MenuEntry& entry : choice.entries()) {
        widest = std::max(widest, canvas.textSize(entry.text, {}).width);
    }
    return {choice.entries(), scale, widest, canvas.textSize({}, {}).height};
}

void MenuPainter::paint() const {
    canvas_.rectangle({0, 0, layout_.size().width, layout_.size().height}, theme_.menu,
                      mixed(theme_.menuText, theme_.menu, kFaded));
    for (std::size_t line = 0; line < choice_.entries().size(); ++line) paintLine(line);
}

void MenuPainter::paintLine(std::size_t line) const {
    const forms::MenuEntry& entry = choice_.entries()[line];
    if (entry.separator) {
        canvas_.rectangle(layout_.ruleOf(line), mixed(theme_.menuText, theme_.menu, kFaintLine),
                          {});
        return;
    }
    std::int32_t text = entry.enabled ? readable(theme_.menuText, theme_.menu)
                                      : disabledText(theme_.menuText, theme_.menu);
    if (choice_.highlighted() == line) {
        canvas_.rectangle(layout_.placeOf(line), theme_.highlight, {});
        text = readable(theme_.highlightText, theme_.highlight);
    }
    if (entry.checked) paintTick(layout_.tickOf(line), text);
    paintText(line, text);
}

void MenuPainter::paintTick(const Rectangle& place, std::int32_t colour) const {
    /// The corners, as shares of the square.
    constexpr std::array<std::pair<double, double>, 6> kCorners = {
        {{0.28, 0.48}, {0.44, 0.62}, {0.72, 0.26}, {0.78, 0.32}, {0.44, 0.76}, {0.22, 0.54}}};
    const auto along = [](std::int32_t begin, std::int32_t length, double share) {
        return begin + static_cast<std::int32_t>(std::lround(length * share));
    };
    std::vector<Point> corners;
    corners.reserve(kCorners.size());
    for (const auto& [x, y] : kCorners) {
        corners.push_back({along(place.left, place.width, x), along(place.top, place.height, y)});
    }
    canvas_.polygon(corners, colour);
}

void MenuPainter::paintText(std::size_t line, std::int32_t colour) const {
    const forms::MenuEntry& entry = choice_.entries()[line];
    const Point at = layout_.textOf(line);
    canvas_.text(at, entry.text, {}, colour);
    if (!entry.key) return;
    const std::int32_t left = canvas_.textSize(entry.beforeKey(), {}).width;
    const std::int32_t right = canvas_.textSize(entry.throughKey(), {}).width;
    canvas_.rectangle({at.x + left, at.y + canvas_.ascent({}) + layout_.thickness(), right - left,
                       layout_.thickness()},
                      colour, {});
}

}  // namespace huebrush::view
