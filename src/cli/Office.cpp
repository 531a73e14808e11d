// SPDX-License-Identifier: MPL-2.0

#include "cli/Office.h"

#include <clocale>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <utility>

#include "base/Text.h"
#include "cli/Channel.h"
#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/Interrupt.h"
#include "cli/Keeper.h"
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
/// because some formats are read relative to it, else that of a link in the folder, which is
/// `number`ed.
std::filesystem::path openablePath(const std::string& document, const std::filesystem::path& folder,
                                   std::size_t number) {
    auto target = std::filesystem::absolute(document).lexically_normal();
    const protocol::DocumentFormat* const format = protocol::formatOfName(document);
    if (format != nullptr && canBeExpressed(target)) return target;
    auto link = folder / text("document-", number, format == nullptr ? "" : format->ending);
    std::filesystem::create_symlink(target, link);
    return link;
}

}  // namespace

/// An office that has been started, or will be by its first job.
class Office::Running {
 public:
    Running()
        : jobs_(folder() / protocol::pipe::kJobs),
          messages_(folder() / protocol::pipe::kMessages) {}

    const std::filesystem::path& folder() const { return keeper_.folder(); }
    bool hasEnded() { return isStarted_ && keeper_.hasEnded(); }
    void removeAtEnd(const std::filesystem::path& file) { keeper_.removeAtEnd(file); }

    json run(protocol::Job job, std::size_t number, bool showProgress,
             std::chrono::milliseconds longestStart) {
        const auto jobPath = folder() / text("job-", number, ".json");
        job.name = job.input;
        job.inputUrl = fileUrl(job.input);
        job.input = openablePath(job.input, folder(), number);
        // A name may consist of bytes that are not text.
        std::ofstream(jobPath) << protocol::toJson(job).dump(-1, ' ', false,
                                                             json::error_handler_t::replace);
        start();
        jobs_.writeLine(jobPath);
        return waitForResult(showProgress, longestStart);
    }

 private:
    void start() {
        if (std::exchange(isStarted_, true)) return;
        keeper_.start(officeCommand(findInstallation(), folder() / "profile",
                                    {kService + folder().string()}));
        startedAt_ = std::chrono::steady_clock::now();
    }

    json waitForResult(bool showProgress, std::chrono::milliseconds longestStart) {
        ProgressBar bar(showProgress);
        while (true) {
            throwIfInterrupted();
            // Asked before reading, so that what a process sent before its end is still read.
            const bool ended = keeper_.hasEnded();
            if (const auto line = messages_.readLine()) {
                isHeardOf_ = true;
                if (auto result = takeMessage(*line, bar)) return *std::move(result);
            } else if (ended) {
                throw Failure("LibreOffice exited before the work was done");
            } else if (!isHeardOf_ &&
                       std::chrono::steady_clock::now() > startedAt_ + longestStart) {
                throw Failure("LibreOffice did not load the Huebrush extension");
            }
        }
    }

    Keeper keeper_;
    Channel jobs_;
    Channel messages_;
    std::chrono::steady_clock::time_point startedAt_;
    bool isStarted_ = false;
    bool isHeardOf_ = false;
};

Office::Office(std::chrono::milliseconds longestStart) : longestStart_(longestStart) {}

Office::~Office() = default;

Office::Running& Office::running() {
    if (running_ && running_->hasEnded()) running_.reset();
    if (!running_) running_ = std::make_unique<Running>();
    return *running_;
}

std::filesystem::path Office::placeBeside(const std::filesystem::path& output) {
    const std::filesystem::path& folder = running().folder();
    const auto target = std::filesystem::absolute(output).lexically_normal();
    auto place = target.parent_path() / text(".", folder.filename().string(), "-", jobs_);
    if (!canBeExpressed(place) || std::filesystem::exists(place)) return placeAside();
    running().removeAtEnd(place);
    return place;
}

std::filesystem::path Office::placeAside() {
    return running().folder() / text("result-", jobs_);
}

json Office::run(protocol::Job job, bool showProgress) {
    return running().run(std::move(job), ++jobs_, showProgress, longestStart_);
}

}  // namespace huebrush::cli
