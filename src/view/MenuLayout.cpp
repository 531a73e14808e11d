// SPDX-License-Identifier: MPL-2.0

#include "view/MenuLayout.h"

#include <algorithm>

namespace huebrush::view {

namespace {

// In twips.
constexpr double kThickness = 15;
constexpr double kEdge = 45;
constexpr double kGap = 75;
constexpr double kSeparatorHeight = 120;

}  // namespace

MenuLayout::MenuLayout(const std::vector<forms::MenuEntry>& entries, const Scale& scale,
                       std::int32_t textWidth, std::int32_t textHeight)
    : gap_(scale.toPixels(kGap)),
      lineHeight_(textHeight + 2 * gap_),
      thickness_(scale.toPixels(kThickness)) {
    const std::int32_t edge = scale.toPixels(kEdge);
    // The place of the tick comes before the text, and as much space again after it.
    size_.width = textWidth + 2 * (edge + lineHeight_);
    std::int32_t top = edge;
    for (const forms::MenuEntry& entry : entries) {
        const std::int32_t height =
            entry.separator ? scale.toPixels(kSeparatorHeight) : lineHeight_;
        lines_.push_back({edge, top, size_.width - 2 * edge, height});
        top += height;
    }
    size_.height = top + edge;
}

std::optional<std::size_t> MenuLayout::lineAt(const Point& at) const {
    const auto found =
        std::ranges::find_if(lines_, [&](const Rectangle& line) { return line.contains(at); });
    if (found == lines_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - lines_.begin());
}

Rectangle MenuLayout::tickOf(std::size_t line) const {
    const Rectangle& place = placeOf(line);
    return {place.left, place.top, lineHeight_, lineHeight_};
}

Point MenuLayout::textOf(std::size_t line) const {
    const Rectangle& place = placeOf(line);
    return {place.left + lineHeight_, place.top + gap_};
}

Rectangle MenuLayout::ruleOf(std::size_t line) const {
    const Rectangle& place = placeOf(line);
    return {place.left + gap_, place.top + (place.height - thickness_) / 2, place.width - 2 * gap_,
            thickness_};
}

}  // namespace huebrush::view
