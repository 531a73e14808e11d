// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/DisabledWindows.h"

#include "base/Error.h"

namespace huebrush::word {

DisabledWindows::DisabledWindows(HWND other) : other_(other) {
    ::EnumThreadWindows(::GetCurrentThreadId(), &DisabledWindows::disable,
                        reinterpret_cast<LPARAM>(this));
}

DisabledWindows::~DisabledWindows() {
    for (const HWND each : disabled_) {
        if (::IsWindow(each) != FALSE) ::EnableWindow(each, TRUE);
    }
}

BOOL CALLBACK DisabledWindows::disable(HWND window, LPARAM self) {
    auto& object = *reinterpret_cast<DisabledWindows*>(self);
    if (window == object.other_ || ::IsWindowVisible(window) == FALSE ||
        ::IsWindowEnabled(window) == FALSE) {
        return TRUE;
    }
    // What cannot be remembered is not disabled.
    base::ignoring([&] {
        object.disabled_.push_back(window);
        ::EnableWindow(window, FALSE);
    });
    return TRUE;
}

}  // namespace huebrush::word
