// SPDX-License-Identifier: MPL-2.0

#include "base/CssColor.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "base/Text.h"

namespace huebrush::base {

namespace {

struct NamedColor {
    std::string_view name;
    std::int32_t value;  // 0xRRGGBB
};

// Sorted by name, for the search.
constexpr std::array kNamedColors{
    NamedColor{"aliceblue", 0xF0F8FF},
    NamedColor{"antiquewhite", 0xFAEBD7},
    NamedColor{"aqua", 0x00FFFF},
    NamedColor{"aquamarine", 0x7FFFD4},
    NamedColor{"azure", 0xF0FFFF},
    NamedColor{"beige", 0xF5F5DC},
    NamedColor{"bisque", 0xFFE4C4},
    NamedColor{"black", 0x000000},
    NamedColor{"blanchedalmond", 0xFFEBCD},
    NamedColor{"blue", 0x0000FF},
    NamedColor{"blueviolet", 0x8A2BE2},
    NamedColor{"brown", 0xA52A2A},
    NamedColor{"burlywood", 0xDEB887},
    NamedColor{"cadetblue", 0x5F9EA0},
    NamedColor{"chartreuse", 0x7FFF00},
    NamedColor{"chocolate", 0xD2691E},
    NamedColor{"coral", 0xFF7F50},
    NamedColor{"cornflowerblue", 0x6495ED},
    NamedColor{"cornsilk", 0xFFF8DC},
    NamedColor{"crimson", 0xDC143C},
    NamedColor{"cyan", 0x00FFFF},
    NamedColor{"darkblue", 0x00008B},
    NamedColor{"darkcyan", 0x008B8B},
    NamedColor{"darkgoldenrod", 0xB8860B},
    NamedColor{"darkgray", 0xA9A9A9},
    NamedColor{"darkgreen", 0x006400},
    NamedColor{"darkgrey", 0xA9A9A9},
    NamedColor{"darkkhaki", 0xBDB76B},
    NamedColor{"darkmagenta", 0x8B008B},
    NamedColor{"darkolivegreen", 0x556B2F},
    NamedColor{"darkorange", 0xFF8C00},
    NamedColor{"darkorchid", 0x9932CC},
    NamedColor{"darkred", 0x8B0000},
    NamedColor{"darksalmon", 0xE9967A},
    NamedColor{"darkseagreen", 0x8FBC8F},
    NamedColor{"darkslateblue", 0x483D8B},
    NamedColor{"darkslategray", 0x2F4F4F},
    NamedColor{"darkslategrey", 0x2F4F4F},
    NamedColor{"darkturquoise", 0x00CED1},
    NamedColor{"darkviolet", 0x9400D3},
    NamedColor{"deeppink", 0xFF1493},
    NamedColor{"deepskyblue", 0x00BFFF},
    NamedColor{"dimgray", 0x696969},
    NamedColor{"dimgrey", 0x696969},
    NamedColor{"dodgerblue", 0x1E90FF},
    NamedColor{"firebrick", 0xB22222},
    NamedColor{"floralwhite", 0xFFFAF0},
    NamedColor{"forestgreen", 0x228B22},
    NamedColor{"fuchsia", 0xFF00FF},
    NamedColor{"gainsboro", 0xDCDCDC},
    NamedColor{"ghostwhite", 0xF8F8FF},
    NamedColor{"gold", 0xFFD700},
    NamedColor{"goldenrod", 0xDAA520},
    NamedColor{"gray", 0x808080},
    NamedColor{"green", 0x008000},
    NamedColor{"greenyellow", 0xADFF2F},
    NamedColor{"grey", 0x808080},
    NamedColor{"honeydew", 0xF0FFF0},
    NamedColor{"hotpink", 0xFF69B4},
    NamedColor{"indianred", 0xCD5C5C},
    NamedColor{"indigo", 0x4B0082},
    NamedColor{"ivory", 0xFFFFF0},
    NamedColor{"khaki", 0xF0E68C},
    NamedColor{"lavender", 0xE6E6FA},
    NamedColor{"lavenderblush", 0xFFF0F5},
    NamedColor{"lawngreen", 0x7CFC00},
    NamedColor{"lemonchiffon", 0xFFFACD},
    NamedColor{"lightblue", 0xADD8E6},
    NamedColor{"lightcoral", 0xF08080},
    NamedColor{"lightcyan", 0xE0FFFF},
    NamedColor{"lightgoldenrodyellow", 0xFAFAD2},
    NamedColor{"lightgray", 0xD3D3D3},
    NamedColor{"lightgreen", 0x90EE90},
    NamedColor{"lightgrey", 0xD3D3D3},
    NamedColor{"lightpink", 0xFFB6C1},
    NamedColor{"lightsalmon", 0xFFA07A},
    NamedColor{"lightseagreen", 0x20B2AA},
    NamedColor{"lightskyblue", 0x87CEFA},
    NamedColor{"lightslategray", 0x778899},
    NamedColor{"lightslategrey", 0x778899},
    NamedColor{"lightsteelblue", 0xB0C4DE},
    NamedColor{"lightyellow", 0xFFFFE0},
    NamedColor{"lime", 0x00FF00},
    NamedColor{"limegreen", 0x32CD32},
    NamedColor{"linen", 0xFAF0E6},
    NamedColor{"magenta", 0xFF00FF},
    NamedColor{"maroon", 0x800000},
    NamedColor{"mediumaquamarine", 0x66CDAA},
    NamedColor{"mediumblue", 0x0000CD},
    NamedColor{"mediumorchid", 0xBA55D3},
    NamedColor{"mediumpurple", 0x9370DB},
    NamedColor{"mediumseagreen", 0x3CB371},
    NamedColor{"mediumslateblue", 0x7B68EE},
    NamedColor{"mediumspringgreen", 0x00FA9A},
    NamedColor{"mediumturquoise", 0x48D1CC},
    NamedColor{"mediumvioletred", 0xC71585},
    NamedColor{"midnightblue", 0x191970},
    NamedColor{"mintcream", 0xF5FFFA},
    NamedColor{"mistyrose", 0xFFE4E1},
    NamedColor{"moccasin", 0xFFE4B5},
    NamedColor{"navajowhite", 0xFFDEAD},
    NamedColor{"navy", 0x000080},
    NamedColor{"oldlace", 0xFDF5E6},
    NamedColor{"olive", 0x808000},
    NamedColor{"olivedrab", 0x6B8E23},
    NamedColor{"orange", 0xFFA500},
    NamedColor{"orangered", 0xFF4500},
    NamedColor{"orchid", 0xDA70D6},
    NamedColor{"palegoldenrod", 0xEEE8AA},
    NamedColor{"palegreen", 0x98FB98},
    NamedColor{"paleturquoise", 0xAFEEEE},
    NamedColor{"palevioletred", 0xDB7093},
    NamedColor{"papayawhip", 0xFFEFD5},
    NamedColor{"peachpuff", 0xFFDAB9},
    NamedColor{"peru", 0xCD853F},
    NamedColor{"pink", 0xFFC0CB},
    NamedColor{"plum", 0xDDA0DD},
    NamedColor{"powderblue", 0xB0E0E6},
    NamedColor{"purple", 0x800080},
    NamedColor{"rebeccapurple", 0x663399},
    NamedColor{"red", 0xFF0000},
    NamedColor{"rosybrown", 0xBC8F8F},
    NamedColor{"royalblue", 0x4169E1},
    NamedColor{"saddlebrown", 0x8B4513},
    NamedColor{"salmon", 0xFA8072},
    NamedColor{"sandybrown", 0xF4A460},
    NamedColor{"seagreen", 0x2E8B57},
    NamedColor{"seashell", 0xFFF5EE},
    NamedColor{"sienna", 0xA0522D},
    NamedColor{"silver", 0xC0C0C0},
    NamedColor{"skyblue", 0x87CEEB},
    NamedColor{"slateblue", 0x6A5ACD},
    NamedColor{"slategray", 0x708090},
    NamedColor{"slategrey", 0x708090},
    NamedColor{"snow", 0xFFFAFA},
    NamedColor{"springgreen", 0x00FF7F},
    NamedColor{"steelblue", 0x4682B4},
    NamedColor{"tan", 0xD2B48C},
    NamedColor{"teal", 0x008080},
    NamedColor{"thistle", 0xD8BFD8},
    NamedColor{"tomato", 0xFF6347},
    NamedColor{"turquoise", 0x40E0D0},
    NamedColor{"violet", 0xEE82EE},
    NamedColor{"wheat", 0xF5DEB3},
    NamedColor{"white", 0xFFFFFF},
    NamedColor{"whitesmoke", 0xF5F5F5},
    NamedColor{"yellow", 0xFFFF00},
    NamedColor{"yellowgreen", 0x9ACD32},
};

static_assert(kNamedColors.size() == 148);
static_assert(std::ranges::is_sorted(kNamedColors, {}, &NamedColor::name));

}  // namespace

std::optional<Rgb> fromCssName(std::string_view name) {
    const std::string lower = lowerCase(name);
    const auto* const found =
        std::ranges::lower_bound(kNamedColors, std::string_view(lower), {}, &NamedColor::name);
    if (found == kNamedColors.end() || found->name != lower) return std::nullopt;
    return swapRedAndBlue(found->value);
}

}  // namespace huebrush::base
