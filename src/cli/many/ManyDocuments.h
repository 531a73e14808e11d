// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>

namespace huebrush::cli {

/// What became of one document of many.
struct Outcome {  // NOLINT(bugprone-exception-escape): the JSON value checks itself when moved
    nlohmann::ordered_json result;
    /// One line; empty where the document is done.
    std::string failure = {};
};

/// A call over many documents, by their numbers.
struct CallOverMany {
    std::size_t documents = 0;
    /// Whether the office is to do it. It may throw Failure.
    std::function<bool(std::size_t)> needsOffice;
    /// Does it. It may throw Failure; Interrupted when the program is to end.
    std::function<nlohmann::ordered_json(std::size_t)> work;
    /// Prints what became of it. Called in the order of the documents.
    std::function<void(std::size_t, const Outcome&)> report;
};

/// Carries a call out: `jobs` documents at once, those for the office one after the other. While it
/// works, a bar shows the progress on the whole if `showProgress` says so. False when it was
/// interrupted: what is done by then is done, and reported.
bool carryOut(const CallOverMany& call, std::size_t jobs, bool showProgress);

}  // namespace huebrush::cli
