// SPDX-License-Identifier: MPL-2.0

#include "ports/word/WindowsPort_test_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <utility>

#include "ports/word/com/Text.h"
#include "ports/word/runtime/Registry_test_support.h"
#include "ports/word/window/Surface.h"
#include "ports/word/window/native/Native.h"
#include "view/ControlPeer.h"
#include "view/Scene.h"

namespace huebrush::word {

namespace {

constexpr const wchar_t* kClass = L"HuebrushTestHost";
constexpr UINT kPumped = WM_APP + 1;

void send(const INPUT& input) {
    INPUT sent = input;
    EXPECT_EQ(::SendInput(1, &sent, sizeof(sent)), 1U);
}

void sendKey(WORD code, WORD scan, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = code;
    input.ki.wScan = scan;
    input.ki.dwFlags = flags;
    send(input);
}

WORD codeOf(const std::string& name) {
    static const std::map<std::string, WORD> kNames{
        {"Return", VK_RETURN}, {"Escape", VK_ESCAPE}, {"Tab", VK_TAB},  {"BackSpace", VK_BACK},
        {"Left", VK_LEFT},     {"End", VK_END},       {"Down", VK_DOWN}};
    const auto found = kNames.find(name);
    if (found != kNames.end()) return found->second;
    return static_cast<WORD>(name.at(0) - 'a' + 'A');
}

struct Wanted {
    const forms::Control* control;
    HWND found = nullptr;
};

BOOL CALLBACK findSurface(HWND window, LPARAM wanted) {
    auto& search = *reinterpret_cast<Wanted*>(wanted);
    const auto* const surface = dynamic_cast<const Surface*>(Window::of(window));
    if (surface == nullptr || surface->control()->control != search.control) return TRUE;
    search.found = window;
    return FALSE;
}

HWND surfaceWindow(HWND form, const forms::Control& control) {
    Wanted search{&control};
    ::EnumChildWindows(form, &findSurface, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

POINT middleOf(const RECT& place) {
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

HWND openMenu() {
    const HWND menu = ::FindWindowW(L"#32768", nullptr);
    return menu != nullptr && ::IsWindowVisible(menu) != FALSE ? menu : nullptr;
}

bool isMenuOpen() {
    return openMenu() != nullptr;
}

/// The middle of a line of the open menu, on the screen.
POINT lineOfMenu(const std::string& caption) {
    constexpr UINT kGetMenu = 0x01E1;
    const auto menu = reinterpret_cast<HMENU>(::SendMessageW(openMenu(), kGetMenu, 0, 0));
    for (int line = 0; line < ::GetMenuItemCount(menu); ++line) {
        wchar_t text[128]{};
        ::GetMenuStringW(menu, static_cast<UINT>(line), text, 128, MF_BYPOSITION);
        if (toUtf8(text) != caption) continue;
        RECT place{};
        ::GetMenuItemRect(nullptr, menu, static_cast<UINT>(line), &place);
        return middleOf(place);
    }
    ADD_FAILURE() << "no line " << caption;
    return {};
}

void sendButton(DWORD what) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = what;
    send(input);
}

}  // namespace

WindowsPort::WindowsPort() {
    WNDCLASSW kind{};
    kind.lpfnWndProc = &procedure;
    kind.hInstance = ::GetModuleHandleW(nullptr);
    kind.lpszClassName = kClass;
    kind.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1);
    ::RegisterClassW(&kind);
    host_ = makeWindow(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    helper_ = makeWindow(HWND_MESSAGE, 0);
    ::SetForegroundWindow(host_);
    settle();
}

WindowsPort::~WindowsPort() {
    ::DestroyWindow(helper_);
    ::DestroyWindow(host_);
    // What the contract has stored.
    clearRegistry("Software\\VB and VBA Program Settings\\HuebrushContract");
}

HWND WindowsPort::makeWindow(HWND parent, DWORD style) {
    const HWND window = ::CreateWindowExW(0, kClass, L"Host", style, 20, 20, 800, 600, parent,
                                          nullptr, ::GetModuleHandleW(nullptr), nullptr);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    return window;
}

LRESULT CALLBACK WindowsPort::procedure(HWND window, UINT number, WPARAM first, LPARAM second) {
    auto* const port = reinterpret_cast<WindowsPort*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (port != nullptr && number == kPumped) {
        for (const auto& each : std::exchange(port->pumped_, {})) each();
        return 0;
    }
    if (port != nullptr && number == WM_TIMER) {
        port->look();
        return 0;
    }
    return ::DefWindowProcW(window, number, first, second);
}

void WindowsPort::waitUntil(const std::function<bool()>& holds, const std::string& what) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!holds()) {
        ASSERT_LT(std::chrono::steady_clock::now(), end) << what;
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        settle();
    }
}

void WindowsPort::waitUntilActive(HWND window) {
    waitUntil([window] { return ::GetForegroundWindow() == window; }, "the active window");
    settle();
}

HWND WindowsPort::windowOf(const forms::Form& form) {
    const auto window = runtime_.windows().windowOf(form);
    return window == nullptr ? nullptr : window->handle();
}

HWND WindowsPort::nativeOf(const forms::Control& control) {
    const view::ControlPeer* const peer = view::ControlPeer::of(&control);
    if (peer == nullptr || peer->native == nullptr) return nullptr;
    return dynamic_cast<const Native&>(*peer->native).handle();
}

RECT WindowsPort::placeOf(forms::Control& control) {
    RECT place{};
    if (const HWND native = nativeOf(control)) {
        ::GetWindowRect(native, &place);
        return place;
    }
    const HWND form = windowOf(control.form());
    const HWND surface = surfaceWindow(form, view::surfaceOf(control));
    const view::Rectangle inside =
        view::Scale(resolutionOf(form)).toPixels(view::placeOnSurface(control));
    POINT corner{inside.left, inside.top};
    ::ClientToScreen(surface, &corner);
    return {corner.x, corner.y, corner.x + inside.width, corner.y + inside.height};
}

void WindowsPort::pointAt(POINT at) {
    ::SetCursorPos(at.x, at.y);
    settle();
}

void WindowsPort::pointAt(forms::Control& control) {
    settle();
    pointAt(middleOf(placeOf(control)));
}

void WindowsPort::button(DWORD what) {
    sendButton(what);
    settle();
}

void WindowsPort::clickAt(POINT at) {
    pointAt(at);
    // Both at once: a bar that is pressed runs events itself until the button comes up.
    sendButton(MOUSEEVENTF_LEFTDOWN);
    sendButton(MOUSEEVENTF_LEFTUP);
    settle();
}

void WindowsPort::click(forms::Control& control) {
    settle();
    clickAt(middleOf(placeOf(control)));
}

void WindowsPort::turnWheel(int notches) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = MOUSEEVENTF_WHEEL;
    input.mi.mouseData = static_cast<DWORD>(notches * WHEEL_DELTA);
    send(input);
    settle();
}

