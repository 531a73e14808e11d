// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/entry/BatchService.h"

#include <chrono>
#include <com/sun/star/frame/XDesktop.hpp>
#include <cppuhelper/supportsservice.hxx>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>

#include "batch/BatchRuntime.h"
#include "batch/Session.h"
#include "error/mError.h"
#include "ports/libreoffice/document/TextDocumentFile.h"
#include "ports/libreoffice/entry/Application.h"
#include "ports/libreoffice/runtime/OfficeComponent.h"
#include "ports/libreoffice/runtime/OfficeRuntime.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/MainThread.h"
#include "protocol/Job.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

using nlohmann::ordered_json;

constexpr const char* kServiceName = "cz.huebrush.Batch";

/// The channel back to the program: one message per line. What the program no longer reads is lost.
class ChannelWriter {
 public:
    explicit ChannelWriter(const std::string& path) : file_(path) {}

    void send(const ordered_json& message) { file_ << message << std::endl; }

    /// Progress is sent at a bounded rate: reading it must not slow down the work.
    void sendProgress(std::size_t done, std::size_t total) {
        const auto now = std::chrono::steady_clock::now();
        if (now - lastProgress_ < kProgressInterval && done < total) return;
        lastProgress_ = now;
        send(protocol::message::progress(done, total));
    }

 private:
    static constexpr std::chrono::milliseconds kProgressInterval{50};

    std::ofstream file_;
    std::chrono::steady_clock::time_point lastProgress_;
};

/// Reads the stored file and compares it with what was to be stored.
batch::StoredResult readBack(const ContextReference& context, Application& application,
                             const batch::StoredFills& given, const DocumentSource& place,
                             bool isEncrypted) {
    if (isEncrypted) requireEncrypted(context, place);
    std::optional<TextDocumentFile> stored;
    try {
        stored.emplace(context, place);
    } catch (const FileError&) {
        throw FileError("LibreOffice cannot read back the result that it has stored");
    }
    return given.compare(*application.Documents().documentOf(stored->model()));
}

ordered_json work(const ContextReference& context, const protocol::Job& job,
                  ChannelWriter& channel) {
    const std::string folder = extensionFolder(context, kExtension);
    Application application(context, folder);
    OfficeRuntime platform(context, folder, application.activeWindow(), application.snapshot());
    batch::BatchRuntime runtime(platform);
    const forms::RuntimeScope scope(runtime);
    runtime.UnhandledError.connect(&error::reportUnhandled);

    const TextDocumentFile file(context, {job.input, job.name, job.inputUrl, job.password});
    const HandlerScope handler(application.snapshot());
    batch::Session session(
        application, application.Documents().documentOf(file.model()),
        [&](std::size_t done, std::size_t total) { channel.sendProgress(done, total); });
    const auto rows = session.scan();
    ordered_json result;
    if (job.output.empty()) {
        result["listing"] = protocol::toJson(rows);
    } else {
        result = protocol::toJson(session.recolor(protocol::requestOf(job)));
        const batch::StoredFills given = session.givenFills();
        application.snapshot()->invalidate();
        file.storeTo({job.output, job.filter, job.outputUrl});
        result["stored"] = protocol::toJson(
            readBack(context, application, given,
                     {job.output, job.name, job.outputUrl, job.password}, file.isEncrypted()));
    }
    return protocol::message::result(std::move(result), runtime.messages());
}

ordered_json answerTo(const ContextReference& context, const std::string& jobFile,
                      ChannelWriter& channel) {
    try {
        std::ifstream stream(jobFile);
        const protocol::Job job = protocol::jobFromJson(nlohmann::json::parse(stream));
        return work(context, job, channel);
    } catch (...) {
        return protocol::message::failure(currentFailure().description());
    }
}

/// Does the jobs whose files the program names, until it closes the pipe.
void doJobs(const ContextReference& context, const std::string& folder) {
    std::ifstream jobs(folder + "/" + protocol::pipe::kJobs);
    ChannelWriter channel(folder + "/" + protocol::pipe::kMessages);
    channel.send(protocol::message::started());
    for (std::string jobFile; std::getline(jobs, jobFile);) {
        channel.send(answerTo(context, jobFile, channel));
    }
}

}  // namespace

void SAL_CALL BatchService::trigger(const rtl::OUString& folder) {
    error::ignoring([&] { doJobs(context_, fromOffice(folder)); });
    error::ignoring([&] {
        // Not from within the call: the office is still starting.
        postToMainThread(context_, [context = context_] {
            createService<css::frame::XDesktop>(context, "com.sun.star.frame.Desktop")->terminate();
        });
    });
}

rtl::OUString SAL_CALL BatchService::getImplementationName() {
    return toOffice(kServiceName);
}

sal_Bool SAL_CALL BatchService::supportsService(const rtl::OUString& name) {
    return cppu::supportsService(this, name);
}

css::uno::Sequence<rtl::OUString> SAL_CALL BatchService::getSupportedServiceNames() {
    const rtl::OUString name = getImplementationName();
    return {&name, 1};
}

}  // namespace huebrush::libreoffice
