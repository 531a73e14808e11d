// SPDX-License-Identifier: MPL-2.0

#include <cctype>
#include <chrono>
#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/accessibility/XAccessibleAction.hpp>
#include <com/sun/star/awt/WindowAttribute.hpp>
#include <com/sun/star/awt/WindowDescriptor.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XWindow2.hpp>
#include <cstdlib>
#include <functional>
#include <memory>
#include <utility>

#include "OfficeContext.h"
#include "TestComponent.h"
#include "forms/FormsContract.h"
#include "forms/MenuContract.h"
#include "ports/libreoffice/runtime/OfficeRuntime.h"
#include "ports/libreoffice/uno/MainThread.h"
#include "ports/libreoffice/uno/Snapshot.h"
#include "ports/libreoffice/window/FormWindow.h"
#include "ports/libreoffice/window/native/Native.h"
#include "ports/memory/Driver.h"

namespace huebrush::tests {
namespace {

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
        const css::uno::Reference<css::accessibility::XAccessible> accessible(
            dynamic_cast<libreoffice::Native&>(*peer->native).window(), css::uno::UNO_QUERY_THROW);
        const css::uno::Reference<css::accessibility::XAccessibleAction> action(
            accessible->getAccessibleContext(), css::uno::UNO_QUERY_THROW);
        action->doAccessibleAction(0);
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

 private:
    Peer windowOf(const forms::Form& form) { return runtime_.windows().windowOf(form)->peer(); }
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

/// The same on a screen, with a user at the keyboard.
class OnScreenPort : public OfficePort {
 public:
    /// The user types the item's first letter when the menu is open, or Escape.
    void pickInNextMenu(const std::string& caption) {
        waitUntilActive(shown(), true);
        const std::string key = caption.empty()
                                    ? "Escape"
                                    : std::string(1, static_cast<char>(std::tolower(caption[0])));
        inNextPump([command = "xdotool key " + key] {
            EXPECT_EQ(std::system(command.c_str()), 0) << command;
        });
    }
};

}  // namespace
}  // namespace huebrush::tests

namespace huebrush::forms::contract {

INSTANTIATE_TYPED_TEST_SUITE_P(Office, FormsContract, tests::OfficePort);
INSTANTIATE_TYPED_TEST_SUITE_P(OnScreen, MenuContract, tests::OnScreenPort);

}  // namespace huebrush::forms::contract
