// SPDX-License-Identifier: MPL-2.0

#include "cli/ConsoleRuntime.h"

#include <istream>
#include <ostream>

#include "cli/FillText.h"

namespace huebrush::cli {

namespace {

using forms::MsgBoxResult;

[[noreturn]] void throwNoWindows() {
    throw base::Error(base::ErrorNumber::kInternal, "A terminal has no windows.");
}

}  // namespace

MsgBoxResult ConsoleRuntime::MsgBox(const std::string& text, std::int32_t style,
                                    const std::string& title) {
    out_ << "huebrush: " << title << ": " << oneLine(text) << '\n';
    switch (style & forms::MsgBoxStyle::kButtonsMask) {
        case forms::MsgBoxStyle::kOk:
            return MsgBoxResult::ok;
        case forms::MsgBoxStyle::kAbortRetryIgnore:
            return interactive_ ? ask() : MsgBoxResult::abort;
        default:
            throwNoWindows();
    }
}

MsgBoxResult ConsoleRuntime::ask() {
    for (;;) {
        out_ << "Abort, retry or ignore? [a/r/i] " << std::flush;
        std::string line;
        if (!std::getline(in_, line)) return MsgBoxResult::abort;
        if (line == "a" || line == "A") return MsgBoxResult::abort;
        if (line == "r" || line == "R") return MsgBoxResult::retry;
        if (line == "i" || line == "I") return MsgBoxResult::ignore;
    }
}

void ConsoleRuntime::PopupMenu(forms::PopupMenu&, forms::Control&, double, double) {
    throwNoWindows();
}
std::string ConsoleRuntime::ChooseFile(const forms::FileDialog&) {
    throwNoWindows();
}
forms::Clipboard& ConsoleRuntime::Clipboard() {
    throwNoWindows();
}
forms::Settings& ConsoleRuntime::Settings() {
    throwNoWindows();
}
const forms::Component& ConsoleRuntime::Component() {
    throwNoWindows();
}
forms::System& ConsoleRuntime::System() {
    throwNoWindows();
}
void ConsoleRuntime::showForm(forms::Form&, bool) {
    throwNoWindows();
}
void ConsoleRuntime::closeForm(forms::Form&) {
    throwNoWindows();
}
void ConsoleRuntime::setTopMost(forms::Form&, bool) {
    throwNoWindows();
}

}  // namespace huebrush::cli
