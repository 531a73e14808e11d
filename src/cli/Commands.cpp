// SPDX-License-Identifier: MPL-2.0

#include "cli/Commands.h"

#include <unistd.h>

#include <filesystem>
#include <iomanip>
#include <iostream>
#include <optional>

#include "base/Text.h"
#include "cli/DocumentJob.h"
#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/InputFile.h"
#include "cli/JsonWriter.h"
#include "cli/Listing.h"
#include "cli/OfficeCommand.h"
#include "cli/OfficeJob.h"
#include "cli/OutputFile.h"
#include "cli/palette/PaletteChoice.h"
#include "protocol/DocumentFormat.h"

namespace huebrush::cli {

namespace {

namespace fs = std::filesystem;
using base::text;
using json = nlohmann::ordered_json;

void printRows(const json& rows) {
    const bool colored = isatty(STDOUT_FILENO) != 0;
    std::cout << "  row  shapes  fill\n";
    for (const json& row : rows) {
        const auto fill = protocol::fillFromJson(row.at("fill"));
        std::cout << std::setw(5) << row.at("row").get<int>() << std::setw(8)
                  << row.at("shapes").get<std::size_t>() << "  "
                  << (colored ? swatch(fill) + " " : "") << describe(fill) << '\n';
    }
}

std::string shapesText(std::size_t count) {
    return count == 1 ? "1 shape" : text(count, " shapes");
}

void printRecolored(const json& result, const fs::path& output) {
    std::cout << text(result.at("changed").get<std::size_t>(), " of ",
                      result.at("shapes").get<std::size_t>(), " shapes recoloured, ",
                      result.at("groups").get<std::size_t>(), " distinct fills before; wrote ",
                      output.string(), "\n");
    for (const json& skipped : result.at("skipped")) {
        const auto reason = skipped.at("reason").get<std::string>();
        if (reason == "unchanged") continue;
        std::cout << text("row ", skipped.at("row").get<int>(), ": ",
                          shapesText(skipped.at("shapes").get<std::size_t>()),
                          " left unchanged: ", oneLine(reason), "\n");
    }
}

/// Prints where the stored file differs from what was asked for. Whether it does.
bool printStored(const json& stored, const fs::path& output) {
    const std::string format =
        output.has_extension() ? output.extension().string() : std::string("the format");
    for (const json& each : stored.at("differences")) {
        const auto reason = each.at("reason").get<std::string>();
        std::cerr << text("huebrush: row ", each.at("row").get<int>(), ": ",
                          shapesText(each.at("shapes").get<std::size_t>()), " stored as ",
                          describe(protocol::fillFromJson(each.at("stored"))), " instead of ",
                          describe(protocol::fillFromJson(each.at("asked"))),
                          reason.empty() ? "" : text(": ", format, " ", reason), "\n");
    }
    const auto notFound = stored.at("notFound").get<std::size_t>();
    if (notFound > 0) {
        std::cerr << text("huebrush: ", shapesText(notFound), notFound == 1 ? " was" : " were",
                          " not found in the stored file; the fill there is unknown\n");
    }
    return notFound > 0 || !stored.at("differences").empty();
}

fs::path outputOf(const RecolorOptions& options) {
    if (options.inPlace) return options.document;
    std::error_code error;
    if (fs::equivalent(options.document, options.output, error)) {
        throw Failure("the output is the document itself; use --in-place to replace it");
    }
    return options.output;
}

/// The office's name of the format that the output's ending stands for; empty for the document's
/// own format. Failure for what cannot be stored.
std::string filterOf(const fs::path& output) {
    if (!output.has_extension()) return {};
    const protocol::DocumentFormat* const format = protocol::formatOfName(output.string());
    if (format != nullptr && format->isStored) return std::string(format->filter);
    throw Failure(text("cannot write ", output.string(), ": the name must end in one of ",
                       protocol::storedEndings()));
}

protocol::Job jobOf(const RecolorOptions& options) {
    protocol::Job job;
    job.input = options.document;
    job.maps = options.maps;
    job.rows = options.rows;
    if (!options.plan.empty()) job.plan = readJson("the plan", options.plan);
    if (!options.palette.empty()) {
        job.palette = json::array();
        for (const auto& each : fillsOfReference(options.palette)) {
            job.palette.push_back(nlohmann::json(protocol::toJson(each)));
        }
        job.mayBeFewer = options.yes;
    }
    try {
        // Read here to refuse a bad request before an office is started.
        protocol::requestOf(job);
    } catch (const protocol::ParseError& error) {
        throw Failure(error.what());
    }
    return job;
}

/// Each writes the result and returns what it did.
json recolorByOffice(protocol::Job job, const fs::path& output, bool showProgress) {
    OutputFile file(output);
    OfficeJob office;
    job.output = office.placeBeside(output);
    job.outputUrl = fileUrl(output);
    json result = office.run(job, showProgress);
    file.commit(job.output);
    return result;
}

json recolorByItself(protocol::Job job, const fs::path& output, bool showProgress) {
    OutputFile file(output);
    job.output = output;
    std::string content;
    json result = runDocumentJob(job, showProgress, content);
    file.commit(std::span(reinterpret_cast<const std::uint8_t*>(content.data()), content.size()));
    return result;
}

}  // namespace

int runFills(const FillsOptions& options) {
    const Listing found =
        listFills(options.document, throughFromText(options.through), !options.json);
    if (options.json) {
        std::cout << printed(found.listing) << '\n';
    } else {
        printRows(found.listing.at("rows"));
    }
    return found.failed ? ExitCode::kFailed : ExitCode::kDone;
}

int runRecolor(const RecolorOptions& options) {
    requireDocument(options.document);
    const fs::path output = outputOf(options);
    protocol::Job job = jobOf(options);
    job.filter = filterOf(output);
    json result = isDocumentJob(throughFromText(options.through), options.document, output)
                      ? recolorByItself(std::move(job), output, !options.json)
                      : recolorByOffice(std::move(job), output, !options.json);
    result["document"] = options.document;
    result["output"] = output.string();
    const bool failed = printBoxes(result);
    if (options.json) {
        std::cout << printed(result) << '\n';
    } else {
        printRecolored(result, output);
    }
    const bool isOtherwise = printStored(result.at("stored"), output);
    if (failed) return ExitCode::kFailed;
    return isOtherwise ? ExitCode::kStoredOtherwise : ExitCode::kDone;
}

}  // namespace huebrush::cli
