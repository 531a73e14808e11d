// SPDX-License-Identifier: MPL-2.0

#include <filesystem>
#include <iostream>

#include "base/Error.h"
#include "base/PictureFile.h"
#include "base/Text.h"
#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/InputFile.h"
#include "cli/Interrupt.h"
#include "cli/OutputFile.h"
#include "cli/PngFile.h"
#include "cli/palette/ContactSheet.h"
#include "cli/palette/PaletteChoice.h"
#include "cli/palette/PaletteCommands.h"

namespace huebrush::cli {

namespace {

using base::text;
using json = nlohmann::ordered_json;
using palette::valueOf;

/// How many fills have which kind of preview; only bitmaps are shown.
struct Counts {
    std::size_t shown = 0;
    std::size_t missing = 0;
    std::size_t metafiles = 0;
    std::size_t unreadable = 0;
};

/// Puts the preview of one fill on the sheet.
void addPreview(ContactSheet& sheet, const jet::Value& stored, Counts& counts) {
    const auto* const bytes = std::get_if<jet::Bytes>(&stored);
    if (bytes == nullptr) {
        ++counts.missing;
        return sheet.addPlaceholder();
    }
    try {
        const base::Picture picture = base::loadPicture(*bytes);
        if (picture.format() == base::PictureFormat::metafile) {
            ++counts.metafiles;
            return sheet.addPlaceholder();
        }
        base::Pixels pixels = base::decodeBitmap(*bytes);
        base::ignoreUnusedAlpha(pixels);
        sheet.add(pixels);
        ++counts.shown;
    } catch (const base::Error&) {
        ++counts.unreadable;
        sheet.addPlaceholder();
    }
}

std::string summaryOf(const Counts& counts) {
    std::string words = text(counts.shown, counts.shown == 1 ? " preview" : " previews");
    if (counts.missing > 0) words += text(", ", counts.missing, " without a preview");
    if (counts.metafiles > 0) {
        words += text(", ", counts.metafiles, counts.metafiles == 1 ? " metafile" : " metafiles",
                      " not drawn");
    }
    if (counts.unreadable > 0) words += text(", ", counts.unreadable, " unreadable");
    return words;
}

}  // namespace

int runPalettePreview(const PaletteOptions& options) {
    requireReadable(options.file);
    const auto database = jet::Database::open(jet::systemFiles(), options.file);
    const palette::Record group = choosePalette(*database, options.file, options.name);
    const std::vector<palette::Record> fills = palette::fillsOf(*database, valueOf(group, "ID"));
    if (fills.empty()) throw Failure(text("the palette \"", options.name, "\" has no fills"));
    if (fills.size() > ContactSheet::mostPlaces()) {
        throw Failure(text("the palette \"", options.name, "\" has ", fills.size(),
                           " fills; a sheet has room for ", ContactSheet::mostPlaces()));
    }
    std::error_code error;
    if (std::filesystem::equivalent(options.file, options.output, error)) {
        throw Failure("the output is the palette file itself");
    }
    OutputFile file(options.output);
    ContactSheet sheet(fills.size());
    Counts counts;
    for (const palette::Record& fill : fills) {
        throwIfInterrupted();
        addPreview(sheet, valueOf(fill, "FillPreview"), counts);
    }
    file.commit(pngFile(sheet.width(), sheet.height(), sheet.colors()));
    if (options.json) {
        std::cout << json{{"file", options.file},          {"palette", options.name},
                          {"output", options.output},      {"fills", fills.size()},
                          {"shown", counts.shown},         {"missing", counts.missing},
                          {"metafiles", counts.metafiles}, {"unreadable", counts.unreadable}}
                         .dump(2, ' ', false, json::error_handler_t::replace)
                  << '\n';
    } else {
        std::cout << text(summaryOf(counts), "; sheet written to ", options.output, "\n");
    }
    return ExitCode::kDone;
}

}  // namespace huebrush::cli
