// SPDX-License-Identifier: MPL-2.0

#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/Completions.h"
#include "cli/Failure.h"
#include "cli/Help.h"
#include "cli/Interrupt.h"
#include "cli/exchange/Exchange.h"
#include "cli/palette/PaletteCommands.h"

namespace huebrush::cli {

namespace {

/// What the command line asks for; its result is the exit code.
using Chosen = std::function<int()>;

void addDocuments(CLI::App& command, DocumentOptions& options) {
    command
        .add_option("DOCUMENT", options.documents,
                    "Documents, such as .odt, .docx, .pptx or .doc, or folders with --recursive")
        ->type_name("FILE")
        ->required();
    command.add_flag("-r,--recursive", options.recursive,
                     "In place of a folder, take all documents in it and in the folders below it");
    command
        .add_option("-j,--jobs", options.jobs,
                    "How many documents to work on at once; without it, as many as there are "
                    "processors")
        ->type_name("N")
        ->check(CLI::Range(1, 1024).description(""));
    command
        .add_option(
            "--through", options.through,
            "What works on the documents: \"documents\" is the program itself, which changes "
            "nothing but fills, of Office Open XML and OpenDocument; \"office\" is LibreOffice. "
            "Without it, whichever suffices")
        ->type_name("documents|office")
        ->check(CLI::IsMember({"documents", "office"}).description(""));
    command
        .add_option("--password-file", options.passwordFile,
                    "A file whose first line is the password of encrypted documents, which "
                    "LibreOffice opens; what is written has the same password")
        ->type_name("FILE");
}

void addFills(CLI::App& program, FillsOptions& options, Chosen& chosen) {
    CLI::App* const command =
        program.add_subcommand("fills", "List the distinct fills of the shapes in documents");
    addDocuments(*command, options);
    command->add_flag("--json", options.json, "Print the listing as JSON, to edit as a plan");
    command->footer(fillsFooter());
    command->callback([&] { chosen = [&options] { return runFills(options); }; });
}

/// Which fills a recolour changes, and to what.
void addEdits(CLI::App& command, RecolorOptions& options) {
    auto* const map =
        command
            .add_option("--map", options.maps,
                        "Change all solid fills of the colour FROM to the colour TO, such as "
                        "'#C00000=#0070C0' or red=steelblue")
            ->type_name("FROM=TO")
            ->allow_extra_args(false);
    command
        .add_option("--also", options.also,
                    "What else --map changes: the colours of \"gradients\", of \"patterns\" and of "
                    "\"lines\", separated by commas")
        ->type_name("gradients|patterns|lines")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::IsMember({"gradients", "patterns", "lines"}).description(""))
        ->needs(map);
    command
        .add_option(
            "--tolerance", options.tolerance,
            "How far a colour may be from FROM (CIE ΔE2000; 1 is hardly visible); 0 without "
            "it")
        ->type_name("N")
        ->check(CLI::Range(0.0, 100.0).description(""))
        ->needs(map);
    command
        .add_flag("--ignore-missing", options.ignoreMissing,
                  "Do not fail when a document does not have the colour FROM")
        ->needs(map);
    command
        .add_option("--row", options.rows,
                    "Give row N of the listing a fill: none, '#0070C0', '#0070C0@50%' or "
                    "a JSON object of properties")
        ->type_name("N=FILL")
        ->allow_extra_args(false);
    command
        .add_option("--plan", options.plan,
                    "An edited JSON listing, whose \"new\" fills are applied")
        ->type_name("FILE");
    auto* const palette =
        command
            .add_option("--palette", options.palette,
                        "Give the rows the fills of a palette in an .mdb file, in their order")
            ->type_name("FILE:NAME");
    for (const char* const other : {"--map", "--row", "--plan"}) {
        palette->excludes(command.get_option(other));
    }
    command
        .add_flag("--yes", options.yes,
                  "Recolour as many rows as the palette has fills, if there are more")
        ->needs(palette);
}

void checkRecolor(const RecolorOptions& options) {
    const auto refuse = [](const char* why) { throw CLI::ValidationError("recolor", why); };
    const bool isOverMany = options.recursive || options.documents.size() > 1;
    if (options.output.empty() && options.outputDir.empty() && !options.inPlace &&
        !options.dryRun) {
        refuse("specify -o FILE, --output-dir DIR, --in-place or --dry-run");
    }
    if (isOverMany && !options.output.empty()) {
        refuse("-o FILE is for one document; specify --output-dir DIR or --in-place");
    }
    if (options.maps.empty() && options.rows.empty() && options.plan.empty() &&
        options.palette.empty()) {
        refuse("nothing to do: specify --map, --row, --plan or --palette");
    }
}

void addRecolor(CLI::App& program, RecolorOptions& options, Chosen& chosen) {
    CLI::App* const command =
        program.add_subcommand("recolor", "Change the fills of the shapes in documents");
    addDocuments(*command, options);
    auto* const output = command
                             ->add_option("-o,--output", options.output,
                                          "Output file; its extension selects the format")
                             ->type_name("FILE");
    auto* const outputDir = command
                                ->add_option("--output-dir", options.outputDir,
                                             "Folder for the results, which keep the documents' "
                                             "names; below it, those of documents in "
                                             "folders are in the same folders")
                                ->type_name("DIR");
    auto* const inPlace = command->add_flag("--in-place", options.inPlace,
                                            "Replace the documents that change with the results");
    output->excludes(inPlace)->excludes(outputDir);
    outputDir->excludes(inPlace);
    command->add_flag("--drop-signature", options.dropSignature,
                      "Change signed documents, too; the results are not signed");
    command->add_flag("--dry-run", options.dryRun, "Do everything, but write nothing");
    addEdits(*command, options);
    command->add_flag("--json", options.json, "Print the result as JSON");
    command->footer(recolorFooter());
    command->callback([&] {
        checkRecolor(options);
        chosen = [&options] { return runRecolor(options); };
    });
}

/// The names of the formats of other programs, and some more.
std::vector<std::string> formatNames(std::vector<std::string> names) {
    for (const ExchangeFormat& each : exchangeFormats()) names.emplace_back(each.name);
    return names;
}

std::string alternatives(const std::vector<std::string>& words) {
    std::string all;
    for (const std::string& each : words) all.append(all.empty() ? "" : "|").append(each);
    return all;
}

void addPalette(CLI::App& program, PaletteOptions& options, Chosen& chosen) {
    CLI::App* const palette = program.add_subcommand("palette", "Work with palette files");
    palette->require_subcommand(1);
    const auto add = [&](const char* name, int (*run)(const PaletteOptions&), const char* effect) {
        CLI::App* const command = palette->add_subcommand(name, effect);
        command->add_option("FILE", options.file, "A palette database, .mdb")
            ->type_name("FILE")
            ->required();
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
        ->type_name("FILE")
        ->required();
    import->add_option("--format", options.format, "What INPUT is, whatever its ending")
        ->type_name(alternatives(formatNames({"json"})))
        ->check(CLI::IsMember(formatNames({"json"}), CLI::ignore_case).description(""));
    import->add_option("--name", options.name, "What to call the palettes; not for JSON")
        ->type_name("NAME");
    CLI::App* const exporting =
        add("export", runPaletteExport, "Write the solid fills of a palette for other programs");
    exporting->add_option("NAME", options.name, "The name of the palette, or '#' and its ID")
        ->required();
    exporting
        ->add_option("-o,--output", options.output,
                     "Output file: .gpl for GIMP, .soc for LibreOffice, .ase for Adobe")
        ->type_name("FILE")
        ->required();
    exporting->add_option("--format", options.format, "The format, whatever the ending")
        ->type_name(alternatives(formatNames({})))
        ->check(CLI::IsMember(formatNames({}), CLI::ignore_case).description(""));
    CLI::App* const save = add("save", runPaletteSave,
                               "Keep the distinct fills of a document as a palette; a file that "
                               "does not exist is created");
    save->add_option("NAME", options.name, "The name of the palette: 1 to 30 characters")
        ->required();
    save->add_option("--from", options.document, "A text document, such as .odt, .docx or .doc")
        ->type_name("FILE")
        ->required();
    save->add_flag("--replace", options.replace, "Replace all palettes with that name");
    CLI::App* const preview =
        add("preview", runPalettePreview, "Write the stored previews of a palette as one picture");
    preview->add_option("NAME", options.name, "The name of the palette, or '#' and its ID")
        ->required();
    preview->add_option("-o,--output", options.output, "Output file, a PNG")
        ->type_name("FILE")
        ->required();
    add("erase", runPaletteErase, "Erase all palettes with a given name, and their fills")
        ->add_option("NAME", options.name, "The name of the palettes")
        ->required();
    add("check", runPaletteCheck, "Check the structure of the file and print every rule it breaks");
}

void addCompletions(CLI::App& program, std::string& shell, Chosen& chosen) {
    CLI::App* const command = program.add_subcommand(
        "completions", "Print a script with which a shell completes what is typed");
    command->add_option("SHELL", shell, "bash, zsh or fish")
        ->type_name(alternatives(completedShells()))
        ->required()
        ->check(CLI::IsMember(completedShells()).description(""));
    command->callback([&program, &shell, &chosen] {
        chosen = [&program, &shell] {
            std::cout << completionScript(program, shell);
            return ExitCode::kDone;
        };
    });
}

/// A result that could not be printed is a failure: the disk may be full.
int withOutput(const Chosen& chosen) {
    const int code = chosen();
    std::cout.flush();
    if (!std::cout) throw Failure("cannot write the output");
    return code;
}

}  // namespace

int runCommandLine(int argc, char** argv) {
    CLI::App program("Huebrush recolours the drawing shapes of documents in bulk.", "huebrush");
    program.formatter(std::make_shared<HelpFormatter>());
    program.require_subcommand(1);
    program.set_version_flag("--version", HUEBRUSH_VERSION, "Print the version and exit");
    FillsOptions fills;
    RecolorOptions recolor;
    PaletteOptions palette;
    std::string shell;
    Chosen chosen;
    addFills(program, fills, chosen);
    addRecolor(program, recolor, chosen);
    addPalette(program, palette, chosen);
    addCompletions(program, shell, chosen);
    // After the commands, which would take it over.
    program.footer(programFooter());
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? ExitCode::kDone : ExitCode::kUsage;
    }
    catchInterrupts();
    return withOutput(chosen);
}

}  // namespace huebrush::cli
