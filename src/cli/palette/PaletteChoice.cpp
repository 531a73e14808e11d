// SPDX-License-Identifier: MPL-2.0

#include "cli/palette/PaletteChoice.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <optional>
#include <vector>

#include "base/Text.h"
#include "cli/Failure.h"
#include "cli/InputFile.h"
#include "palette/FillRecord.h"

namespace huebrush::cli {

namespace {

using base::text;
using palette::Record;
using palette::valueOf;

std::int32_t idOf(const Record& palette) {
    const auto* const id = std::get_if<std::int32_t>(&valueOf(palette, "ID"));
    return id == nullptr ? 0 : *id;
}

/// The ID in "#3".
std::optional<std::int32_t> idFromText(const std::string& name) {
    if (!name.starts_with('#')) return std::nullopt;
    std::int32_t id = 0;
    const char* const end = name.data() + name.size();
    const auto result = std::from_chars(name.data() + 1, end, id);
    if (result.ec != std::errc{} || result.ptr != end) return std::nullopt;
    return id;
}

std::vector<Record> palettesWithId(jet::Database& database, std::int32_t id) {
    std::vector<Record> palettes = palette::listPalettes(database);
    std::erase_if(palettes, [&](const Record& each) { return idOf(each) != id; });
    return palettes;
}

/// "#3, #7 or #9"
std::string idsText(const std::vector<Record>& palettes) {
    std::string words;
    for (std::size_t i = 0; i < palettes.size(); ++i) {
        const bool isLast = i + 1 == palettes.size();
        words += text(i == 0 ? "" : isLast ? " or " : ", ", "#", idOf(palettes[i]));
    }
    return words;
}

}  // namespace

Record choosePalette(jet::Database& database, const std::string& file, const std::string& name) {
    std::vector<Record> found = palette::palettesNamed(database, name);
    if (found.empty()) {
        if (const auto id = idFromText(name)) found = palettesWithId(database, *id);
    }
    if (found.empty()) throw Failure(text(file, " has no palette \"", name, "\""));
    if (found.size() > 1) {
        throw Failure(text(file, " has ", found.size(), " palettes \"", name,
                           "\"; choose one by its ID: ", idsText(found)));
    }
    return std::move(found.front());
}

PaletteReference paletteReferenceFromText(const std::string& text) {
    constexpr std::string_view kEnding = ".mdb";
    const auto ending = std::search(text.begin(), text.end(), kEnding.begin(), kEnding.end(),
                                    [](unsigned char a, char b) { return std::tolower(a) == b; });
    const auto colon = std::find(ending, text.end(), ':');
    if (colon == text.end() || colon + 1 == text.end()) {
        throw Failure(base::text("\"", text, "\" must have the form FILE.mdb:NAME"));
    }
    return {{text.begin(), colon}, {colon + 1, text.end()}};
}

std::vector<fill::FillProperties> fillsOfReference(const std::string& text) {
    const PaletteReference reference = paletteReferenceFromText(text);
    requireReadable(reference.file);
    const auto database = jet::Database::open(jet::systemFiles(), reference.file);
    const Record palette = choosePalette(*database, reference.file, reference.name);
    std::vector<fill::FillProperties> fills;
    for (const Record& row : palette::fillsOf(*database, valueOf(palette, "ID"))) {
        fills.push_back(palette::fillOf(row));
    }
    if (fills.empty()) throw Failure(base::text("the palette \"", reference.name, "\" is empty"));
    return fills;
}

}  // namespace huebrush::cli
