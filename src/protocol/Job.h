// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "batch/BatchRuntime.h"
#include "batch/Session.h"
#include "protocol/FillJson.h"

namespace huebrush::protocol {

/// What the program asks its office to do. The edits travel as they were written, and are parsed by
/// requestOf on both sides: by the program to refuse bad ones early, by the office to carry them
/// out.
struct Job {  // NOLINT(bugprone-exception-escape): the JSON value checks itself when moved
    std::string input;      ///< A path by which the office can open the document.
    std::string name;       ///< What messages call the document.
    std::string inputUrl;   ///< Where the document lies: what its links are relative to.
    std::string output;     ///< Where to store the result; empty to list the fills only.
    std::string outputUrl;  ///< Where the result will lie: what its links are to be relative to.
    std::string filter;     ///< The office's name of the result's format; empty: the document's.
    std::string password;   ///< Of the document and of the result; empty for none.
    std::vector<std::string> maps;
    std::vector<std::string> rows;
    nlohmann::json plan = nullptr;     ///< An edited listing, or null.
    nlohmann::json palette = nullptr;  ///< The fills of a palette as an array, or null.
    bool mayBeFewer = false;           ///< See batch::PaletteFills.
    batch::MappingScope scope = {};    ///< What the maps change.
};

nlohmann::json toJson(const Job& job);
Job jobFromJson(const nlohmann::json& value);
/// The job's edits. ParseError for bad ones.
batch::RecolorRequest requestOf(const Job& job);

/// The version of what the program prints as JSON; it grows when something that was there changes
/// its meaning or goes away. What is new alone does not change it.
inline constexpr std::int32_t kListingVersion = 1;

/// The listing of the fills: {"version":1,"rows":[{"row":1,"shapes":12,"fill":{…},"new":null},…]}.
nlohmann::ordered_json toJson(const std::vector<batch::FillRow>& rows);
nlohmann::ordered_json toJson(const batch::RecolorResult& result);
/// What was found in the stored file: {"confirmed":12,"notFound":0,"differences":[{"row":2,
/// "shapes":3,"asked":{…},"stored":{…},"reason":"…"},…]}.
nlohmann::ordered_json toJson(const batch::StoredResult& result);

/// The pipes between the program and its office, in the folder whose name the office is given: on
/// the first one come the paths of files that hold one job each, on the second one go the messages.
namespace pipe {
inline constexpr const char* kJobs = "jobs";
inline constexpr const char* kMessages = "messages";
}  // namespace pipe

/// One line of the messages from the office to the program.
namespace message {
/// The first one: the service is there.
nlohmann::ordered_json started();
nlohmann::ordered_json progress(std::size_t done, std::size_t total);
/// A job's end: the result, and the boxes that the logic wanted to show.
nlohmann::ordered_json result(nlohmann::ordered_json value,
                              const std::vector<batch::Message>& boxes);
nlohmann::ordered_json failure(const std::string& text);
}  // namespace message

}  // namespace huebrush::protocol
