// SPDX-License-Identifier: MPL-2.0

#include <filesystem>
#include <iostream>
#include <map>
#include <optional>

#include "base/Text.h"
#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/InputFile.h"
#include "cli/JsonWriter.h"
#include "cli/OutputFile.h"
#include "cli/exchange/Exchange.h"
#include "cli/palette/PaletteChoice.h"
#include "cli/palette/PaletteCommands.h"
#include "palette/FillRecord.h"

namespace huebrush::cli {

namespace {

using base::text;
using host::MsoFillType;
using palette::valueOf;

/// A palette's solid fills, and what has no place among them.
struct Exported {
    ColorPalette palette;
    std::size_t translucent = 0;                ///< colours whose transparency is not written
    std::map<std::string, std::size_t> others;  ///< fills that are not solid, by what they are

    bool isComplete() const { return translucent == 0 && others.empty(); }
};

/// What a fill is that is not solid.
const char* kindOf(const fill::FillProperties& fill) {
    if (fill.Visible == host::MsoTriState::msoFalse) return "no fill";
    switch (fill.Type) {
        case MsoFillType::msoFillPatterned:
            return "pattern";
        case MsoFillType::msoFillGradient:
            return "gradient";
        case MsoFillType::msoFillTextured:
            return "texture";
        case MsoFillType::msoFillPicture:
            return "picture";
        default:
            return "other";
    }
}

Exported exportedFrom(const std::string& name, const std::vector<palette::Record>& rows) {
    Exported result{{name, {}}, 0, {}};
    for (const palette::Record& row : rows) {
        const fill::FillProperties fill = palette::fillOf(row);
        const bool isVisible = fill.Visible != host::MsoTriState::msoFalse;
        if (!isVisible || fill.Type != MsoFillType::msoFillSolid) {
            ++result.others[kindOf(fill)];
            continue;
        }
        addColor(result.palette, fill.ForeColorRGB);
        if (fill.Transparency != 0) ++result.translucent;
    }
    return result;
}

const ExchangeFormat& formatOf(const PaletteOptions& options) {
    const ExchangeFormat* const format = chosenFormat(options.format, options.output);
    if (format != nullptr) return *format;
    std::string endings;
    for (const ExchangeFormat& each : exchangeFormats()) {
        endings += text(endings.empty() ? "" : ", ", ".", each.name);
    }
    throw Failure(text("cannot write ", options.output, ": the name must end in one of ", endings));
}

void printExported(const Exported& exported, const PaletteOptions& options) {
    const std::size_t count = exported.palette.colors.size();
    std::cout << text(count, count == 1 ? " colour" : " colours", " of the palette \"",
                      oneLine(exported.palette.name), "\" written to ", options.output, "\n");
}

void printLosses(const Exported& exported) {
    std::size_t count = 0;
    std::string kinds;
    for (const auto& [kind, times] : exported.others) {
        count += times;
        kinds += text(kinds.empty() ? "" : ", ", times, " × ", kind);
    }
    if (count > 0) {
        std::cerr << text("huebrush: ", count, count == 1 ? " fill" : " fills",
                          " left out, not solid: ", kinds, "\n");
    }
    if (exported.translucent > 0) {
        std::cerr << text("huebrush: ", exported.translucent,
                          exported.translucent == 1 ? " colour" : " colours",
                          " written without transparency\n");
    }
}

}  // namespace

int runPaletteExport(const PaletteOptions& options) {
    const ExchangeFormat& format = formatOf(options);
    requireReadable(options.file);
    const auto database = jet::Database::open(jet::systemFiles(), options.file);
    const palette::Record group = choosePalette(*database, options.file, options.name);
    const auto* const name = std::get_if<std::string>(&valueOf(group, "Name"));
    const Exported exported = exportedFrom(name == nullptr ? std::string() : *name,
                                           palette::fillsOf(*database, valueOf(group, "ID")));
    if (exported.palette.colors.empty()) {
        throw Failure(text("the palette \"", exported.palette.name, "\" has no solid fills"));
    }
    std::error_code error;
    if (std::filesystem::equivalent(options.file, options.output, error)) {
        throw Failure("the output is the palette file itself");
    }
    const std::string content = format.write(exported.palette);
    OutputFile file(options.output);
    file.commit(std::vector<std::uint8_t>(content.begin(), content.end()));
    if (options.json) {
        std::cout << printed({{"file", options.file},
                              {"output", options.output},
                              {"format", format.name},
                              {"palette", exported.palette.name},
                              {"colors", exported.palette.colors.size()},
                              {"leftOut", exported.others},
                              {"withoutTransparency", exported.translucent}})
                  << '\n';
    } else {
        printExported(exported, options);
    }
    printLosses(exported);
    return exported.isComplete() ? ExitCode::kDone : ExitCode::kStoredOtherwise;
}

}  // namespace huebrush::cli
