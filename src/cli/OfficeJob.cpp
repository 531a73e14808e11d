#include "cli/OfficeJob.h"

#include <fstream>
#include <optional>
#include <string>

#include "cli/Channel.h"
#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/Interrupt.h"
#include "cli/OfficeProcess.h"
#include "cli/ProgressBar.h"

namespace huebrush::cli {

namespace {

using json = nlohmann::ordered_json;

/// The service of the extension, in the form in which the office's command line calls one.
constexpr const char* kService = "service:cz.huebrush.Batch?";

/// Reads one message; the result when it is the last one.
std::optional<json> takeMessage(const std::string& line, ProgressBar& bar) {
    const json message = json::parse(line, nullptr, false);
    if (!message.is_object()) throw Failure("LibreOffice sent a message that cannot be read");
    if (const auto progress = message.find("progress"); progress != message.end()) {
        bar.show(progress->at("done").get<std::size_t>(), progress->at("total").get<std::size_t>());
        return std::nullopt;
    }
    if (const auto failure = message.find("failure"); failure != message.end()) {
        throw Failure(oneLine(failure->get<std::string>()));
    }
    return message.at("result");
}

json waitForResult(Channel& channel, OfficeProcess& office, bool showProgress) {
    ProgressBar bar(showProgress);
    while (true) {
        throwIfInterrupted();
        // Asked before reading: what a process has sent before its end is still read.
        const bool ended = office.hasEnded();
        if (const auto line = channel.readLine()) {
            if (auto result = takeMessage(*line, bar)) return *std::move(result);
        } else if (ended) {
            throw Failure("LibreOffice ended before the work was done");
        }
    }
}

}  // namespace

json OfficeJob::run(protocol::Job job, bool showProgress) {
    const Installation installation = findInstallation();
    const auto channelPath = folder() / "channel";
    const auto jobPath = folder() / "job.json";
    Channel channel(channelPath);
    job.channel = channelPath;
    std::ofstream(jobPath) << protocol::toJson(job);
    OfficeProcess office(installation, folder() / "profile", {kService + jobPath.string()});
    json result = waitForResult(channel, office, showProgress);
    office.end();
    return result;
}

}  // namespace huebrush::cli
