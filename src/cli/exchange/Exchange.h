// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/Color.h"

namespace huebrush::cli {

/// A palette as drawing programs exchange it: opaque colours, one after the other.
struct ColorPalette {
    std::string name;  ///< empty where the file gives none
    std::vector<base::Rgb> colors;
};

/// What a file of another program holds, and what of it the colours do not express.
struct ReadColors {
    std::vector<ColorPalette> palettes;
    std::size_t named = 0;         ///< colours with a name of their own
    std::size_t translucent = 0;   ///< colours that were not opaque
    std::size_t approximated = 0;  ///< colours for print, or of a space that screens do not have
};

/// Adds a colour to a palette. Failure when there are more than the rows of the recolour dialog can
/// be numbered.
void addColor(ColorPalette& palette, base::Rgb color);

/// A format in which other programs keep palettes.
struct ExchangeFormat {
    std::string_view name;   ///< also the ending of files, without its dot
    std::string_view title;  ///< what such a file is called
    /// Reads a whole file. Failure, with the place, for what is not one of this format.
    ReadColors (*read)(std::string_view bytes);
    /// The whole file.
    std::string (*write)(const ColorPalette& palette);
};

/// All formats.
const std::vector<ExchangeFormat>& exchangeFormats();
/// The format of a name, in any case; nullptr when there is none.
const ExchangeFormat* exchangeFormatOf(std::string_view name);
/// The format that is asked for by its name, or, where that is empty, by the ending of a file.
const ExchangeFormat* chosenFormat(const std::string& name, const std::filesystem::path& file);

}  // namespace huebrush::cli
