// SPDX-License-Identifier: MPL-2.0

#include "cli/palette/PaletteCommands.h"

#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <optional>

#include "base/Text.h"
#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/InputFile.h"
#include "cli/palette/ColorImport.h"
#include "cli/palette/NewPaletteFile.h"
#include "cli/palette/PaletteJson.h"
#include "jet/check/Check.h"
#include "palette/PaletteFile.h"

namespace huebrush::cli {

namespace {

namespace fs = std::filesystem;
using base::text;
using json = nlohmann::ordered_json;
using palette::Record;
using palette::valueOf;

std::shared_ptr<jet::Database> open(const PaletteOptions& options) {
    requireReadable(options.file);
    return jet::Database::open(jet::systemFiles(), options.file);
}

json listOf(const std::vector<Record>& palettes) {
    json list = json::array();
    for (const Record& each : palettes) list.push_back(toJson(each));
    return list;
}

/// A value as the terminal shows it.
std::string shown(const jet::Value& value) {
    if (const auto* number = std::get_if<std::int32_t>(&value)) return text(*number);
    if (const auto* words = std::get_if<std::string>(&value)) return oneLine(*words);
    return "–";
}

/// Pads a column on the left, counting characters and not bytes.
std::string rightAligned(const std::string& value, std::size_t width) {
    const std::size_t length = base::lengthInCharacters(value);
    return std::string(length < width ? width - length : 0, ' ') + value;
}

void printPalettes(const std::vector<Record>& palettes) {
    std::cout << "   ID  fills  name\n";
    for (const Record& each : palettes) {
        std::cout << rightAligned(shown(valueOf(each, "ID")), 5)
                  << rightAligned(shown(valueOf(each, "Count")), 7) << "  "
                  << shown(valueOf(each, "Name"));
        const auto* description = std::get_if<std::string>(&valueOf(each, "Description"));
        if (description != nullptr && !description->empty()) {
            std::cout << " – " << oneLine(*description);
        }
        std::cout << '\n';
    }
}

const char* nameOf(jet::Severity severity) {
    return severity == jet::Severity::damage ? "damage" : "waste";
}

/// What an import has added; the palettes have IDs one after the other.
struct Added {
    std::int32_t first = 0;
    std::size_t count = 0;
    /// Of an import from another program.
    std::optional<ColorImport> colors;
};

void printAddedAsJson(const std::string& file, jet::Database& database, const Added& added) {
    const jet::Table groups(database, palette::kGroupTable);
    JsonWriter out(std::cout);
    out.beginObject();
    out.key(JsonWriter::quoted("file"));
    out.value(json(file));
    out.key(JsonWriter::quoted("palettes"));
    out.beginArray();
    for (std::size_t i = 0; i < added.count; ++i) {
        const auto id = static_cast<std::int32_t>(added.first + static_cast<std::int32_t>(i));
        groups.visitRows(groups.column("ID"), id, [&](jet::RowId where) {
            if (const auto row = groups.row(where))
                out.value(toJson(palette::recordOf(groups, *row)));
            return true;
        });
    }
    out.endArray();
    if (added.colors) {
        out.key(JsonWriter::quoted("notKept"));
        out.value(toJson(*added.colors));
    }
    out.endObject();
    out.finish();
}

void printAdded(const std::string& file, const Added& added) {
    std::cout << countOf(added.count, "palette", "palettes");
    if (added.colors) std::cout << " with " << countOf(added.colors->fills, "fill", "fills");
    std::cout << " added to " << file;
    if (added.colors && added.colors->named > 0) {
        std::cout << "; " << countOf(added.colors->named, "name of a colour", "names of colours")
                  << " not kept";
    }
    std::cout << '\n';
}

/// Reads a file of another program; what is wrong with it is said with its name.
ColorImport importColors(const ExchangeFormat& format, const PaletteOptions& options,
                         palette::PaletteAdder& adder) {
    constexpr std::size_t kMostBytes = 16'000'000;
    const std::string bytes = readBytes(options.input, kMostBytes);
    try {
        const PaletteNaming naming{options.name, fs::path(options.input).stem().string()};
        return addColors(format.read(bytes), naming, adder);
    } catch (const Failure& failure) {
        throw Failure(text(options.input, " is not a usable ", format.title, ": ", failure.what()));
    }
}

/// Adds what is in the input; the JSON of a dump where no other format is asked for.
Added import(const PaletteOptions& options, palette::PaletteAdder& adder) {
    Added added;
    const std::int32_t before = adder.lastId();
    const ExchangeFormat* const format = chosenFormat(options.format, options.input);
    if (format != nullptr) {
        added.colors = importColors(*format, options, adder);
    } else {
        if (!options.name.empty()) throw Failure("the palettes in JSON have names of their own");
        std::ifstream input(options.input, std::ios::binary);
        readPalettes(input, "the file " + options.input, adder.groups().definition(),
                     adder.elements().definition(), adder);
    }
    added.first = before + 1;
    added.count = static_cast<std::size_t>(adder.lastId() - before);
    return added;
}

json violationToJson(const jet::Violation& violation) {
    return {{"severity", nameOf(violation.severity)},
            {"rule", violation.rule.number},
            {"page", violation.page},
            {"pages", violation.pages},
            {"offset", violation.offset},
            {"object", violation.object},
            {"found", violation.found},
            {"text", violation.text()}};
}

void printCheck(const std::string& file, const jet::CheckResult& result) {
    for (const jet::Violation& each : result.violations) {
        std::cout << oneLine(each.text()) << '\n';
    }
    std::cout << file
              << (result.violations.empty() ? " is sound\n"
                  : result.isDamaged()      ? " is damaged\n"
                                            : " is sound, but wastes space\n");
}

}  // namespace

int runPaletteNew(const PaletteOptions& options) {
    jet::FileSystem& files = jet::systemFiles();
    const std::string target = files.resolve(options.file);
    const bool replaces = files.exists(target);
    if (replaces && !fs::is_regular_file(target)) {
        throw Failure(options.file + " is not a regular file");
    }
    if (replaces && !options.force) {
        throw Failure(options.file + " already exists; use --force to replace it");
    }
    // Nobody else writes the file while it is being replaced, and one that is in use is kept.
    const auto lock = replaces ? files.lock(target) : nullptr;
    if (!createPaletteFile(target, lock.get())) return ExitCode::kFailed;
    if (options.json) {
        std::cout << printed({{"file", options.file}, {"replaced", replaces}}) << '\n';
    } else {
        std::cout << "created " << options.file << '\n';
    }
    return ExitCode::kDone;
}

int runPaletteList(const PaletteOptions& options) {
    const std::vector<Record> palettes = palette::listPalettes(*open(options));
    if (options.json) {
        std::cout << printed({{"palettes", listOf(palettes)}}) << '\n';
    } else {
        printPalettes(palettes);
    }
    return ExitCode::kDone;
}

int runPaletteDump(const PaletteOptions& options) {
    const auto database = open(options);
    // What is wrong with the tables is reported before anything is printed.
    database->definition(palette::kGroupTable);
    database->definition(palette::kElementTable);
    JsonWriter out(std::cout);
    PaletteJsonWriter palettes(out);
    palette::visitPalettes(*database, palettes);
    palettes.finish();
    return ExitCode::kDone;
}

int runPaletteImport(const PaletteOptions& options) {
    const auto database = open(options);
    requireReadable(options.input);
    Added added;
    database->change([&] {
        palette::PaletteAdder adder(*database);
        added = import(options, adder);
    });
    if (options.json) {
        printAddedAsJson(options.file, *database, added);
    } else {
        printAdded(options.file, added);
    }
    if (!added.colors || added.colors->isComplete()) return ExitCode::kDone;
    printLosses(*added.colors);
    return ExitCode::kStoredOtherwise;
}

int runPaletteErase(const PaletteOptions& options) {
    const std::size_t erased = palette::erasePalettes(*open(options), options.name);
    if (erased == 0) throw Failure(text(options.file, " has no palette \"", options.name, "\""));
    if (options.json) {
        std::cout << printed({{"file", options.file}, {"name", options.name}, {"erased", erased}})
                  << '\n';
    } else {
        std::cout << countOf(erased, "palette", "palettes") << " erased from " << options.file
                  << '\n';
    }
    return ExitCode::kDone;
}

int runPaletteCheck(const PaletteOptions& options) {
    const jet::CheckResult result = jet::check(*open(options));
    if (options.json) {
        json violations = json::array();
        for (const jet::Violation& each : result.violations) {
            violations.push_back(violationToJson(each));
        }
        std::cout << printed({{"file", options.file},
                              {"damaged", result.isDamaged()},
                              {"violations", std::move(violations)}})
                  << '\n';
    } else {
        printCheck(options.file, result);
    }
    return result.isDamaged() ? ExitCode::kFailed : ExitCode::kDone;
}

}  // namespace huebrush::cli
