// SPDX-License-Identifier: MPL-2.0

#include "cli/DocumentJob.h"

#include <filesystem>
#include <iostream>
#include <memory>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "batch/BatchRuntime.h"
#include "batch/Session.h"
#include "cli/ConsoleRuntime.h"
#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/InputFile.h"
#include "cli/Interrupt.h"
#include "cli/ProgressBar.h"
#include "documents/DocumentFile.h"
#include "documents/package/DocumentError.h"
#include "error/mError.h"
#include "files/Error.h"
#include "files/OpenFile.h"
#include "forms/ForwardingRuntime.h"
#include "ports/documents/FileDocument.h"
#include "protocol/DocumentFormat.h"

namespace huebrush::cli {

namespace {

namespace fs = std::filesystem;
using base::text;
using json = nlohmann::ordered_json;

std::string readDocument(const std::string& name) {
    try {
        const files::OpenFile file(name);
        constexpr std::uint64_t kLargest = 2'000'000'000;
        if (file.size() > kLargest) throw Failure(name + " is larger than 2 GB");
        std::string bytes(file.size(), '\0');
        file.read(0, std::span(reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()));
        return bytes;
    } catch (const files::Error& error) {
        throw Failure(error.what());
    }
}

std::string endingOf(const std::string& file) {
    return fs::path(file).extension().string();
}

/// Whether a result with that name has the format of the input: one without an ending does.
bool hasFormatOf(const std::string& input, const std::string& output) {
    const std::string ending = endingOf(output);
    if (ending.empty()) return true;
    const auto* const format = protocol::formatOfName(output);
    return format != nullptr && format == protocol::formatOfName(input);
}

std::string firstBytes(const std::string& file) {
    requireDocument(file);
    return documentStart(file);
}

std::shared_ptr<documents::FileDocument> open(const std::string& name, std::string bytes) {
    try {
        return documents::FileDocument::of(documents::openDocument(std::move(bytes)));
    } catch (const documents::DocumentError& error) {
        throw Failure(text(name, " ", error.what()));
    }
}

std::string contentOf(const std::string& name, const documents::FileDocument& document) {
    try {
        return document.content();
    } catch (const documents::DocumentError& error) {
        throw Failure(text(name, " ", error.what()));
    }
}

/// The program as the dialog's component: without icons, as nobody sees them.
class NoIcons final : public forms::Component {
 public:
    std::string version() const override { return {}; }
    std::string name() const override { return "huebrush"; }
    std::string folder() const override { return {}; }
    std::string userFolder() const override { return {}; }
    std::string temporaryFolder() const override { return {}; }
    base::Picture icon(std::int32_t) const override { return {}; }
    char decimalSeparator() const override { return '.'; }
};

/// A terminal in which the dialog can be loaded, which is never shown.
class UnseenDialogs final : public forms::ForwardingRuntime {
 public:
    using ForwardingRuntime::ForwardingRuntime;
    const forms::Component& Component() override { return component_; }

 private:
    NoIcons component_;
};

/// Progress, and the way out of long work.
class Watch {
 public:
    explicit Watch(bool showProgress) : bar_(showProgress) {}
    void operator()(std::size_t done, std::size_t total) {
        throwIfInterrupted();
        bar_.show(done, total);
    }

 private:
    ProgressBar bar_;
};

json work(const protocol::Job& job, batch::BatchRuntime& runtime, bool showProgress,
          std::string& content) {
    const auto document = open(job.input, readDocument(job.input));
    documents::FileApplication application(document);
    Watch watch(showProgress);
    batch::Session session(application, document, std::ref(watch));
    const auto rows = session.scan();
    throwIfInterrupted();
    json result;
    if (job.output.empty()) {
        result["listing"] = protocol::toJson(rows);
    } else {
        result = protocol::toJson(session.recolor(protocol::requestOf(job)));
        content = contentOf(job.input, *document);
        throwIfInterrupted();
        const auto stored = open(job.input, content);
        result["stored"] = protocol::toJson(session.givenFills().compare(*stored));
    }
    return protocol::message::result(std::move(result), runtime.messages()).at("result");
}

}  // namespace

Through throughFromText(const std::string& text) {
    if (text.empty()) return Through::whicheverSuffices;
    if (text == "office") return Through::office;
    if (text == "documents") return Through::documents;
    throw Failure(base::text("--through must be office or documents, not ", text));
}

bool isDocumentJob(Through through, const std::string& input, const std::string& output) {
    if (through == Through::office) return false;
    const bool isKnown = documents::isKnownFormat(firstBytes(input), endingOf(input));
    const bool keepsFormat = output.empty() || hasFormatOf(input, output);
    if (through == Through::documents && !isKnown) {
        throw Failure(text(input, " is of a format that only an office can read"));
    }
    if (through == Through::documents && !keepsFormat) {
        throw Failure(text("only an office can convert ", input, " to the format of ", output));
    }
    return isKnown && keepsFormat;
}

json runDocumentJob(const protocol::Job& job, bool showProgress, std::string& content) {
    ConsoleRuntime console(std::cin, std::cerr, false);
    UnseenDialogs platform(console);
    batch::BatchRuntime runtime(platform);
    const forms::RuntimeScope scope(runtime);
    runtime.UnhandledError.connect(&error::reportUnhandled);
    try {
        return work(job, runtime, showProgress, content);
    } catch (const base::Error& error) {
        throw Failure(oneLine(error.description()));
    } catch (const batch::RequestError& error) {
        throw Failure(error.what());
    }
}

}  // namespace huebrush::cli
