// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "cli/DocumentJob.h"

namespace huebrush::cli {

/// Prints what the logic would have shown in boxes, each on a line of the error output. Whether one
/// of them was an error.
bool printBoxes(const nlohmann::ordered_json& result);

/// The distinct fills of a document.
struct Listing {
    nlohmann::ordered_json listing;  ///< see protocol::toJson of rows
    bool failed = false;             ///< an error was printed
};
Listing listFills(const std::string& document, Through through, bool showProgress);

}  // namespace huebrush::cli
