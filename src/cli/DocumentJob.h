// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

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

/// Whether a job is to be done by the program itself. `output` is where the result is to be; empty
/// where there is none. Failure when it is asked to and cannot: it changes files of its formats,
/// and does not convert.
bool isDocumentJob(Through through, const std::string& input, const std::string& output);

/// Does a job without an office. The result is the one that an office would have sent; `content`
/// becomes the changed document. Failure, in one line, for what is wrong with it. Interrupted on
/// Ctrl-C.
nlohmann::ordered_json runDocumentJob(const protocol::Job& job, bool showProgress,
                                      std::string& content);

}  // namespace huebrush::cli
