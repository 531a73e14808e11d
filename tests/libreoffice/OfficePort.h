// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <chrono>
#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/accessibility/XAccessibleAction.hpp>
#include <com/sun/star/accessibility/XAccessibleComponent.hpp>
#include <com/sun/star/accessibility/XAccessibleEditableText.hpp>
#include <com/sun/star/accessibility/XAccessibleSelection.hpp>
#include <com/sun/star/awt/WindowAttribute.hpp>
#include <com/sun/star/awt/WindowDescriptor.hpp>
#include <com/sun/star/awt/XExtendedToolkit.hpp>
#include <com/sun/star/awt/XKeyHandler.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XWindow2.hpp>
#include <cstdlib>
#include <functional>
#include <memory>
#include <utility>

#include "KeyboardUser.h"
#include "OfficeContext.h"
#include "TestComponent.h"
#include "base/Text.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "ports/libreoffice/runtime/OfficeRuntime.h"
#include "ports/libreoffice/uno/MainThread.h"
#include "ports/libreoffice/uno/Snapshot.h"
#include "ports/libreoffice/uno/Text.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"
#include "ports/libreoffice/window/FormWindow.h"
#include "ports/libreoffice/window/native/Native.h"
#include "ports/memory/Driver.h"

namespace huebrush::tests {

namespace css = com::sun::star;

/// The office as the forms run in it, with their windows. The user's clicks on buttons and boxes go
/// through the native controls; the toolkit takes none on options from here, and images have none.
class OfficePort {
 public:
    OfficePort() { runtime_.setEventsMayRun(true); }

    forms::Runtime& runtime() { return runtime_; }
    void settle() { libreoffice::EventPump(officeContext(), snapshot_).runNow(); }
    void click(forms::Control& control) {
        settle();
        const auto* const peer = view::ControlPeer::of(&control);
        if (peer == nullptr || peer->native == nullptr ||
            dynamic_cast<forms::OptionButton*>(&control) != nullptr) {
            memory::Driver(control.form()).click(control);
            return;
        }
        accessible<css::accessibility::XAccessibleAction>(control)->doAccessibleAction(0);
        settle();
    }
    void type(forms::TextBox& box, const std::string& text) {
        box.form().handle([&] { box.SetFocus(); });
        settle();
        const auto field = accessible<css::accessibility::XAccessibleEditableText>(box);
        field->insertText(libreoffice::toOffice(text), field->getCharacterCount());
        settle();
    }
    void pick(forms::ListBox& list, std::int16_t line) {
        settle();
        const css::uno::Reference<css::accessibility::XAccessible> lines =
            accessible<css::accessibility::XAccessibleContext>(list)->getAccessibleChild(0);
        css::uno::Reference<css::accessibility::XAccessibleSelection>(lines->getAccessibleContext(),
                                                                      css::uno::UNO_QUERY_THROW)
            ->selectAccessibleChild(line);
        settle();
    }
    void deactivate(forms::Form& form) {
        other_ = openOtherWindow();
        other_->setFocus();
        waitUntilActive(windowOf(form), false);
    }
    void activate(forms::Form& form) {
        css::uno::Reference<css::lang::XComponent>(other_, css::uno::UNO_QUERY_THROW)->dispose();
        css::uno::Reference<css::awt::XWindow>(windowOf(form), css::uno::UNO_QUERY_THROW)
            ->setFocus();
        waitUntilActive(windowOf(form), true);
    }
    void closeWindow(forms::Form& form) { memory::Driver(form).close(); }
    void inNextPump(std::function<void()> happening) {
        libreoffice::postToMainThread(officeContext(), std::move(happening));
    }
    /// An office without a screen answers a box at once, as if its only button were pressed.
    void answerNextBox(forms::MsgBoxResult) {}

 protected:
    using Peer = css::uno::Reference<css::awt::XWindowPeer>;

    /// The native control of a control, as a reader for the blind acts on it.
    template <class Interface>
    static css::uno::Reference<Interface> accessible(const forms::Control& control) {
        const auto& native =
            dynamic_cast<libreoffice::Native&>(*view::ControlPeer::of(&control)->native);
        const css::uno::Reference<css::accessibility::XAccessible> window(
            native.window(), css::uno::UNO_QUERY_THROW);
        return {window->getAccessibleContext(), css::uno::UNO_QUERY_THROW};
    }
    /// The window of the form that was shown last.
    Peer shown() { return runtime_.windows().owner(); }

    /// Lets events run until a window is the active one, or is not.
    void waitUntilActive(const Peer& peer, bool active) {
        const css::uno::Reference<css::awt::XWindow2> window(peer, css::uno::UNO_QUERY_THROW);
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (window->isActive() != active) {
            ASSERT_LT(std::chrono::steady_clock::now(), end);
            settle();
        }
        settle();
    }

    Peer windowOf(const forms::Form& form) { return runtime_.windows().windowOf(form)->peer(); }

