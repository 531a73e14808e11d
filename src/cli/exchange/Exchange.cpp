// SPDX-License-Identifier: MPL-2.0

#include "cli/exchange/Exchange.h"

#include <algorithm>
#include <limits>

#include "base/Text.h"
#include "cli/Failure.h"
#include "cli/exchange/ColorTable.h"
#include "cli/exchange/GimpPalette.h"
#include "cli/exchange/SwatchExchange.h"

namespace huebrush::cli {

namespace {

bool isSame(std::string_view one, std::string_view other) {
    return base::lowerCase(one) == base::lowerCase(other);
}

}  // namespace

void addColor(ColorPalette& palette, base::Rgb color) {
    constexpr std::size_t kMost = std::numeric_limits<std::int16_t>::max();
    if (palette.colors.size() == kMost) {
        throw Failure(base::text("a palette has more than ", kMost, " colours"));
    }
    palette.colors.push_back(color);
}

const std::vector<ExchangeFormat>& exchangeFormats() {
    static const std::vector<ExchangeFormat> kFormats{
        {"gpl", "GIMP palette", readGimpPalette, writeGimpPalette},
        {"soc", "LibreOffice colour table", readColorTable, writeColorTable},
        {"ase", "Adobe Swatch Exchange file", readSwatchExchange, writeSwatchExchange}};
    return kFormats;
}

const ExchangeFormat* exchangeFormatOf(std::string_view name) {
    const auto& formats = exchangeFormats();
    const auto found = std::find_if(formats.begin(), formats.end(),
                                    [&](const auto& format) { return isSame(format.name, name); });
    return found == formats.end() ? nullptr : &*found;
}

const ExchangeFormat* chosenFormat(const std::string& name, const std::filesystem::path& file) {
    if (!name.empty()) return exchangeFormatOf(name);
    const std::string ending = file.extension().string();
    return ending.empty() ? nullptr : exchangeFormatOf(std::string_view(ending).substr(1));
}

}  // namespace huebrush::cli
