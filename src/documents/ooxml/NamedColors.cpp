// SPDX-License-Identifier: MPL-2.0

#include "documents/ooxml/NamedColors.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "base/CssColor.h"
#include "base/Text.h"

namespace huebrush::documents {

namespace {

using Row = std::pair<std::string_view, std::int32_t>;

/// In the order of the names; 0xRRGGBB.
constexpr std::array kSystemColors = std::to_array<Row>({
    {"activeborder", 0xB4B4B4},
    {"activecaption", 0x99B4D1},
    {"appworkspace", 0xABABAB},
    {"background", 0x000000},
    {"btnface", 0xF0F0F0},
    {"btnhighlight", 0xFFFFFF},
    {"btnshadow", 0xA0A0A0},
    {"btntext", 0x000000},
    {"buttonface", 0xF0F0F0},
    {"buttonhighlight", 0xFFFFFF},
    {"buttonshadow", 0xA0A0A0},
    {"buttontext", 0x000000},
    {"captiontext", 0x000000},
    {"graytext", 0x6D6D6D},
    {"highlight", 0x0078D7},
    {"highlighttext", 0xFFFFFF},
    {"inactiveborder", 0xF4F7FC},
    {"inactivecaption", 0xBFCDDB},
    {"inactivecaptiontext", 0x000000},
    {"infobackground", 0xFFFFE1},
    {"infobk", 0xFFFFE1},
    {"infotext", 0x000000},
    {"menu", 0xF0F0F0},
    {"menutext", 0x000000},
    {"scrollbar", 0xC8C8C8},
    {"threeddarkshadow", 0x696969},
    {"threedface", 0xF0F0F0},
    {"threedhighlight", 0xFFFFFF},
    {"threedlightshadow", 0xE3E3E3},
    {"threedshadow", 0xA0A0A0},
    {"window", 0xFFFFFF},
    {"windowframe", 0x646464},
    {"windowtext", 0x000000},
});

std::optional<std::int32_t> systemColor(std::string_view name) {
    const auto* const found = std::ranges::lower_bound(kSystemColors, name, {}, &Row::first);
    if (found == kSystemColors.end() || found->first != name) return {};
    return found->second;
}

std::string inFull(std::string name) {
    static constexpr std::pair<std::string_view, std::string_view> kShort[] = {
        {"dk", "dark"}, {"lt", "light"}, {"med", "medium"}};
    for (const auto& [begin, full] : kShort) {
        if (name.starts_with(begin) && !name.starts_with(full)) {
            return base::text(full, name.substr(begin.size()));
        }
    }
    return name;
}

}  // namespace

std::optional<std::int32_t> namedColor(std::string_view name) {
    const std::string lower = base::lowerCase(name);
    if (const auto color = base::fromCssName(inFull(lower))) return base::swapRedAndBlue(*color);
    return systemColor(lower);
}

}  // namespace huebrush::documents
