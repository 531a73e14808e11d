// SPDX-License-Identifier: MPL-2.0

#include "cli/DocumentJob.h"

#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <span>
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
#include "cli/OfficeCommand.h"
#include "cli/OutputFile.h"
#include "cli/ProgressBar.h"
#include "documents/DocumentFile.h"
#include "documents/Signatures.h"
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
bool hasFormatOf(const std::string& input, const fs::path& output) {
    return !output.has_extension() ||
           base::lowerCase(endingOf(output)) == base::lowerCase(endingOf(input));
}

/// The office's name of the format that the output's ending stands for; empty for the document's
/// own format. Failure for what cannot be stored.
std::string filterOf(const fs::path& output) {
    if (!output.has_extension()) return {};
    const protocol::DocumentFormat* const format = protocol::formatOfName(output.string());
    if (format != nullptr && format->isStored) return std::string(format->filter);
    throw Failure(text("cannot write ", output.string(), ": the name must end in one of ",
                       protocol::storedEndings()));
}

/// Runs a body, turning what is wrong with a document into Failure.
template <class Body>
auto orFailure(const std::string& name, const Body& body) {
    try {
        return body();
    } catch (const documents::DocumentError& error) {
        throw Failure(text(name, " ", error.what()));
    }
}

std::shared_ptr<documents::FileDocument> open(const std::string& name, std::string bytes) {
    return orFailure(name, [&] {
        return documents::FileDocument::of(documents::openDocument(std::move(bytes)));
    });
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

/// A document, and the dialog at work on it.
class OpenJob {
 public:
    OpenJob(const protocol::Job& job, bool showProgress, std::string content)
        : name_(job.input),
          document_(open(job.input, std::move(content))),
          application_(document_),
          watch_(showProgress),
          session_(application_, document_, std::ref(watch_)),
          rows_(session_.scan()) {
        throwIfInterrupted();
    }

    batch::Session& session() { return session_; }
    const std::vector<batch::FillRow>& rows() const { return rows_; }
    std::string content() const {
        return orFailure(name_, [&] { return document_->content(); });
    }

 private:
    std::string name_;
    std::shared_ptr<documents::FileDocument> document_;
    documents::FileApplication application_;
    Watch watch_;
    batch::Session session_;
    std::vector<batch::FillRow> rows_;
};

json listed(const protocol::Job& job, bool showProgress, std::string& content) {
    const OpenJob open(job, showProgress, std::move(content));
    return {{"listing", protocol::toJson(open.rows())}};
}

json recoloured(const protocol::Job& job, bool showProgress, std::string& content) {
    std::optional<OpenJob> work(std::in_place, job, showProgress, std::move(content));
    json result = protocol::toJson(work->session().recolor(protocol::requestOf(job)));
    content = work->content();
    const batch::StoredFills given = work->session().givenFills();
    // Both documents are large.
    work.reset();
    throwIfInterrupted();
    result["stored"] = protocol::toJson(given.compare(*open(job.input, content)));
    return result;
}

json work(const protocol::Job& job, batch::BatchRuntime& runtime, bool showProgress,
          std::string& content) {
    json result = job.output.empty() ? listed(job, showProgress, content)
                                     : recoloured(job, showProgress, content);
    return protocol::message::result(std::move(result), runtime.messages()).at("result");
}

/// Does a job without an office. The result is the one that an office would have sent; `content`,
/// which is that of the document, becomes that of the changed one.
json runWithoutOffice(const protocol::Job& job, bool showProgress, std::string& content) {
    ConsoleRuntime console(std::cin, std::cerr, false);
    UnseenDialogs platform(console);
    batch::BatchRuntime runtime(platform);
    const forms::RuntimeScope scope(runtime);
    runtime.UnhandledError.connect(&error::reportUnhandled);
    try {
        return work(job, runtime, showProgress, content);
    } catch (const base::Error& error) {
        // The dialog takes an interruption for an error like any other.
        throwIfInterrupted();
        throw Failure(oneLine(error.description()));
    } catch (const batch::RequestError& error) {
        throw Failure(error.what());
    }
}

bool isToBeWritten(const json& result, Writing writing) {
    return writing == Writing::always || (writing == Writing::ifChanged &&
                                          (result.at("changed") != 0 || result.at("lines") != 0));
}

/// Where a result is to be written, refused at once if that cannot be.
std::optional<OutputFile> outputFile(const fs::path& output, Writing writing) {
    if (writing == Writing::never) return std::nullopt;
    return std::optional<OutputFile>(std::in_place, output);
}

json recolorWithoutOffice(const protocol::Job& job, const fs::path& output, Writing writing,
                          bool dropSignature, bool showProgress) {
    std::optional<OutputFile> file = outputFile(output, writing);
    std::string content = readDocument(job.input);
    if (dropSignature) {
        content =
            orFailure(job.input, [&] { return documents::withoutSignatures(std::move(content)); });
    }
    json result = runWithoutOffice(job, showProgress, content);
    const bool isWritten = isToBeWritten(result, writing);
    if (isWritten) {
        file->commit(
            std::span(reinterpret_cast<const std::uint8_t*>(content.data()), content.size()));
    }
    result["written"] = isWritten;
    return result;
}

}  // namespace

