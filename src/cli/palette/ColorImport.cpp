// SPDX-License-Identifier: MPL-2.0

#include "cli/palette/ColorImport.h"

#include <iostream>

#include "base/Text.h"
#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/Interrupt.h"
#include "palette/FillRecord.h"
#include "palette/SolidFill.h"

namespace huebrush::cli {

namespace {

using base::text;

/// The first name that is more than blanks, in one line.
std::string firstName(const std::vector<std::string>& names) {
    for (const std::string& each : names) {
        const std::string name = oneLine(each);
        const std::size_t begin = name.find_first_not_of(' ');
        if (begin != std::string::npos) {
            return name.substr(begin, name.find_last_not_of(' ') + 1 - begin);
        }
    }
    return {};
}

/// A name that the column takes.
std::string shortened(const std::string& name, std::size_t most) {
    std::u16string units = base::toUtf16(name);
    if (units.size() <= most) return name;
    const bool splitsCharacter = units[most] >= 0xDC00 && units[most] < 0xE000;
    units.resize(splitsCharacter ? most - 1 : most);
    while (!units.empty() && units.back() == u' ') units.pop_back();
    return base::toUtf8(units);
}

void addPalette(const ColorPalette& palette, const std::string& name,
                palette::PaletteAdder& adder) {
    const palette::PaletteSink::Values group{{&adder.groups().column("Name"), name}};
    adder.begin(group);
    for (const base::Rgb color : palette.colors) {
        throwIfInterrupted();
        adder.fill(palette::valuesOf(adder.elements(), palette::solidFill(color)));
    }
    adder.end(group);
}

}  // namespace

ColorImport addColors(const ReadColors& colors, const PaletteNaming& naming,
                      palette::PaletteAdder& adder) {
    ColorImport import{0, colors.named, colors.translucent, colors.approximated, {}};
    const std::size_t most = adder.groups().column("Name").length / 2;
    for (const ColorPalette& palette : colors.palettes) {
        if (palette.colors.empty()) continue;
        const std::string wanted = firstName({naming.given, palette.name, naming.ofFile});
        const std::string name = shortened(wanted, most);
        if (name != wanted) import.shortened.emplace_back(wanted, name);
        addPalette(palette, name, adder);
        import.fills += palette.colors.size();
    }
    if (import.fills == 0) throw Failure("there are no colours");
    return import;
}

void printLosses(const ColorImport& import) {
    for (const auto& [name, kept] : import.shortened) {
        std::cerr << text("huebrush: the name \"", name, "\" was shortened to \"", kept, "\"\n");
    }
    if (import.approximated > 0) {
        std::cerr << text("huebrush: ", countOf(import.approximated, "colour", "colours"),
                          " of CMYK or Lab approximated\n");
    }
    if (import.translucent > 0) {
        std::cerr << text("huebrush: ", countOf(import.translucent, "colour", "colours"),
                          " added without transparency\n");
    }
}

nlohmann::ordered_json toJson(const ColorImport& import) {
    nlohmann::ordered_json shortened = nlohmann::ordered_json::array();
    for (const auto& [name, kept] : import.shortened) {
        shortened.push_back({{"name", name}, {"kept", kept}});
    }
    return {{"colorNames", import.named},
            {"approximated", import.approximated},
            {"withoutTransparency", import.translucent},
            {"shortened", std::move(shortened)}};
}

}  // namespace huebrush::cli
