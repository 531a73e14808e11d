// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/Input.h"

#include "forms/Control.h"

namespace huebrush::word {

namespace {

using Kind = view::MouseInput::Kind;

constexpr std::int16_t kLeft = 1;
constexpr std::int16_t kRight = 2;

bool isDown(int key) {
    return ::GetKeyState(key) < 0;
}

struct MouseMessage {
    Kind kind = Kind::move;
    std::int16_t button = 0;
    bool twice = false;
};

std::int16_t heldButton(WPARAM keys) {
    if ((keys & MK_LBUTTON) != 0) return kLeft;
    return (keys & MK_RBUTTON) != 0 ? kRight : std::int16_t{0};
}

std::optional<MouseMessage> read(const Message& message) {
    switch (message.number) {
        case WM_LBUTTONDOWN:
            return MouseMessage{Kind::press, kLeft};
        case WM_LBUTTONDBLCLK:
            return MouseMessage{Kind::press, kLeft, true};
        case WM_LBUTTONUP:
            return MouseMessage{Kind::release, kLeft};
        case WM_RBUTTONDOWN:
            return MouseMessage{Kind::press, kRight};
        case WM_RBUTTONDBLCLK:
            return MouseMessage{Kind::press, kRight, true};
        case WM_RBUTTONUP:
            return MouseMessage{Kind::release, kRight};
        case WM_MOUSEMOVE:
            return MouseMessage{Kind::move, heldButton(message.first)};
        case WM_MOUSELEAVE:
            return MouseMessage{Kind::leave};
        default:
            return std::nullopt;
    }
}

/// A message that says that the mouse has left has no place.
view::Point pointerIn(HWND window) {
    POINT at{};
    ::GetCursorPos(&at);
    ::ScreenToClient(window, &at);
    return {static_cast<std::int32_t>(at.x), static_cast<std::int32_t>(at.y)};
}

}  // namespace

std::int16_t shiftState() {
    int state = forms::Shift::kNone;
    if (isDown(VK_SHIFT)) state |= forms::Shift::kShift;
    if (isDown(VK_CONTROL)) state |= forms::Shift::kCtrl;
    if (isDown(VK_MENU)) state |= forms::Shift::kAlt;
    return static_cast<std::int16_t>(state);
}

view::Key keyOf(const Message& message, char16_t character) {
    return {static_cast<std::int16_t>(message.first), shiftState(), character};
}

std::optional<view::MouseInput> mouseInput(const Message& message,
                                           const view::ControlReference& control) {
    const std::optional<MouseMessage> mouse = read(message);
    if (!mouse) return std::nullopt;
    const bool hasLeft = mouse->kind == Kind::leave;
    return view::MouseInput{
        mouse->kind,   control,      hasLeft ? pointerIn(message.window) : message.place(),
        mouse->button, shiftState(), mouse->twice};
}

}  // namespace huebrush::word
