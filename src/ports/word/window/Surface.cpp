// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/Surface.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "ports/word/graphics/Gdi.h"
#include "ports/word/window/Input.h"
#include "ports/word/window/native/Native.h"

namespace huebrush::word {

Surface::Surface(std::shared_ptr<const Site> site, HWND parent, view::ControlReference control)
    : Window(site->enter, {WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, parent, {}}),
      site_(std::move(site)),
      control_(std::move(control)) {}

Surface::~Surface() {
    if (reading_ != nullptr) reading_->end();
    if (handle() != nullptr) site_->tips->forget(handle());
}

void Surface::place(const view::Rectangle& place) {
    moveTo(handle(), bounds_, place);
    if (!std::exchange(visible_, true)) ::ShowWindow(handle(), SW_SHOWNA);
}

void Surface::hide() {
    if (std::exchange(visible_, false)) ::ShowWindow(handle(), SW_HIDE);
}

void Surface::repaint() {
    ::InvalidateRect(handle(), nullptr, FALSE);
}

void Surface::setToolTip(const std::string& text) {
    site_->tips->set(handle(), text);
}

std::unique_ptr<view::NativeControl> Surface::makeControl(const forms::Control& control) {
    return Native::make(control, site_, handle());
}

std::unique_ptr<view::NativeSurface> Surface::makeSurface(const view::ControlReference& box) {
    return std::make_unique<Surface>(site_, handle(), box);
}

LRESULT Surface::answer(const Message& message) {
    switch (message.number) {
        case WM_PAINT:
            paint();
            return 0;
        case WM_PRINTCLIENT:
            paintOn(reinterpret_cast<HDC>(message.first));
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_COMMAND:
        case WM_VSCROLL:
            if (Native* const native = Native::of(reinterpret_cast<HWND>(message.second))) {
                native->notified(message);
            }
            return 0;
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORSTATIC:
            if (const Native* const native = Native::of(reinterpret_cast<HWND>(message.second))) {
                if (const HBRUSH brush = native->background(reinterpret_cast<HDC>(message.first))) {
                    return reinterpret_cast<LRESULT>(brush);
                }
            }
            return answerAsUsual(message);
        case WM_GETOBJECT:
            return describe(message);
        case WM_CAPTURECHANGED:
            site_->mouseLost();
            return 0;
        default:
            passOnMouse(message);
            return answerAsUsual(message);
    }
}

LRESULT Surface::describe(const Message& message) {
    // The number has 32 bits wherever it comes from.
    if (static_cast<LONG>(message.second) != OBJID_CLIENT) return answerAsUsual(message);
    if (reading_ == nullptr) {
        reading_ = std::make_shared<SurfaceReading>(site_, handle(), control_);
    }
    return accessibleResult(reading_, message.first);
}

void Surface::passOnMouse(const Message& message) {
    const std::optional<view::MouseInput> input = mouseInput(message, control_);
    if (!input) return;
    site_->tips->relay(message);
    site_->mouse(*input);
    followMouse(message.number);
}

/// A button that went down here is followed to wherever it comes up, and a mouse that leaves is
/// reported.
void Surface::followMouse(UINT number) {
    switch (number) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            ::SetCapture(handle());
            break;
        case WM_LBUTTONUP:
            if (::GetCapture() == handle()) ::ReleaseCapture();
            break;
        case WM_MOUSELEAVE:
            awaitsLeave_ = false;
            break;
        case WM_MOUSEMOVE:
            if (!std::exchange(awaitsLeave_, true)) {
                TRACKMOUSEEVENT leaving{sizeof(leaving), TME_LEAVE, handle(), 0};
                ::TrackMouseEvent(&leaving);
            }
            break;
        default:
            break;
    }
}

/// All at once, from memory.
void Surface::paint() {
    PAINTSTRUCT painting{};
    const HDC screen = ::BeginPaint(handle(), &painting);
    base::ignoring([&] {
        const view::Size size{std::max(bounds_.width, 1), std::max(bounds_.height, 1)};
        const Context memory(::CreateCompatibleDC(screen));
        const Bitmap buffer(::CreateCompatibleBitmap(screen, size.width, size.height));
        const Selected selected(memory.get(), buffer.get());
        paintOn(memory.get());
        const RECT& shown = painting.rcPaint;
        ::BitBlt(screen, shown.left, shown.top, shown.right - shown.left, shown.bottom - shown.top,
                 memory.get(), shown.left, shown.top, SRCCOPY);
    });
    ::EndPaint(handle(), &painting);
}

void Surface::paintOn(HDC context) {
    if (control_->control == nullptr) return;
    site_->paint(context, *control_->control, {bounds_.width, bounds_.height});
}

}  // namespace huebrush::word
