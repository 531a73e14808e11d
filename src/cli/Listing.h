// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "cli/DocumentJob.h"

namespace huebrush::cli {

/// Prints what the logic would have shown in boxes, each on a line of the error output after
/// `about`. Whether one of them was an error.
bool printBoxes(const nlohmann::ordered_json& result, const std::string& about = {});

/// The distinct fills of a document.
struct Listing {
    nlohmann::ordered_json listing;  ///< see protocol::toJson of rows
    bool failed = false;             ///< an error was printed
};
Listing listFills(const std::string& document, DocumentJobs& jobs, bool showProgress);

}  // namespace huebrush::cli
