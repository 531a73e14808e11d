// SPDX-License-Identifier: MPL-2.0

#include <unistd.h>

#include <iomanip>
#include <iostream>

#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/DocumentCall.h"
#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/JsonWriter.h"
#include "cli/Listing.h"
#include "protocol/FillJson.h"

namespace huebrush::cli {

namespace {

using base::text;
using json = nlohmann::ordered_json;

void printRows(const json& rows) {
    if (rows.empty()) {
        std::cout << "no drawing shapes\n";
        return;
    }
    const bool colored = isatty(STDOUT_FILENO) != 0;
    std::cout << "  row  shapes  fill\n";
    for (const json& row : rows) {
        const auto fill = protocol::fillFromJson(row.at("fill"));
        std::cout << std::setw(5) << row.at("row").get<int>() << std::setw(8)
                  << row.at("shapes").get<std::size_t>() << "  "
                  << (colored ? swatch(fill) + " " : "") << describe(fill) << '\n';
    }
}

std::string countsOf(const json& rows) {
    if (rows.empty()) return "no drawing shapes";
    std::size_t shapes = 0;
    for (const json& row : rows) shapes += row.at("shapes").get<std::size_t>();
    return text(countOf(shapes, "shape", "shapes"), ", ",
                countOf(rows.size(), "distinct fill", "distinct fills"));
}

int listOne(const FillsOptions& options) {
    requireNoFolder(options.documents.front());
    DocumentJobs jobs = jobsOf(options);
    const Listing found = listFills(options.documents.front(), jobs, !options.json);
    if (options.json) {
        std::cout << printed(found.listing) << '\n';
    } else {
        printRows(found.listing.at("rows"));
    }
    return found.failed ? ExitCode::kFailed : ExitCode::kDone;
}

int listMany(const FillsOptions& options) {
    DocumentJobs jobs = jobsOf(options);
    ManyCall call(options, listedDocuments(options.documents, options.recursive));
    const auto nameOf = [&](std::size_t i) { return call.documents()[i].file.string(); };
    const auto work = [&](std::size_t i) {
        const json result = jobs.list(nameOf(i), false);
        return json{{"document", nameOf(i)},
                    {"rows", result.at("listing").at("rows")},
                    {"messages", result.at("messages")}};
    };
    const auto print = [&](const std::string& about, const json& result) {
        const bool failed = printBoxes(result, about);
        if (!options.json) std::cout << about << countsOf(result.at("rows")) << '\n';
        return failed ? ExitCode::kFailed : ExitCode::kDone;
    };
    return call.run([&](std::size_t i) { return jobs.needOffice(nameOf(i), {}); }, work, print,
                    "listed");
}

}  // namespace

int runFills(const FillsOptions& options) {
    const bool isOverMany = options.recursive || options.documents.size() > 1;
    return isOverMany ? listMany(options) : listOne(options);
}

}  // namespace huebrush::cli
