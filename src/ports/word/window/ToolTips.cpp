// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/ToolTips.h"

#include <commctrl.h>

#include "ports/word/com/ModuleUse.h"
#include "ports/word/com/Text.h"

namespace huebrush::word {

namespace {

/// In the oldest form, which every version of the library takes.
TTTOOLINFOW toolOf(HWND window) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = window;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    return tool;
}

LRESULT send(HWND tips, UINT number, const void* what) {
    return ::SendMessageW(tips, number, 0, reinterpret_cast<LPARAM>(what));
}

}  // namespace

ToolTips::ToolTips(HWND owner) {
    constexpr LPARAM kWidest = 400;
    ::InitCommonControls();
    tips_ = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX,
                              CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner,
                              nullptr, thisModule(), nullptr);
    // With a width, a text may have several lines.
    ::SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, kWidest);
}

ToolTips::~ToolTips() {
    // Its owner may have taken it along.
    if (::IsWindow(tips_) != FALSE) ::DestroyWindow(tips_);
}

void ToolTips::set(HWND window, const std::string& text) {
    const auto known = texts_.find(window);
    const std::wstring wide = toWide(text);
    if (known == texts_.end() ? wide.empty() : known->second == wide) return;
    TTTOOLINFOW tool = toolOf(window);
    if (known != texts_.end()) {
        send(tips_, TTM_DELTOOLW, &tool);
        texts_.erase(known);
    }
    if (wide.empty()) return;
    std::wstring& kept = texts_[window] = wide;
    tool.lpszText = kept.data();
    send(tips_, TTM_ADDTOOLW, &tool);
    relayPointer(window);
}

/// Where the mouse rests already, no move of it comes any more.
void ToolTips::relayPointer(HWND window) const {
    POINT at{};
    ::GetCursorPos(&at);
    if (::WindowFromPoint(at) != window) return;
    ::ScreenToClient(window, &at);
    relay({window, WM_MOUSEMOVE, 0, MAKELPARAM(at.x, at.y)});
}

void ToolTips::relay(const Message& message) const {
    if (message.number < WM_MOUSEFIRST || message.number > WM_MBUTTONDBLCLK) return;
    if (!texts_.contains(message.window)) return;
    MSG relayed{};
    relayed.hwnd = message.window;
    relayed.message = message.number;
    relayed.wParam = message.first;
    relayed.lParam = message.second;
    send(tips_, TTM_RELAYEVENT, &relayed);
}

}  // namespace huebrush::word
