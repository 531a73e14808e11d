// SPDX-License-Identifier: MPL-2.0

#include "ports/word/testhost/HostWindow.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <utility>

#include "base/Error.h"
#include "ports/word/com/Text.h"

namespace huebrush::word {

namespace {

constexpr const wchar_t* kClass = L"HuebrushStandIn";
constexpr const wchar_t* kCaption = L"Dokument1 - Word";
constexpr const char* kBar = "Huebrush";
constexpr int kFirstButton = 100;
constexpr int kButtonWidth = 110;
constexpr int kButtonHeight = 26;
constexpr int kMargin = 4;
constexpr int kDocumentTop = kButtonHeight + 2 * kMargin;
constexpr int kCell = 36;
constexpr int kColumns = 12;

/// The message that brings a line of the input: its text, which is deleted there; none at its end.
constexpr UINT kLine = WM_APP;

/// Reads lines of the input and posts them to a window.
DWORD WINAPI readLines(LPVOID target) {
    const auto window = static_cast<HWND>(target);
    const auto post = [window](std::unique_ptr<std::string> line) {
        ::PostMessageW(window, kLine, 0, reinterpret_cast<LPARAM>(line.release()));
    };
    std::string line;
    for (int character = std::getchar(); character != EOF; character = std::getchar()) {
        if (character == '\n') {
            post(std::make_unique<std::string>(std::exchange(line, {})));
        } else if (character != '\r') {
            line += static_cast<char>(character);
        }
    }
    post({});
    return 0;
}

RECT placeOf(std::size_t shape) {
    const auto index = static_cast<int>(shape);
    const int left = kMargin + index % kColumns * kCell;
    const int top = kDocumentTop + index / kColumns * kCell;
    return {left, top, left + kCell - kMargin, top + kCell - kMargin};
}

}  // namespace

HostWindow::HostWindow(memory::TestHost& host) : host_(host) {
    WNDCLASSW kind{};
    kind.lpfnWndProc = &procedure;
    kind.hInstance = ::GetModuleHandleW(nullptr);
    kind.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    kind.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    kind.lpszClassName = kClass;
    ::RegisterClassW(&kind);
    constexpr int kWidth = 460;
    constexpr int kHeight = 320;
    window_ =
        ::CreateWindowExW(0, kClass, kCaption, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                          CW_USEDEFAULT, kWidth, kHeight, nullptr, nullptr, kind.hInstance, this);
    if (window_ == nullptr) throw std::runtime_error("The window cannot be made.");
    refresh();
    ::ShowWindow(window_, SW_SHOW);
    ::UpdateWindow(window_);
}

HostWindow::~HostWindow() {
    if (window_ != nullptr) ::DestroyWindow(window_);
    ::UnregisterClassW(kClass, ::GetModuleHandleW(nullptr));
}

void HostWindow::refresh() {
    for (const HWND button : buttons_) ::DestroyWindow(button);
    buttons_.clear();
    const auto bar = host_.application.bars.find(kBar);
    if (bar) {
        for (const auto& each : bar->buttons) {
            const auto index = static_cast<int>(buttons_.size());
            buttons_.push_back(::CreateWindowExW(
                0, L"BUTTON", toWide(each->caption).c_str(), WS_CHILD | WS_VISIBLE,
                kMargin + index * (kButtonWidth + kMargin), kMargin, kButtonWidth, kButtonHeight,
                window_, reinterpret_cast<HMENU>(static_cast<std::intptr_t>(kFirstButton + index)),
                nullptr, nullptr));
            ::EnableWindow(buttons_.back(), each->enabled ? TRUE : FALSE);
        }
    }
    ::InvalidateRect(window_, nullptr, TRUE);
}

void HostWindow::readInput(std::function<void(const std::string& line)> use) {
    use_ = std::move(use);
    const HANDLE reader = ::CreateThread(nullptr, 0, &readLines, window_, 0, nullptr);
    if (reader == nullptr) throw std::runtime_error("The input cannot be read.");
    ::CloseHandle(reader);
}

LRESULT CALLBACK HostWindow::procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
    if (message == WM_NCCREATE) {
        const auto* const made = reinterpret_cast<const CREATESTRUCTW*>(longer);
        auto* const self = static_cast<HostWindow*>(made->lpCreateParams);
        self->window_ = window;
        ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* const self = reinterpret_cast<HostWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) return ::DefWindowProcW(window, message, wide, longer);
    LRESULT result = 0;
    base::ignoring([&] { result = self->handle(message, wide, longer); });
    return result;
}

/// An open menu would swallow the message under Wine.
void HostWindow::quit() {
    ::EndMenu();
    ::PostQuitMessage(0);
}

LRESULT HostWindow::handle(UINT message, WPARAM wide, LPARAM longer) {
    switch (message) {
        case WM_COMMAND:
            if (HIWORD(wide) == BN_CLICKED && LOWORD(wide) >= kFirstButton) {
                click(static_cast<std::size_t>(LOWORD(wide) - kFirstButton));
            }
            return 0;
        case kLine: {
            const std::unique_ptr<std::string> line(reinterpret_cast<std::string*>(longer));
            if (line) use_(*line);
            if (!line) quit();
            return 0;
        }
        case WM_PAINT:
            paint();
            return 0;
        case WM_DESTROY:
            window_ = nullptr;
            quit();
            return 0;
        default:
            return ::DefWindowProcW(window_, message, wide, longer);
    }
}

void HostWindow::paint() const {
    PAINTSTRUCT paint{};
    const HDC context = ::BeginPaint(window_, &paint);
    const auto& shapes = host_.document->shapes;
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        const RECT place = placeOf(i);
        const HBRUSH brush =
            ::CreateSolidBrush(static_cast<COLORREF>(shapes[i]->fill.ForeColorRGB));
        ::FillRect(context, &place, brush);
        ::DeleteObject(brush);
    }
    ::EndPaint(window_, &paint);
}

void HostWindow::click(std::size_t button) {
    const auto bar = host_.application.bars.find(kBar);
    if (!bar || button >= bar->buttons.size()) return;
    const auto clicked = bar->buttons[button];
    clicked->Execute();
    refresh();
}

}  // namespace huebrush::word