void WindowsPort::pick(forms::ListBox& list, std::int16_t line) {
    settle();
    const HWND native = nativeOf(list);
    RECT place{};
    ::SendMessageW(native, LB_GETITEMRECT, static_cast<WPARAM>(line),
                   reinterpret_cast<LPARAM>(&place));
    POINT at = middleOf(place);
    ::ClientToScreen(native, &at);
    clickAt(at);
}

void WindowsPort::keyDown(WORD code) {
    sendKey(code, 0, 0);
    settle();
}

void WindowsPort::keyUp(WORD code) {
    sendKey(code, 0, KEYEVENTF_KEYUP);
    settle();
}

void WindowsPort::press(WORD code) {
    keyDown(code);
    keyUp(code);
}

void WindowsPort::key(forms::Form& form, const std::string& name) {
    waitUntilActive(windowOf(form));
    press(codeOf(name));
}

void WindowsPort::type(forms::TextBox& box, const std::string& text) {
    click(box);
    press(VK_END);
    for (const wchar_t unit : toWide(text)) {
        sendKey(0, static_cast<WORD>(unit), KEYEVENTF_UNICODE);
        sendKey(0, static_cast<WORD>(unit), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
    settle();
}

void WindowsPort::deactivate(forms::Form&) {
    ::SetForegroundWindow(host_);
    waitUntilActive(host_);
}

void WindowsPort::activate(forms::Form& form) {
    ::SetForegroundWindow(windowOf(form));
    waitUntilActive(windowOf(form));
}

void WindowsPort::closeWindow(forms::Form& form) {
    ::SendMessageW(windowOf(form), WM_CLOSE, 0, 0);
    settle();
}

void WindowsPort::inNextPump(std::function<void()> happening) {
    pumped_.push_back(std::move(happening));
    ::PostMessageW(helper_, kPumped, 0, 0);
}

void WindowsPort::when(std::function<bool()> holds, std::function<void()> happening) {
    waiting_.push_back({std::move(holds), std::move(happening)});
    ::SetTimer(helper_, 1, 10, nullptr);
}

void WindowsPort::look() {
    const auto ready = std::find_if(waiting_.begin(), waiting_.end(),
                                    [](const Waiting& each) { return each.holds(); });
    if (ready == waiting_.end()) return;
    const auto happening = std::move(ready->happening);
    waiting_.erase(ready);
    if (waiting_.empty()) ::KillTimer(helper_, 1);
    happening();
}

void WindowsPort::answerNextBox(forms::MsgBoxResult answer) {
    when([] { return ::FindWindowW(L"#32770", nullptr) != nullptr; },
         [answer] {
             ::PostMessageW(::FindWindowW(L"#32770", nullptr), WM_COMMAND,
                            static_cast<WPARAM>(answer), 0);
         });
}

void WindowsPort::whenMenuIsOpen(std::function<void()> happening) {
    when(&isMenuOpen, std::move(happening));
}

void WindowsPort::pickInNextMenu(const std::string& caption) {
    whenMenuIsOpen([caption] {
        if (caption.empty()) {
            sendKey(VK_ESCAPE, 0, 0);
            sendKey(VK_ESCAPE, 0, KEYEVENTF_KEYUP);
            return;
        }
        const POINT at = lineOfMenu(caption);
        ::SetCursorPos(at.x, at.y);
        sendButton(MOUSEEVENTF_LEFTDOWN);
        sendButton(MOUSEEVENTF_LEFTUP);
    });
}

}  // namespace huebrush::word
