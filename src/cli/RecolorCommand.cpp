// SPDX-License-Identifier: MPL-2.0

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <map>

#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/DocumentCall.h"
#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/InputFile.h"
#include "cli/JsonWriter.h"
#include "cli/Listing.h"
#include "cli/palette/PaletteChoice.h"
#include "protocol/FillJson.h"

namespace huebrush::cli {

namespace {

namespace fs = std::filesystem;
using base::text;
using json = nlohmann::ordered_json;

std::string shapesText(std::size_t count) {
    return countOf(count, "shape", "shapes");
}

bool has(const std::vector<std::string>& list, const char* word) {
    return std::find(list.begin(), list.end(), word) != list.end();
}

/// What became of a document's shapes: "96 of 428 shapes and 12 lines recoloured".
std::string changesOf(const json& result, const RecolorOptions& options) {
    const std::string lines =
        text(" and ", countOf(result.at("lines").get<std::size_t>(), "line", "lines"));
    return text(result.at("changed").get<std::size_t>(), " of ",
                shapesText(result.at("shapes").get<std::size_t>()),
                has(options.also, "lines") ? lines : "",
                options.dryRun ? " would be recoloured" : " recoloured");
}

std::string placeOf(const json& result) {
    if (!result.at("written").get<bool>()) return "nothing written";
    return text("wrote ", oneLine(result.at("output").get<std::string>()));
}

/// Prints which shapes kept their fill although they were to get another one.
void printSkipped(const json& result, const std::string& about) {
    for (const json& skipped : result.at("skipped")) {
        const auto reason = skipped.at("reason").get<std::string>();
        if (reason == "unchanged") continue;
        std::cout << text(about, "row ", skipped.at("row").get<int>(), ": ",
                          shapesText(skipped.at("shapes").get<std::size_t>()),
                          " left unchanged: ", oneLine(reason), "\n");
    }
}

/// Prints where the stored file differs from what was asked for. Whether it does.
bool printStored(const json& result, const std::string& about) {
    const json& stored = result.at("stored");
    const fs::path output = result.at("output").get<std::string>();
    const std::string format =
        output.has_extension() ? output.extension().string() : std::string("the format");
    for (const json& each : stored.at("differences")) {
        const auto reason = each.at("reason").get<std::string>();
        std::cerr << text("huebrush: ", about, "row ", each.at("row").get<int>(), ": ",
                          shapesText(each.at("shapes").get<std::size_t>()), " stored as ",
                          describe(protocol::fillFromJson(each.at("stored"))), " instead of ",
                          describe(protocol::fillFromJson(each.at("asked"))),
                          reason.empty() ? "" : text(": ", format, " ", reason), "\n");
    }
    const auto notFound = stored.at("notFound").get<std::size_t>();
    if (notFound > 0) {
        std::cerr << text("huebrush: ", about, shapesText(notFound),
                          notFound == 1 ? " was" : " were",
                          " not found in the stored file; the fill there is unknown\n");
    }
    const auto lines = stored.at("linesOtherwise").get<std::size_t>();
    if (lines > 0) {
        std::cerr << text("huebrush: ", about, countOf(lines, "line", "lines"),
                          " stored in another colour than asked for\n");
    }
    return notFound > 0 || lines > 0 || !stored.at("differences").empty();
}

/// The edits that the options ask for, without a document.
protocol::Job editsOf(const RecolorOptions& options) {
    protocol::Job job;
    job.maps = options.maps;
    job.scope.tolerance = options.tolerance;
    job.scope.gradients = has(options.also, "gradients");
    job.scope.patterns = has(options.also, "patterns");
    job.scope.lines = has(options.also, "lines");
    job.scope.mayBeMissing = options.ignoreMissing;
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
        // Read here to refuse a bad request before a document is opened.
        protocol::requestOf(job);
    } catch (const protocol::ParseError& error) {
        throw Failure(error.what());
    }
    return job;
}

Writing writingOf(const RecolorOptions& options) {
    if (options.dryRun) return Writing::never;
    return options.inPlace ? Writing::ifChanged : Writing::always;
}

void requireAnotherFile(const fs::path& document, const fs::path& output) {
    std::error_code error;
    if (fs::equivalent(document, output, error)) {
        throw Failure("the output is the document itself; use --in-place to replace it");
    }
}

int recolorOne(const RecolorOptions& options) {
    const std::string& document = options.documents.front();
    requireNoFolder(document);
    requireReadable(document);
    const fs::path output = options.output.empty() ? document : options.output;
    if (!options.output.empty()) requireAnotherFile(document, output);
    const protocol::Job edits = editsOf(options);
    json result = jobsOf(options, options.dropSignature)
                      .recolor(edits, document, output, writingOf(options), !options.json);
    const bool failed = printBoxes(result);
    if (options.json) {
        json all = versionedJson();
        all.update(result);
        std::cout << printed(all) << '\n';
    } else {
        std::cout << text(
            changesOf(result, options), ", ",
            countOf(result.at("groups").get<std::size_t>(), "distinct fill", "distinct fills"),
            " before; ", placeOf(result), "\n");
        printSkipped(result, {});
    }
    const bool isOtherwise = printStored(result, {});
    if (failed) return ExitCode::kFailed;
    return isOtherwise ? ExitCode::kStoredOtherwise : ExitCode::kDone;
}

/// Files by what they really are, to find those that are named twice.
using Files = std::map<fs::path, fs::path>;

fs::path identityOf(const fs::path& file) {
    std::error_code error;
    return fs::weakly_canonical(file, error);
}

/// Where the results of a call over many go. Failure when two would have the same place, or one
/// that of a document.
std::vector<fs::path> outputsOf(const std::vector<ListedDocument>& documents,
                                const RecolorOptions& options) {
    std::vector<fs::path> outputs;
    Files inputs;
    Files taken;
    for (const ListedDocument& each : documents) inputs.emplace(identityOf(each.file), each.file);
    for (const ListedDocument& each : documents) {
        if (options.outputDir.empty()) {
            outputs.push_back(each.file);
            continue;
        }
        outputs.push_back(fs::path(options.outputDir) / each.place);
        const fs::path output = identityOf(outputs.back());
        if (const auto input = inputs.find(output); input != inputs.end()) {
            throw Failure(text("the result of ", each.file.string(), " would replace the document ",
                               input->second.string(), "; use --in-place for that"));
        }
        const auto [other, isNew] = taken.emplace(output, each.file);
        if (isNew) continue;
        throw Failure(text(other->second.string(), " and ", each.file.string(),
                           " would both be written to ", outputs.back().string()));
    }
    return outputs;
}

void makeFolderOf(const fs::path& output) {
    std::error_code error;
    fs::create_directories(output.parent_path(), error);
    if (error) {
        throw Failure(text("cannot create the folder ", output.parent_path().string(), ": ",
                           error.message()));
    }
}

int recolorMany(const RecolorOptions& options) {
    const protocol::Job edits = editsOf(options);
    DocumentJobs jobs = jobsOf(options, options.dropSignature);
    ManyCall call(options,
                  listedDocuments(options.documents, options.recursive, options.outputDir));
    const std::vector<fs::path> outputs = outputsOf(call.documents(), options);
    const auto nameOf = [&](std::size_t i) { return call.documents()[i].file.string(); };
    const auto work = [&](std::size_t i) {
        if (!options.outputDir.empty() && !options.dryRun) makeFolderOf(outputs[i]);
        return jobs.recolor(edits, nameOf(i), outputs[i], writingOf(options), false);
    };
    const auto print = [&](const std::string& about, const json& result) {
        const bool failed = printBoxes(result, about);
        if (!options.json) {
            std::cout << text(about, changesOf(result, options), "; ", placeOf(result), "\n");
            printSkipped(result, about);
        }
        const bool isOtherwise = printStored(result, about);
        if (failed) return ExitCode::kFailed;
        return isOtherwise ? ExitCode::kStoredOtherwise : ExitCode::kDone;
    };
    return call.run([&](std::size_t i) { return jobs.needOffice(nameOf(i), outputs[i]); }, work,
                    print, options.dryRun ? "tried" : "done");
}

}  // namespace

int runRecolor(const RecolorOptions& options) {
    const bool isOverMany =
        options.recursive || options.documents.size() > 1 || !options.outputDir.empty();
    return isOverMany ? recolorMany(options) : recolorOne(options);
}

}  // namespace huebrush::cli
