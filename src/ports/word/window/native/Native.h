// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "ports/word/window/Site.h"
#include "view/Native.h"

namespace huebrush::word {

/// A control of the system that shows a control of ours and passes on what the user does with it.
/// It may show another one later.
class Native : public view::NativeControl {
 public:
    ~Native() override;

    /// A native control of that kind on a window, hidden; nothing where there is none for the kind.
    static std::unique_ptr<Native> make(const forms::Control& control,
                                        std::shared_ptr<const Site> site, HWND parent);
    /// The one behind a window; null for any other window.
    static Native* of(HWND handle);

    void show(const view::ControlReference& control, const view::Rectangle& place) final;
    void hide() final;
    bool hasFocus() const final { return ::GetFocus() == handle_; }
    void takeFocus() final { ::SetFocus(handle_); }
    void collect() override {}

    HWND handle() const { return handle_; }
    /// Whether the wheel over it is its own.
    virtual bool takesWheel() const { return false; }

    /// The system's control reports something to the window that it lies on.
    void notified(const Message& message);
    /// The brush for what the control leaves free, whose colours the context gets; null where the
    /// system's own is right.
    virtual HBRUSH background(HDC) const { return nullptr; }

 protected:
    /// What a window of the system's own classes is to be.
    struct Kind {
        const wchar_t* windowClass;
        DWORD style = 0;
        DWORD extendedStyle = 0;
    };
    Native(std::shared_ptr<const Site> site, HWND parent, const Kind& kind);

    LRESULT send(UINT number, WPARAM first = 0, LPARAM second = 0) const {
        return ::SendMessageW(handle_, number, first, second);
    }
    /// Has the system's control do something that it reports as if the user had.
    template <class Change>
    void silently(const Change& change);
    void setCaption(const std::string& caption);
    const Site& site() const { return *site_; }
    /// The colours of the surface around a control, put into a context.
    HBRUSH surroundings(HDC context) const;

    /// What the user does to the control that is shown now.
    template <class Shown>
    void post(std::function<void(Shown&)> action) const {
        site_->post([control = control_, action = std::move(action)] {
            if (control->control != nullptr) action(dynamic_cast<Shown&>(*control->control));
        });
    }

    /// The control that is shown; nothing once it has ended.
    forms::Control* control() const { return control_ ? control_->control : nullptr; }
    /// The part of a control's place that the native one takes; an edge may be painted around it.
    virtual view::Rectangle insideOf(const view::Rectangle& place) const { return place; }
    /// Another control than before is shown from now on.
    virtual void adopted() {}
    /// Brings what is peculiar to the kind up to date. What the system reports meanwhile is not the
    /// user's.
    virtual void mirror(const forms::Control& control) = 0;
    /// The user has done something that has this code.
    virtual void acted(WORD code) = 0;
    /// Whether a press of the mouse gives the control the focus.
    virtual bool takesFocusByMouse() const { return true; }

 private:
    /// What outlives the object where a message ends it.
    struct Life {
        Native* native = nullptr;
        WNDPROC usual = nullptr;
        Enter enter;
        bool silent = false;
    };

    static LRESULT CALLBACK procedure(HWND window, UINT number, WPARAM first, LPARAM second);
    static LRESULT answer(const std::shared_ptr<Life>& life, const Message& message);
    void hearMouse(const Message& message);
    void mirrorCommon(const forms::Control& control, const view::Rectangle& place);

    std::shared_ptr<const Site> site_;
    std::shared_ptr<Life> life_ = std::make_shared<Life>();
    HWND handle_ = nullptr;
    std::shared_ptr<Look> look_;
    view::ControlReference control_;
    view::Rectangle place_;
    bool visible_ = false;
    bool enabled_ = true;
    std::string caption_;
};

template <class Change>
void Native::silently(const Change& change) {
    const std::shared_ptr<Life> life = life_;
    const bool before = std::exchange(life->silent, true);
    change();
    life->silent = before;
}

}  // namespace huebrush::word
