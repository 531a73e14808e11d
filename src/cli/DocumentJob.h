// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/Office.h"
#include "protocol/Job.h"

namespace huebrush::cli {

/// What does the work on a document.
enum class Through {
    whicheverSuffices,  ///< the program itself where it can, else an office
    office,
    documents,
};

/// The value of --through. Failure for any other text.
Through throughFromText(const std::string& text);

/// When the result of a recolour is written.
enum class Writing {
    always,
    ifChanged,  ///< not where no shape has got another fill
    never,      ///< it is only made, and read back
};

/// Does jobs on documents: each by the program itself, which changes files of its formats and does
/// not convert, or else by an office, which is started for the first of them.
///
/// Failure, in one line, for what is wrong with a document. Interrupted on Ctrl-C; nothing is
/// written then.
class DocumentJobs {
 public:
    /// `password`: of documents that are encrypted, which only an office can open; their results
    /// are encrypted with it, too. Empty for none.
    /// `dropSignature`: the result of a document that is signed has no signature, instead of being
    /// refused. What an office stores has none in any case.
    explicit DocumentJobs(Through through, std::string password = {}, bool dropSignature = false);

    /// Whether a job is one for the office. `output` is where the result is to be; empty where
    /// there is none. Failure where it is not to be done by the office, and cannot be done without.
    bool needOffice(const std::string& document, const std::filesystem::path& output) const;

    /// The listing of a document's fills (see protocol::toJson), and the messages.
    nlohmann::ordered_json list(const std::string& document, bool showProgress);

    /// Carries out a job's edits and writes the result to `output`, completely or not at all. What
    /// was done is in the answer (see protocol::toJson), with the "document", the "output", whether
    /// it was "written", and the messages.
    nlohmann::ordered_json recolor(protocol::Job edits, const std::string& document,
                                   const std::filesystem::path& output, Writing writing,
                                   bool showProgress);

 private:
    nlohmann::ordered_json recolorByOffice(protocol::Job job, const std::filesystem::path& output,
                                           Writing writing, bool showProgress);

    Through through_;
    std::string password_;
    bool dropSignature_;
    Office office_;
};

}  // namespace huebrush::cli
