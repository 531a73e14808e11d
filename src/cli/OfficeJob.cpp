// SPDX-License-Identifier: MPL-2.0

#include "cli/OfficeJob.h"

#include <chrono>
#include <clocale>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>

#include "base/Text.h"
#include "cli/Channel.h"
#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/Interrupt.h"
#include "cli/OfficeCommand.h"
#include "cli/ProgressBar.h"
#include "protocol/DocumentFormat.h"

namespace huebrush::cli {

namespace {

using base::text;
using json = nlohmann::ordered_json;

/// The extension's service, in the form in which the office's command line names one.
constexpr const char* kService = "service:cz.huebrush.Batch?";

/// Reads one message; the result when it is the last one. The office's first one says only that the
/// extension is loaded.
std::optional<json> takeMessage(const std::string& line, ProgressBar& bar) {
    const json message = json::parse(line, nullptr, false);
    if (!message.is_object()) throw Failure("LibreOffice sent an unreadable message");
    if (message.contains("started")) return std::nullopt;
    if (const auto progress = message.find("progress"); progress != message.end()) {
        bar.show(progress->at("done").get<std::size_t>(), progress->at("total").get<std::size_t>());
        return std::nullopt;
    }
    if (const auto failure = message.find("failure"); failure != message.end()) {
        throw Failure(oneLine(failure->get<std::string>()));
    }
    return message.at("result");
}

json waitForResult(Channel& channel, Keeper& office, bool showProgress,
                   std::chrono::milliseconds longestStart) {
    ProgressBar bar(showProgress);
    const auto startedBy = std::chrono::steady_clock::now() + longestStart;
    bool started = false;
    while (true) {
        throwIfInterrupted();
        // Asked before reading, so that what a process sent before its end is still read.
        const bool ended = office.hasEnded();
        if (const auto line = channel.readLine()) {
            started = true;
            if (auto result = takeMessage(*line, bar)) return *std::move(result);
        } else if (ended) {
            throw Failure("LibreOffice exited before the work was done");
        } else if (!started && std::chrono::steady_clock::now() > startedBy) {
            throw Failure("LibreOffice did not load the Huebrush extension");
        }
    }
}

/// Whether the office can open a file by its path: it knows only the characters of its locale.
bool canBeExpressed(const std::filesystem::path& path) {
    const locale_t locale = ::newlocale(LC_CTYPE_MASK, "", nullptr);
    if (locale == nullptr) return false;
    const locale_t before = ::uselocale(locale);
    const bool can = std::mbstowcs(nullptr, path.c_str(), 0) != static_cast<std::size_t>(-1);
    ::uselocale(before);
    ::freelocale(locale);
    return can;
}

/// A path by which the office can open the document and recognise its format: its own if possible,
/// because some formats are read relative to it, else that of a link in the folder.
std::filesystem::path openablePath(const std::string& document,
                                   const std::filesystem::path& folder) {
    auto target = std::filesystem::absolute(document).lexically_normal();
    const protocol::DocumentFormat* const format = protocol::formatOfName(document);
    if (format != nullptr && canBeExpressed(target)) return target;
    auto link = folder / text("document", format == nullptr ? "" : format->ending);
    std::filesystem::create_symlink(target, link);
    return link;
}

}  // namespace

std::filesystem::path OfficeJob::placeBeside(const std::filesystem::path& output) {
    const auto target = std::filesystem::absolute(output).lexically_normal();
    auto place = target.parent_path() / ("." + folder().filename().string());
    if (!canBeExpressed(place) || std::filesystem::exists(place)) return folder() / "result";
    keeper_.removeAtEnd(place);
    return place;
}

json OfficeJob::run(protocol::Job job, bool showProgress, std::chrono::milliseconds longestStart) {
    const Installation installation = findInstallation();
    const auto channelPath = folder() / "channel";
    const auto jobPath = folder() / "job.json";
    Channel channel(channelPath);
    job.channel = channelPath;
    job.name = job.input;
    job.inputUrl = fileUrl(job.input);
    job.input = openablePath(job.input, folder());
    // A name may consist of bytes that are not text.
    std::ofstream(jobPath) << protocol::toJson(job).dump(-1, ' ', false,
                                                         json::error_handler_t::replace);
    keeper_.start(officeCommand(installation, folder() / "profile", {kService + jobPath.string()}));
    return waitForResult(channel, keeper_, showProgress, longestStart);
}

}  // namespace huebrush::cli
