// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/native/Native.h"

#include <utility>

#include "base/Error.h"
#include "base/RaisedFlag.h"
#include "forms/Form.h"
#include "ports/word/com/ModuleUse.h"
#include "ports/word/com/Text.h"
#include "ports/word/window/Input.h"
#include "ports/word/window/native/Kinds.h"
#include "view/NativeKinds.h"
#include "view/Painter.h"

namespace huebrush::word {

Native::Native(std::shared_ptr<const Site> site, HWND parent, const Kind& kind)
    : site_(std::move(site)) {
    constexpr std::int32_t kOutOfMemory = 7;
    handle_ = ::CreateWindowExW(kind.extendedStyle, kind.windowClass, L"",
                                kind.style | WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0, parent,
                                nullptr, thisModule(), nullptr);
    if (handle_ == nullptr) throw base::Error(kOutOfMemory, "Ovládací prvek nelze vytvořit.");
    life_->native = this;
    life_->enter = site_->enter;
    ::SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(life_.get()));
    life_->usual = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Native::procedure)));
}

Native::~Native() {
    if (handle_ == nullptr) return;
    site_->tips->forget(handle_);
    ::SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(life_->usual));
    ::SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
    life_->native = nullptr;
    ::DestroyWindow(handle_);
}

std::unique_ptr<Native> Native::make(const forms::Control& control,
                                     std::shared_ptr<const Site> site, HWND parent) {
    std::unique_ptr<Native> made;
    view::visitNativeKind(control,
                          [&](const auto& kind) { made = makeNative(kind, site, parent); });
    return made;
}

Native* Native::of(HWND handle) {
    if (handle == nullptr) return nullptr;
    const LONG_PTR answering = ::GetWindowLongPtrW(handle, GWLP_WNDPROC);
    if (answering != reinterpret_cast<LONG_PTR>(&Native::procedure)) return nullptr;
    const auto* const life =
        reinterpret_cast<const Life*>(::GetWindowLongPtrW(handle, GWLP_USERDATA));
    return life == nullptr ? nullptr : life->native;
}

LRESULT CALLBACK Native::procedure(HWND window, UINT number, WPARAM first, LPARAM second) {
    const ModuleUse loaded;
    const Message message{window, number, first, second};
    Native* const native = of(window);
    if (native == nullptr) return ::DefWindowProcW(window, number, first, second);
    const std::shared_ptr<Life> life = native->life_;
    LRESULT answered = 0;
    life->enter([&] { answered = answer(life, message); });
    return answered;
}

LRESULT Native::answer(const std::shared_ptr<Life>& life, const Message& message) {
    if (message.number == WM_NCDESTROY) {
        ::SetWindowLongPtrW(message.window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(life->usual));
        life->native->handle_ = nullptr;
    } else {
        life->native->hearMouse(message);
    }
    const auto asUsual = [&] {
        return ::CallWindowProcW(life->usual, message.window, message.number, message.first,
                                 message.second);
    };
    if (message.number != WM_SETFOCUS) return asUsual();
    // An option that gets the focus reports a click.
    const base::RaisedFlag silent(life->silent);
    return asUsual();
}

void Native::show(const view::ControlReference& control, const view::Rectangle& place) {
    if (control != control_) {
        control_ = control;
        adopted();
    }
    mirrorCommon(*control->control, place);
    silently([&] { mirror(*control->control); });
    if (!std::exchange(visible_, true)) ::ShowWindow(handle_, SW_SHOWNA);
}

void Native::hide() {
    if (std::exchange(visible_, false)) ::ShowWindow(handle_, SW_HIDE);
}

void Native::mirrorCommon(const forms::Control& control, const view::Rectangle& place) {
    if (look_ != site_->look) {
        look_ = site_->look;
        send(WM_SETFONT, reinterpret_cast<WPARAM>(look_->font({})), TRUE);
    }
    moveTo(handle_, place_, insideOf(place));
    if (const bool enabled = control.isUsable(); enabled != std::exchange(enabled_, enabled)) {
        ::EnableWindow(handle_, enabled ? TRUE : FALSE);
    }
    site_->tips->set(handle_, control.ToolTipText);
}

void Native::setCaption(const std::string& caption) {
    if (caption == caption_) return;
    caption_ = caption;
    ::SetWindowTextW(handle_, toWide(caption).c_str());
}

HBRUSH Native::surroundings(HDC context) const {
    if (control() == nullptr) return nullptr;
    const view::Theme& theme = site_->look->theme;
    const unsigned under = view::backgroundUnder(*control());
    ::SetBkColor(context, toSystem(theme.colour(under)));
    ::SetTextColor(context, toSystem(theme.textOn(under)));
    return site_->look->brush(theme.colour(under));
}

void Native::notified(const Message& message) {
    // A failure of the handler is reported where the action runs.
    if (!life_->silent)
        acted(message.number == WM_COMMAND ? HIWORD(message.first) : LOWORD(message.first));
}

void Native::hearMouse(const Message& message) {
    const std::optional<view::MouseInput> input = mouseInput(message, control_);
    if (!input || control() == nullptr) return;
    site_->tips->relay(message);
    if (input->kind == view::MouseInput::Kind::press && takesFocusByMouse()) {
        post<forms::Control>([](forms::Control& pressed) {
            pressed.form().handle([&] {
                if (pressed.isUsable()) pressed.SetFocus();
            });
        });
    }
    site_->mouse(*input);
}

}  // namespace huebrush::word
