// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "view/Geometry.h"

namespace huebrush::word {

/// Every way from the system into our windows leads through this: it runs what it is given, keeps
/// alive whatever that needs until it has returned, and lets no exception out.
using Enter = std::function<void(const std::function<void()>&)>;

/// A message of the system.
struct Message {
    HWND window = nullptr;
    UINT number = 0;
    WPARAM first = 0;
    LPARAM second = 0;

    /// The place that a message of the mouse has, in pixels of its window.
    view::Point place() const;
};

/// What a window of the system is to be.
struct WindowKind {
    DWORD style = 0;
    DWORD extendedStyle = 0;
    HWND parent = nullptr;
    std::wstring caption;
};

/// A window of the system whose messages come here. It is destroyed with this object; until then
/// it may be destroyed by the system, with the window that it lies in or belongs to.
class Window {
 public:
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    /// Null once it has been destroyed.
    HWND handle() const { return handle_; }
    const Enter& enter() const { return enter_; }

    /// The object behind a window; null for a window that has none.
    static Window* of(HWND handle);

 protected:
    /// Hidden, without a size. An error of the forms runtime (7) where the system has no more
    /// windows. What the system asks while it makes the window is not answered here.
    Window(Enter enter, const WindowKind& kind);

    /// Answers a message. It may end this object only where `keepAlive` keeps it.
    virtual LRESULT answer(const Message& message) = 0;
    /// Keeps the object until a message has been answered.
    virtual std::shared_ptr<void> keepAlive() { return nullptr; }
    /// What the system does with a message.
    static LRESULT answerAsUsual(const Message& message);
    /// The system is destroying the window: nothing of its messages comes here any more.
    void abandon();

 private:
    static LRESULT CALLBACK procedure(HWND window, UINT number, WPARAM first, LPARAM second);
    static ATOM windowClass();

    Enter enter_;
    HWND handle_ = nullptr;
};

/// Moves a window inside its parent. Whether it was elsewhere.
bool moveTo(HWND window, view::Rectangle& now, const view::Rectangle& place);

}  // namespace huebrush::word
