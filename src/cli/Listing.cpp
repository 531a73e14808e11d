// SPDX-License-Identifier: MPL-2.0

#include "cli/Listing.h"

#include <iostream>

#include "cli/FillText.h"

namespace huebrush::cli {

using json = nlohmann::ordered_json;

bool printBoxes(const json& result, const std::string& about) {
    bool failed = false;
    for (const json& box : result.at("messages")) {
        if (box.at("kind") == "information") continue;
        failed |= box.at("kind") == "error";
        std::cerr << "huebrush: " << about << oneLine(box.at("text").get<std::string>()) << '\n';
    }
    return failed;
}

Listing listFills(const std::string& document, DocumentJobs& jobs, bool showProgress) {
    json result = jobs.list(document, showProgress);
    const bool failed = printBoxes(result);
    return {std::move(result.at("listing")), failed};
}

}  // namespace huebrush::cli
