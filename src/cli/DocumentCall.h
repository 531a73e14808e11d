// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/DocumentJob.h"
#include "cli/many/DocumentList.h"
#include "cli/many/ManyDocuments.h"

namespace huebrush::cli {

/// What "fills" and "recolor" have in common.

/// What does the jobs of a call. Failure when the file with the password cannot be read.
DocumentJobs jobsOf(const DocumentOptions& options, bool dropSignature = false);

/// Failure for a folder that is not to be looked into.
void requireNoFolder(const std::string& document);

/// The beginning of the JSON that a call prints.
nlohmann::ordered_json versionedJson();

/// A call over many documents: what happens with each, and what it comes to.
class ManyCall {
 public:
    using Work = std::function<nlohmann::ordered_json(std::size_t)>;
    /// Prints the line about a document that is done, where that is wanted. It returns the exit
    /// code that the document alone would give.
    using Print =
        std::function<int(const std::string& about, const nlohmann::ordered_json& result)>;

    ManyCall(const DocumentOptions& options, std::vector<ListedDocument> documents)
        : options_(options), documents_(std::move(documents)) {}

    const std::vector<ListedDocument>& documents() const { return documents_; }

    /// Does the work, prints what is to be printed of each document, and in the end the summary or
    /// the JSON. `done` is what has been done to a document, for the summary: "listed".
    int run(const std::function<bool(std::size_t)>& needsOffice, const Work& work,
            const Print& print, const char* done);

 private:
    void report(std::size_t index, const Outcome& outcome, const Print& print);
    void printSummary(const char* done, bool isComplete) const;

    const DocumentOptions& options_;
    std::vector<ListedDocument> documents_;
    nlohmann::ordered_json results_ = nlohmann::ordered_json::array();
    std::size_t done_ = 0;
    std::size_t failed_ = 0;
    int code_ = 0;
};

}  // namespace huebrush::cli