Through throughFromText(const std::string& text) {
    if (text.empty()) return Through::whicheverSuffices;
    if (text == "office") return Through::office;
    if (text == "documents") return Through::documents;
    throw Failure(base::text("--through must be office or documents, not ", text));
}

DocumentJobs::DocumentJobs(Through through, std::string password, bool dropSignature)
    : through_(through), password_(std::move(password)), dropSignature_(dropSignature) {}

bool DocumentJobs::needOffice(const std::string& document, const fs::path& output) const {
    const bool isEncrypted = requireDocument(document, !password_.empty());
    if (through_ == Through::office) return true;
    const bool isKnown =
        !isEncrypted && documents::isKnownFormat(documentStart(document), endingOf(document));
    const bool keepsFormat = output.empty() || hasFormatOf(document, output);
    if (through_ == Through::documents && isEncrypted) {
        throw Failure(text("only an office can open ", document, " with its password"));
    }
    if (through_ == Through::documents && !isKnown) {
        throw Failure(text(document, " is of a format that only an office can read"));
    }
    if (through_ == Through::documents && !keepsFormat) {
        throw Failure(
            text("only an office can convert ", document, " to the format of ", output.string()));
    }
    return !isKnown || !keepsFormat;
}

json DocumentJobs::list(const std::string& document, bool showProgress) {
    protocol::Job job;
    job.input = document;
    job.password = password_;
    if (needOffice(document, {})) return office_.run(job, showProgress);
    std::string content = readDocument(document);
    return runWithoutOffice(job, showProgress, content);
}

json DocumentJobs::recolor(protocol::Job edits, const std::string& document, const fs::path& output,
                           Writing writing, bool showProgress) {
    edits.input = document;
    edits.password = password_;
    edits.output = output;
    json result = needOffice(document, output)
                      ? recolorByOffice(std::move(edits), output, writing, showProgress)
                      : recolorWithoutOffice(edits, output, writing, dropSignature_, showProgress);
    result["document"] = document;
    result["output"] = output.string();
    return result;
}

json DocumentJobs::recolorByOffice(protocol::Job job, const fs::path& output, Writing writing,
                                   bool showProgress) {
    job.filter = filterOf(output);
    std::optional<OutputFile> file = outputFile(output, writing);
    job.output = writing == Writing::never ? office_.placeAside() : office_.placeBeside(output);
    job.outputUrl = fileUrl(output);
    json result = office_.run(job, showProgress);
    const bool isWritten = isToBeWritten(result, writing);
    if (isWritten) file->commit(job.output);
    std::error_code ignored;
    fs::remove(job.output, ignored);
    result["written"] = isWritten;
    return result;
}

}  // namespace huebrush::cli
