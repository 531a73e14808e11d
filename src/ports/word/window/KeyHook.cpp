// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/KeyHook.h"

#include <windowsx.h>

#include "base/Error.h"
#include "ports/word/com/ModuleUse.h"
#include "ports/word/window/FormWindow.h"

namespace huebrush::word {

namespace {

/// Whether a form has taken a message, which then is nobody else's.
bool isTaken(MSG& message) {
    switch (message.message) {
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_SYSKEYDOWN:
        case WM_SYSKEYUP: {
            FormWindow* const form = FormWindow::around(message.hwnd);
            return form != nullptr && form->takeKey(message);
        }
        case WM_MOUSEWHEEL: {
            // It comes to the window that has the keyboard.
            const POINT at{GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
            const HWND under = ::WindowFromPoint(at);
            FormWindow* const form = FormWindow::around(under);
            return form != nullptr && form->takeWheel(under, message);
        }
        default:
            return false;
    }
}

}  // namespace

KeyHook::KeyHook()
    : hook_(::SetWindowsHookExW(WH_GETMESSAGE, &KeyHook::procedure, nullptr,
                                ::GetCurrentThreadId())) {}

KeyHook::~KeyHook() {
    if (hook_ != nullptr) ::UnhookWindowsHookEx(hook_);
}

LRESULT CALLBACK KeyHook::procedure(int code, WPARAM removal, LPARAM message) {
    const ModuleUse loaded;
    if (code == HC_ACTION && removal == PM_REMOVE) {
        base::ignoring([&] {
            auto& taken = *reinterpret_cast<MSG*>(message);
            if (isTaken(taken)) taken.message = WM_NULL;
        });
    }
    return ::CallNextHookEx(nullptr, code, removal, message);
}

}  // namespace huebrush::word
