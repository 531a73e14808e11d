// The program "huebrush": reads the command line and runs one command.

#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/Commands.h"
#include "cli/Failure.h"
#include "cli/Interrupt.h"

namespace {

using namespace huebrush::cli;

void addFills(CLI::App& program, FillsOptions& options) {
    CLI::App* const command =
        program.add_subcommand("fills", "List the distinct fills of all shapes of a document");
    command->add_option("DOCUMENT", options.document, "An .odt, .fodt, .docx or .doc")->required();
    command->add_flag("--json", options.json, "Print the listing as JSON, to edit as a plan");
}

void addRecolor(CLI::App& program, RecolorOptions& options) {
    CLI::App* const command =
        program.add_subcommand("recolor", "Give the shapes of a document new fills");
    command->add_option("DOCUMENT", options.document, "An .odt, .fodt, .docx or .doc")->required();
    auto* const output = command->add_option(
        "-o,--output", options.output, "Where to write the result; its extension is its format");
    auto* const inPlace =
        command->add_flag("--in-place", options.inPlace, "Replace the document by the result");
    output->excludes(inPlace);
    command
        ->add_option("--map", options.maps,
                     "FROM=TO: all solid fills of a colour get another, as '#C00000=#0070C0'")
        ->allow_extra_args(false);
    command
        ->add_option("--row", options.rows,
                     "N=FILL: a row of the listing gets a fill: none, '#0070C0', '#0070C0@50%' "
                     "or an object of properties as JSON")
        ->allow_extra_args(false);
    command->add_option("--plan", options.plan, "A listing in JSON whose \"new\" was edited");
    command->add_flag("--json", options.json, "Print the result as JSON");
    command->callback([&options] {
        if (options.output.empty() && !options.inPlace) {
            throw CLI::ValidationError("recolor", "say -o FILE or --in-place");
        }
        if (options.maps.empty() && options.rows.empty() && options.plan.empty()) {
            throw CLI::ValidationError("recolor", "nothing to do: say --map, --row or --plan");
        }
    });
}

int run(int argc, char** argv) {
    CLI::App program("Huebrush recolours the drawing shapes of a document in bulk.", "huebrush");
    program.require_subcommand(1);
    program.set_version_flag("--version", HUEBRUSH_VERSION);
    FillsOptions fills;
    RecolorOptions recolor;
    addFills(program, fills);
    addRecolor(program, recolor);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? ExitCode::kDone : ExitCode::kUsage;
    }
    catchInterrupts();
    return program.got_subcommand("fills") ? runFills(fills) : runRecolor(recolor);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const Interrupted&) {
        std::cerr << "huebrush: interrupted, nothing was written\n";
        return ExitCode::kInterrupted;
    } catch (const std::exception& error) {
        std::cerr << "huebrush: " << error.what() << '\n';
        return ExitCode::kFailed;
    }
}
