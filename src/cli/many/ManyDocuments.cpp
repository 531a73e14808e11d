// SPDX-License-Identifier: MPL-2.0

#include "cli/many/ManyDocuments.h"

#include <iostream>
#include <optional>
#include <utility>
#include <vector>

#include "cli/Failure.h"
#include "cli/FillText.h"
#include "cli/Interrupt.h"
#include "cli/ProgressBar.h"
#include "cli/many/Workers.h"

namespace huebrush::cli {

namespace {

using json = nlohmann::ordered_json;

/// The outcomes, reported in the order of the documents as soon as they can be.
class Reports {
 public:
    Reports(const CallOverMany& call, bool showProgress)
        : call_(call), bar_(showProgress), outcomes_(call.documents) {
        bar_.show(0, call.documents);
    }

    void take(std::size_t document, Outcome outcome) {
        outcomes_[document] = std::move(outcome);
        ++done_;
        bar_.clear();
        while (next_ < outcomes_.size() && outcomes_[next_]) report(next_++);
        std::cout.flush();
        bar_.show(done_, outcomes_.size());
    }

    /// Those that wait for one that will not come.
    void finish() {
        bar_.clear();
        for (; next_ < outcomes_.size(); ++next_) {
            if (outcomes_[next_]) report(next_);
        }
    }

 private:
    void report(std::size_t document) {
        call_.report(document, *outcomes_[document]);
        // It may be large.
        outcomes_[document].emplace();
    }

    const CallOverMany& call_;
    ProgressBar bar_;
    std::vector<std::optional<Outcome>> outcomes_;
    std::size_t next_ = 0;
    std::size_t done_ = 0;
};

Outcome outcomeOf(const CallOverMany& call, std::size_t document) {
    try {
        return {call.work(document)};
    } catch (const Failure& failure) {
        return {nullptr, oneLine(failure.what())};
    }
}

std::string packed(const Outcome& outcome) {
    return json{{"result", outcome.result}, {"failure", outcome.failure}}.dump(
        -1, ' ', false, json::error_handler_t::replace);
}

Outcome unpacked(const std::string& answer) {
    json value = json::parse(answer);
    return {std::move(value.at("result")), value.at("failure").get<std::string>()};
}

}  // namespace

bool carryOut(const CallOverMany& call, std::size_t jobs, bool showProgress) {
    Reports reports(call, showProgress);
    std::vector<std::size_t> forWorkers;
    std::vector<std::size_t> forOffice;
    try {
        for (std::size_t i = 0; i < call.documents; ++i) {
            throwIfInterrupted();
            try {
                (call.needsOffice(i) ? forOffice : forWorkers).push_back(i);
            } catch (const Failure& failure) {
                reports.take(i, {nullptr, oneLine(failure.what())});
            }
        }
        runByWorkers(
            forWorkers, jobs,
            [&](std::size_t document) { return packed(outcomeOf(call, document)); },
            [&](std::size_t document, const std::optional<std::string>& answer) {
                reports.take(document, answer ? unpacked(*answer)
                                              : Outcome{nullptr, "the program crashed on it"});
            });
        for (const std::size_t document : forOffice)
            reports.take(document, outcomeOf(call, document));
    } catch (const Interrupted&) {
        reports.finish();
        return false;
    }
    return true;
}

}  // namespace huebrush::cli
