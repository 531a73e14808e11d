// SPDX-License-Identifier: MPL-2.0

// The program "huebrush": reads the command line and runs one command.

#include <CLI/CLI.hpp>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/Interrupt.h"
#include "cli/exchange/Exchange.h"
#include "cli/palette/PaletteCommands.h"

namespace {

using namespace huebrush::cli;

/// What the command line asks for; its result is the exit code.
using Chosen = std::function<int()>;

void addThrough(CLI::App& command, std::string& through) {
    command
        .add_option(
            "--through", through,
            "What works on the document: \"documents\" is the program itself, which changes "
            "nothing but fills, of .docx, .odt, .fodt and templates; \"office\" is LibreOffice. "
            "Without it, whichever suffices")
        ->check(CLI::IsMember({"documents", "office"}));
}

void addFills(CLI::App& program, FillsOptions& options, Chosen& chosen) {
    CLI::App* const command =
        program.add_subcommand("fills", "List the distinct fills of the shapes in a document");
    command
        ->add_option("DOCUMENT", options.document, "A text document, such as .odt, .docx or .doc")
        ->required();
    command->add_flag("--json", options.json, "Print the listing as JSON, to edit as a plan");
    addThrough(*command, options.through);
    command->callback([&] { chosen = [&options] { return runFills(options); }; });
}

void addRecolor(CLI::App& program, RecolorOptions& options, Chosen& chosen) {
    CLI::App* const command =
        program.add_subcommand("recolor", "Change the fills of the shapes in a document");
    command
        ->add_option("DOCUMENT", options.document, "A text document, such as .odt, .docx or .doc")
        ->required();
    auto* const output = command->add_option("-o,--output", options.output,
                                             "Output file; its extension selects the format");
    auto* const inPlace =
        command->add_flag("--in-place", options.inPlace, "Replace the document with the result");
    output->excludes(inPlace);
    command
        ->add_option("--map", options.maps,
                     "FROM=TO: change all solid fills of one colour to another, such as "
                     "'#C00000=#0070C0' or red=steelblue")
        ->allow_extra_args(false);
    command
        ->add_option("--row", options.rows,
                     "N=FILL: give row N of the listing a fill: none, '#0070C0', '#0070C0@50%' or "
                     "a JSON object of properties")
        ->allow_extra_args(false);
    command->add_option("--plan", options.plan,
                        "An edited JSON listing, whose \"new\" fills are applied");
    auto* const palette = command->add_option(
        "--palette", options.palette,
        "FILE:NAME: give the rows the fills of a palette in an .mdb file, in their order");
    for (const char* const other : {"--map", "--row", "--plan"}) {
        palette->excludes(command->get_option(other));
    }
    command
        ->add_flag("--yes", options.yes,
                   "Recolour as many rows as the palette has fills, if there are more")
        ->needs(palette);
    command->add_flag("--json", options.json, "Print the result as JSON");
    addThrough(*command, options.through);
    command->callback([&] {
        if (options.output.empty() && !options.inPlace) {
            throw CLI::ValidationError("recolor", "specify -o FILE or --in-place");
        }
        if (options.maps.empty() && options.rows.empty() && options.plan.empty() &&
            options.palette.empty()) {
            throw CLI::ValidationError("recolor",
                                       "nothing to do: specify --map, --row, --plan or --palette");
        }
        chosen = [&options] { return runRecolor(options); };
    });
}

/// The names of the formats of other programs, and some more.
std::vector<std::string> formatNames(std::vector<std::string> names) {
    for (const ExchangeFormat& each : exchangeFormats()) names.emplace_back(each.name);
    return names;
}

void addPalette(CLI::App& program, PaletteOptions& options, Chosen& chosen) {
    CLI::App* const palette = program.add_subcommand("palette", "Work with palette files");
    palette->require_subcommand(1);
    const auto add = [&](const char* name, int (*run)(const PaletteOptions&), const char* effect) {
        CLI::App* const command = palette->add_subcommand(name, effect);
        command->add_option("FILE", options.file, "A palette database, .mdb")->required();
        command->add_flag("--json", options.json, "Print the result as JSON");
        command->callback(
            [&options, &chosen, run] { chosen = [&options, run] { return run(options); }; });
        return command;
    };
    add("new", runPaletteNew, "Create a new, empty file")
        ->add_flag("--force", options.force, "Replace an existing file");
    add("list", runPaletteList, "List the palettes");
    add("dump", runPaletteDump, "Print every palette in full, as JSON");
    CLI::App* const import =
        add("import", runPaletteImport,
            "Add palettes from a file: all of them, or none if one is refused");
    import
        ->add_option("INPUT", options.input,
                     "A palette of GIMP (.gpl), LibreOffice (.soc) or Adobe (.ase), or what dump "
                     "prints")
        ->required();
    import->add_option("--format", options.format, "What INPUT is, whatever its ending")
        ->check(CLI::IsMember(formatNames({"json"}), CLI::ignore_case));
    import->add_option("--name", options.name, "What to call the palettes; not for JSON");
    CLI::App* const exporting =
        add("export", runPaletteExport, "Write the solid fills of a palette for other programs");
    exporting->add_option("NAME", options.name, "The name of the palette, or '#' and its ID")
        ->required();
    exporting
        ->add_option("-o,--output", options.output,
                     "Output file: .gpl for GIMP, .soc for LibreOffice, .ase for Adobe")
        ->required();
    exporting->add_option("--format", options.format, "The format, whatever the ending")
        ->check(CLI::IsMember(formatNames({}), CLI::ignore_case));
    CLI::App* const save = add("save", runPaletteSave,
                               "Keep the distinct fills of a document as a palette; a file that "
                               "does not exist is created");
    save->add_option("NAME", options.name, "The name of the palette: 1 to 30 characters")
        ->required();
    save->add_option("--from", options.document, "A text document, such as .odt, .docx or .doc")
        ->required();
    save->add_flag("--replace", options.replace, "Replace all palettes with that name");
    CLI::App* const preview =
        add("preview", runPalettePreview, "Write the stored previews of a palette as one picture");
    preview->add_option("NAME", options.name, "The name of the palette, or '#' and its ID")
        ->required();
    preview->add_option("-o,--output", options.output, "Output file, a PNG")->required();
    add("erase", runPaletteErase, "Erase all palettes with a given name, and their fills")
        ->add_option("NAME", options.name, "The name of the palettes")
        ->required();
    add("check", runPaletteCheck, "Check the structure of the file and print every rule it breaks");
}

/// A result that could not be printed is a failure: the disk may be full.
int withOutput(const Chosen& chosen) {
    const int code = chosen();
    std::cout.flush();
    if (!std::cout) throw Failure("cannot write the output");
    return code;
}

int run(int argc, char** argv) {
    CLI::App program("Huebrush recolours the drawing shapes of a document in bulk.", "huebrush");
    program.require_subcommand(1);
    program.set_version_flag("--version", HUEBRUSH_VERSION);
    FillsOptions fills;
    RecolorOptions recolor;
    PaletteOptions palette;
    Chosen chosen;
    addFills(program, fills, chosen);
    addRecolor(program, recolor, chosen);
    addPalette(program, palette, chosen);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? ExitCode::kDone : ExitCode::kUsage;
    }
    catchInterrupts();
    return withOutput(chosen);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const Interrupted&) {
        std::cerr << "huebrush: interrupted, nothing was written\n";
        return ExitCode::kInterrupted;
    } catch (const std::exception& error) {
        std::cerr << "huebrush: " << oneLine(error.what()) << '\n';
        return ExitCode::kFailed;
    }
}
