// SPDX-License-Identifier: MPL-2.0

#include <cmath>
#include <iostream>
#include <optional>
#include <vector>

#include "base/Text.h"
#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/InputFile.h"
#include "cli/Listing.h"
#include "cli/palette/NewPaletteFile.h"
#include "cli/palette/PaletteCommands.h"
#include "palette/FillRecord.h"
#include "protocol/FillJson.h"

namespace huebrush::cli {

namespace {

using base::text;
using json = nlohmann::ordered_json;

/// A value of a row that a palette file keeps as another one.
struct Rounded {
    std::int32_t row;
    const char* property;
    float value;
    std::int32_t stored;
};

/// The fills of a document for a palette, and what it does not keep of them.
struct Saved {
    std::vector<fill::FillProperties> fills;
    std::vector<std::int32_t> unknownTextures;  ///< rows that are left out
    std::vector<Rounded> rounded;

    bool isComplete() const { return unknownTextures.empty() && rounded.empty(); }
};

void noteRounded(std::int32_t row, const char* property, float value, Saved& saved) {
    const std::int32_t stored = jet::toLong(value);
    if (static_cast<float>(stored) != value)
        saved.rounded.push_back({row, property, value, stored});
}

Saved savedFrom(const json& rows) {
    Saved saved;
    for (const json& line : rows) {
        const auto row = line.at("row").get<std::int32_t>();
        fill::FillProperties fill = protocol::fillFromJson(line.at("fill"));
        if (fill.UnknownTexture) {
            saved.unknownTextures.push_back(row);
            continue;
        }
        noteRounded(row, "transparency", fill.Transparency, saved);
        noteRounded(row, "gradient degree", fill.GradientDegree, saved);
        saved.fills.push_back(std::move(fill));
    }
    return saved;
}

void requireUsableName(const std::string& name) {
    constexpr std::size_t kMost = 30;
    const std::size_t length = base::lengthInCharacters(name);
    if (length == 0 || length > kMost) {
        throw Failure(text("the name of a palette must have 1 to ", kMost, " characters"));
    }
}

void requireNewName(jet::Database& database, const PaletteOptions& options) {
    if (options.replace || palette::palettesNamed(database, options.name).empty()) return;
    throw Failure(text(options.file, " already has a palette \"", options.name,
                       "\"; use --replace to replace it"));
}

void save(jet::Database& database, const Saved& saved, const PaletteOptions& options) {
    database.change([&] {
        requireNewName(database, options);
        palette::removePalettes(database, options.name);
        palette::PaletteAdder adder(database);
        const palette::PaletteSink::Values group{{&adder.groups().column("Name"), options.name}};
        adder.begin(group);
        for (const fill::FillProperties& each : saved.fills) {
            adder.fill(palette::valuesOf(adder.elements(), each));
        }
        adder.end(group);
    });
}

json toJson(const Saved& saved, const PaletteOptions& options, bool created) {
    json rounded = json::array();
    for (const Rounded& each : saved.rounded) {
        // No more digits than a float has.
        const double value = std::round(static_cast<double>(each.value) * 1e6) / 1e6;
        rounded.push_back({{"row", each.row},
                           {"property", each.property},
                           {"value", value},
                           {"stored", each.stored}});
    }
    return {{"file", options.file},          {"created", created},
            {"palette", options.name},       {"fills", saved.fills.size()},
            {"rounded", std::move(rounded)}, {"unknownTextures", saved.unknownTextures}};
}

void printLosses(const Saved& saved) {
    for (const std::int32_t row : saved.unknownTextures) {
        std::cerr << text("huebrush: row ", row, " left out: its texture is unknown\n");
    }
    for (const Rounded& each : saved.rounded) {
        std::cerr << text("huebrush: row ", each.row, ": ", each.property, " ",
                          percentText(each.value), "% stored as ", each.stored * 100,
                          "%; a palette file keeps whole numbers only\n");
    }
}

}  // namespace

int runPaletteSave(const PaletteOptions& options) {
    requireUsableName(options.name);
    // Whatever can be wrong with the file is found before an office is started.
    jet::FileSystem& files = jet::systemFiles();
    const std::string target = files.resolve(options.file);
    std::shared_ptr<jet::Database> database;
    if (files.exists(target)) {
        requireReadable(options.file);
        database = jet::Database::open(files, options.file);
        database->definition(palette::kElementTable);
        requireNewName(*database, options);
    } else {
        files.create(target);
    }

    DocumentJobs jobs(Through::whicheverSuffices);
    const Listing listing = listFills(options.document, jobs, !options.json);
    if (listing.failed) return ExitCode::kFailed;
    const Saved saved = savedFrom(listing.listing.at("rows"));
    if (saved.fills.empty()) throw Failure(options.document + " has no fill that can be kept");
    if (database) {
        save(*database, saved, options);
    } else if (!createPaletteFile(target, nullptr,
                                  [&](jet::Database& made) { save(made, saved, options); })) {
        return ExitCode::kFailed;
    }

    if (options.json) {
        std::cout
            << toJson(saved, options, !database).dump(2, ' ', false, json::error_handler_t::replace)
            << '\n';
    } else {
        const std::size_t count = saved.fills.size();
        if (!database) std::cout << "created " << options.file << '\n';
        std::cout << text("palette \"", oneLine(options.name), "\" with ", count,
                          count == 1 ? " fill" : " fills", " saved in ", options.file, "\n");
    }
    printLosses(saved);
    return saved.isComplete() ? ExitCode::kDone : ExitCode::kStoredOtherwise;
}

}  // namespace huebrush::cli
