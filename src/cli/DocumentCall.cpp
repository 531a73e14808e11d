// SPDX-License-Identifier: MPL-2.0

#include "cli/DocumentCall.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <thread>

#include "base/Text.h"
#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/InputFile.h"
#include "cli/JsonWriter.h"
#include "protocol/Job.h"

namespace huebrush::cli {

namespace {

using base::text;
using json = nlohmann::ordered_json;

/// The first line of a file, so that editors that end the last line do no harm.
std::string passwordFrom(const std::string& file) {
    if (file.empty()) return {};
    requireReadable(file);
    std::string password;
    std::ifstream input(file);
    std::getline(input, password);
    if (password.ends_with('\r')) password.pop_back();
    if (password.empty()) throw Failure(file + " holds no password");
    return password;
}

std::size_t workersOf(const DocumentOptions& options) {
    if (options.jobs > 0) return options.jobs;
    return std::max(1U, std::thread::hardware_concurrency());
}

/// A message about a document, which names it only once.
std::string withName(const std::string& name, const std::string& message) {
    return message.find(name) == std::string::npos ? text(name, ": ", message) : message;
}

}  // namespace

DocumentJobs jobsOf(const DocumentOptions& options, bool dropSignature) {
    return DocumentJobs(throughFromText(options.through), passwordFrom(options.passwordFile),
                        dropSignature);
}

void requireNoFolder(const std::string& document) {
    std::error_code error;
    if (!std::filesystem::is_directory(document, error)) return;
    throw Failure(document + " is a folder; --recursive takes the documents in it");
}

json versionedJson() {
    return {{"version", protocol::kListingVersion}};
}

int ManyCall::run(const std::function<bool(std::size_t)>& needsOffice, const Work& work,
                  const Print& print, const char* done) {
    const CallOverMany call{
        documents_.size(),
        [&](std::size_t index) {
            requireNoFolder(documents_[index].file.string());
            return needsOffice(index);
        },
        work, [&](std::size_t index, const Outcome& outcome) { report(index, outcome, print); }};
    const bool isComplete = carryOut(call, workersOf(options_), !options_.json);
    if (options_.json) {
        json all = versionedJson();
        all["documents"] = std::move(results_);
        std::cout << printed(all) << '\n';
    }
    if (!options_.json || !isComplete) printSummary(done, isComplete);
    if (!isComplete) return ExitCode::kInterrupted;
    return failed_ > 0 ? ExitCode::kFailed : code_;
}

void ManyCall::report(std::size_t index, const Outcome& outcome, const Print& print) {
    const std::string name = documents_[index].file.string();
    if (!outcome.failure.empty()) {
        ++failed_;
        std::cerr << "huebrush: " << withName(oneLine(name), outcome.failure) << '\n';
        results_.push_back({{"document", name}, {"error", outcome.failure}});
        return;
    }
    const int code = print(oneLine(name) + ": ", outcome.result);
    ++(code == ExitCode::kFailed ? failed_ : done_);
    code_ = std::max(code_, code);
    if (options_.json) results_.push_back(outcome.result);
}

void ManyCall::printSummary(const char* done, bool isComplete) const {
    std::string summary = text(countOf(done_, "document ", "documents "), done);
    if (failed_ > 0) summary += text(", ", failed_, " failed");
    if (isComplete) {
        std::cout << summary << '\n';
    } else {
        std::cerr << "huebrush: interrupted; " << summary << ", "
                  << documents_.size() - done_ - failed_ << " not done\n";
    }
}

}  // namespace huebrush::cli
