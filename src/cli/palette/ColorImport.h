// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "cli/exchange/Exchange.h"
#include "palette/PaletteFile.h"

namespace huebrush::cli {

/// What was added from a file of another program, and what of it a palette file does not hold.
struct ColorImport {
    std::size_t fills = 0;
    std::size_t named = 0;         ///< names of colours are not kept
    std::size_t translucent = 0;   ///< colours became opaque
    std::size_t approximated = 0;  ///< colours without an exact equivalent
    /// Names of palettes, and what they were shortened to.
    std::vector<std::pair<std::string, std::string>> shortened;

    /// Whether the palettes hold everything but names of colours.
    bool isComplete() const { return translucent == 0 && approximated == 0 && shortened.empty(); }
};

/// The names of a palette: that of all palettes that are read, if one is given; that in the file;
/// otherwise that of the file. What is longer than the file's column is shortened.
struct PaletteNaming {
    std::string given;
    std::string ofFile;
};

/// Adds the palettes as solid fills; those without colours are left out. Failure when there are no
/// colours at all.
ColorImport addColors(const ReadColors& colors, const PaletteNaming& naming,
                      palette::PaletteAdder& adder);

/// One line on standard error for each kind of loss.
void printLosses(const ColorImport& import);
nlohmann::ordered_json toJson(const ColorImport& import);

}  // namespace huebrush::cli
