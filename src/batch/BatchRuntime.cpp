// SPDX-License-Identifier: MPL-2.0

#include "batch/BatchRuntime.h"

#include "base/Error.h"
#include "base/Text.h"
#include "forms/PopupMenu.h"

namespace huebrush::batch {

namespace {

Message::Kind kindOf(std::int32_t style) {
    switch (style & forms::MsgBoxStyle::kIconMask) {
        case forms::MsgBoxStyle::kCritical:
            return Message::Kind::error;
        case forms::MsgBoxStyle::kInformation:
            return Message::Kind::information;
        default:
            return Message::Kind::warning;
    }
}

[[noreturn]] void throwUnattended(const std::string& what) {
    throw base::Error(base::ErrorNumber::kInternal,
                      base::text("Bez obsluhy nelze odpovědět na dotaz: ", what));
}

}  // namespace

forms::MsgBoxResult BatchRuntime::MsgBox(const std::string& text, std::int32_t style,
                                         const std::string& title) {
    switch (style & forms::MsgBoxStyle::kButtonsMask) {
        case forms::MsgBoxStyle::kOk:
            messages_.push_back({kindOf(style), text});
            return forms::MsgBoxResult::ok;
        case forms::MsgBoxStyle::kAbortRetryIgnore:
            messages_.push_back({Message::Kind::error, text});
            return forms::MsgBoxResult::abort;
        default:
            throwUnattended(base::text(title, ": ", text));
    }
}

void BatchRuntime::PopupMenu(forms::PopupMenu& menu, forms::Control& owner, double x, double y) {
    static_cast<void>(owner);
    static_cast<void>(x);
    static_cast<void>(y);
    throwUnattended(menu.Caption);
}

std::string BatchRuntime::ChooseFile(const forms::FileDialog& dialog) {
    throwUnattended(dialog.title);
}

void BatchRuntime::DoEvents() {}

// There is no screen.
void BatchRuntime::showForm(forms::Form& form, bool modal) {
    static_cast<void>(form);
    static_cast<void>(modal);
}
void BatchRuntime::closeForm(forms::Form& form) {
    static_cast<void>(form);
}
void BatchRuntime::setTopMost(forms::Form& form, bool topMost) {
    static_cast<void>(form);
    static_cast<void>(topMost);
}

}  // namespace huebrush::batch
