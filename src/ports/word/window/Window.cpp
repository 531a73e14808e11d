// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/Window.h"

#include <windowsx.h>

#include <string>
#include <utility>

#include "base/Error.h"
#include "ports/word/com/ModuleUse.h"

namespace huebrush::word {

view::Point Message::place() const {
    return {GET_X_LPARAM(second), GET_Y_LPARAM(second)};
}

bool moveTo(HWND window, view::Rectangle& now, const view::Rectangle& place) {
    if (place == now) return false;
    now = place;
    ::SetWindowPos(window, nullptr, place.left, place.top, place.width, place.height,
                   SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
    return true;
}

/// Registered by the first window, and gone with the module: an unloaded module would leave a class
/// behind whose procedure is no more, so its name is that of the place in memory.
ATOM Window::windowClass() {
    const std::wstring name =
        L"HuebrushWindow" + std::to_wstring(reinterpret_cast<std::uintptr_t>(&procedure));
    WNDCLASSEXW kind{};
    kind.cbSize = sizeof(kind);
    if (const int known = ::GetClassInfoExW(thisModule(), name.c_str(), &kind); known != 0) {
        return static_cast<ATOM>(known);
    }
    kind = {};
    kind.cbSize = sizeof(kind);
    kind.style = CS_DBLCLKS;
    kind.lpfnWndProc = &procedure;
    kind.hInstance = thisModule();
    kind.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    kind.lpszClassName = name.c_str();
    return ::RegisterClassExW(&kind);
}

Window::Window(Enter enter, const WindowKind& kind) : enter_(std::move(enter)) {
    constexpr std::int32_t kOutOfMemory = 7;
    handle_ =
        ::CreateWindowExW(kind.extendedStyle, MAKEINTATOM(windowClass()), kind.caption.c_str(),
                          kind.style, 0, 0, 0, 0, kind.parent, nullptr, thisModule(), nullptr);
    if (handle_ == nullptr) throw base::Error(kOutOfMemory, "Okno nelze vytvořit.");
    ::SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

Window::~Window() {
    const HWND handle = handle_;
    abandon();
    if (handle != nullptr) ::DestroyWindow(handle);
}

void Window::abandon() {
    const HWND handle = std::exchange(handle_, nullptr);
    if (handle != nullptr) ::SetWindowLongPtrW(handle, GWLP_USERDATA, 0);
}

Window* Window::of(HWND handle) {
    if (handle == nullptr) return nullptr;
    const LONG_PTR answering = ::GetWindowLongPtrW(handle, GWLP_WNDPROC);
    if (answering != reinterpret_cast<LONG_PTR>(&procedure)) return nullptr;
    return reinterpret_cast<Window*>(::GetWindowLongPtrW(handle, GWLP_USERDATA));
}

LRESULT Window::answerAsUsual(const Message& message) {
    return ::DefWindowProcW(message.window, message.number, message.first, message.second);
}

LRESULT CALLBACK Window::procedure(HWND window, UINT number, WPARAM first, LPARAM second) {
    const ModuleUse loaded;
    const Message message{window, number, first, second};
    auto* const object = reinterpret_cast<Window*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (object == nullptr) return answerAsUsual(message);
    if (number == WM_NCDESTROY) {
        object->abandon();
        return answerAsUsual(message);
    }
    LRESULT answered = 0;
    // The object may end before the procedure does.
    const Enter enter = object->enter_;
    enter([&] {
        const std::shared_ptr<void> alive = object->keepAlive();
        answered = object->answer(message);
    });
    return answered;
}

}  // namespace huebrush::word
