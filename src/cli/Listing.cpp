// SPDX-License-Identifier: MPL-2.0

#include "cli/Listing.h"

#include <iostream>

#include "cli/FillText.h"
#include "cli/InputFile.h"
#include "cli/OfficeJob.h"

namespace huebrush::cli {

using json = nlohmann::ordered_json;

bool printBoxes(const json& result) {
    bool failed = false;
    for (const json& box : result.at("messages")) {
        if (box.at("kind") == "information") continue;
        failed |= box.at("kind") == "error";
        std::cerr << "huebrush: " << oneLine(box.at("text").get<std::string>()) << '\n';
    }
    return failed;
}

Listing listFills(const std::string& document, Through through, bool showProgress) {
    requireDocument(document);
    protocol::Job job;
    job.input = document;
    std::string unchanged;
    json result = isDocumentJob(through, document, {})
                      ? runDocumentJob(job, showProgress, unchanged)
                      : OfficeJob().run(job, showProgress);
    const bool failed = printBoxes(result);
    return {std::move(result.at("listing")), failed};
}

}  // namespace huebrush::cli