 private:
    static css::uno::Reference<css::awt::XWindow> openOtherWindow() {
        css::awt::WindowDescriptor descriptor;
        descriptor.Type = css::awt::WindowClass_TOP;
        descriptor.WindowServiceName = "window";
        descriptor.ParentIndex = -1;
        descriptor.Bounds = {0, 0, 200, 100};
        descriptor.WindowAttributes = css::awt::WindowAttribute::SHOW |
                                      css::awt::WindowAttribute::MOVEABLE |
                                      css::awt::WindowAttribute::BORDER;
        return {libreoffice::createService<css::awt::XToolkit>(officeContext(),
                                                               "com.sun.star.awt.Toolkit")
                    ->createWindow(descriptor),
                css::uno::UNO_QUERY_THROW};
    }

    css::uno::Reference<css::awt::XWindow> other_;
    std::shared_ptr<libreoffice::Snapshot> snapshot_ = std::make_shared<libreoffice::Snapshot>();
    libreoffice::ActiveWindow window_{officeContext()};
    libreoffice::OfficeRuntime runtime_{officeContext(), testFolder(), window_, snapshot_};
};

/// Counts the keys that go up in the office's windows, for as long as it lives.
class ReleasedKeys {
 public:
    ReleasedKeys() { toolkit_->addKeyHandler(handler_.get()); }
    ReleasedKeys(const ReleasedKeys&) = delete;
    ReleasedKeys& operator=(const ReleasedKeys&) = delete;
    ~ReleasedKeys() { toolkit_->removeKeyHandler(handler_.get()); }

    int count() const { return handler_->count; }

 private:
    class Handler final : public libreoffice::WeakImplHelper<css::awt::XKeyHandler> {
     public:
        sal_Bool SAL_CALL keyPressed(const css::awt::KeyEvent&) override { return false; }
        sal_Bool SAL_CALL keyReleased(const css::awt::KeyEvent&) override {
            ++count;
            return false;
        }
        void SAL_CALL disposing(const css::lang::EventObject&) override {}
        int count = 0;
    };

    css::uno::Reference<css::awt::XExtendedToolkit> toolkit_ =
        libreoffice::createService<css::awt::XExtendedToolkit>(officeContext(),
                                                               "com.sun.star.awt.Toolkit");
    rtl::Reference<Handler> handler_ = new Handler;
};

/// The same on a screen, with a user at the keyboard.
class OnScreenPort : public OfficePort {
 public:
    /// The user types the item's first letter when the menu is open, or Escape.
    void pickInNextMenu(const std::string& caption) {
        waitUntilActive(shown(), true);
        const std::string key = caption.empty()
                                    ? "Escape"
                                    : std::string(1, static_cast<char>(std::tolower(caption[0])));
        inNextPump([command = "xdotool key " + key] { run(command); });
    }
    /// The contract's boxes have this title. The user presses the default button.
    void answerNextBox(forms::MsgBoxResult) {
        atTheBox_ = std::make_unique<User>("title", kNoAction, kReturnKey);
    }
    /// A modal form's window lets events run when it is there.
    void whileModal(std::function<void()> happening) { inNextPump(std::move(happening)); }
    void waitForTheKeyboardIn(const forms::Form& form) { waitUntilActive(windowOf(form), true); }
    /// Moves the mouse to a place beside the upper left corner of a native control, in pixels.
    void pointAt(const forms::Control& control, std::int32_t x, std::int32_t y) {
        waitUntilActive(windowOf(control.form()), true);
        const css::awt::Point corner =
            accessible<css::accessibility::XAccessibleComponent>(control)->getLocationOnScreen();
        run(base::text("xdotool mousemove ", corner.X + x, " ", corner.Y + y));
    }
    /// Lets events run until something holds.
    template <class Condition>
    void waitUntil(const Condition& holds, const char* what) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!holds()) {
            ASSERT_LT(std::chrono::steady_clock::now(), end) << what;
            settle();
        }
    }
    /// The user does something again and again, with pauses, until something holds.
    template <class Condition>
    void repeatUntil(const std::string& command, const Condition& holds) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!holds()) {
            const auto now = std::chrono::steady_clock::now();
            ASSERT_LT(now, end) << command;
            run(command);
            while (!holds() &&
                   std::chrono::steady_clock::now() < now + std::chrono::milliseconds(500)) {
                settle();
            }
        }
    }
    static void run(const std::string& command) {
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
    }
    /// The office has had the key when its release has been reported, or it has ended the form.
    void key(forms::Form& form, const std::string& name) {
        waitUntilActive(windowOf(form), true);
        const std::string command = "xdotool key " + name;
        const ReleasedKeys released;
        run(command);
        waitUntil([&] { return released.count() > 0 || form.isUnloaded(); }, command.c_str());
        settle();
    }

 private:
    std::unique_ptr<User> atTheBox_;
};

}  // namespace huebrush::tests
