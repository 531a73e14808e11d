// SPDX-License-Identifier: MPL-2.0

#include "error/mError.h"

#include "base/Text.h"
#include "forms/Runtime.h"

namespace huebrush::error {

namespace {

using base::kLineBreak;
using base::text;

std::string locationPrefix(const std::string& source, std::int32_t line) {
    const auto length = static_cast<std::int32_t>(base::lengthInCharacters(source));
    // A bitwise AND of the two numbers, on purpose: a source and a line that share no set bit
    // give a report without the line.
    if ((length & line) != 0) {
        return text("Chyba v modulu \"", source, "\" na řádku č.", line, "...", kLineBreak,
                    kLineBreak);
    }
    if (!source.empty()) return text("Chyba v modulu \"", source, "\"...", kLineBreak, kLineBreak);
    if (line != 0) return text("Chyba na řádku č.", line, "...", kLineBreak, kLineBreak);
    return {};
}

constexpr std::int32_t kAskStyle =
    forms::MsgBoxStyle::kAbortRetryIgnore | forms::MsgBoxStyle::kExclamation;
constexpr std::int32_t kReportStyle = forms::MsgBoxStyle::kOk | forms::MsgBoxStyle::kCritical;

std::string boxText(const PendingError& error, const std::string& message) {
    return text(message, kLineBreak, kLineBreak, "Systémový popis výjimky:", kLineBreak,
                error.description);
}

}  // namespace

std::int16_t ReportError(const PendingError& error, std::string& message, const std::string& source,
                         std::int16_t askUser) {
    if (error.number == 0) return 0;
    message = locationPrefix(source, error.line) + message;
    const std::string box = boxText(error, message);
    const std::string title = text("Chyba č. ", error.number);
    auto& runtime = forms::Runtime::current();
    if (askUser == 0) {
        runtime.MsgBox(box, kReportStyle, title);
        return 0;
    }
    return static_cast<std::int16_t>(runtime.MsgBox(box, kAskStyle, title));
}

std::string report(const Place& place, const base::Error& error, std::int32_t line) {
    std::string message = place.message;
    const PendingError pending{error.number(), error.description(), line};
    ReportError(pending, message, place.source(), 0);
    return pending.number == 0 ? std::string() : boxText(pending, message);
}

void reportUnhandled(const base::Error& error) {
    report({"", "", "Při zpracování události došlo k chybě..."}, error);
}

bool Steps::decide(const base::Error& error) {
    std::string message = place_.message;
    const std::int16_t answer =
        ReportError({error.number(), error.description(), line_}, message, place_.source(), ask_());
    switch (static_cast<forms::MsgBoxResult>(answer)) {
        case forms::MsgBoxResult::retry:
            return false;
        case forms::MsgBoxResult::ignore:
            return true;
        default:
            throw Left{};
    }
}

}  // namespace huebrush::error
