#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/accessibility/XAccessibleAction.hpp>
#include <functional>
#include <memory>
#include <utility>

#include "OfficeContext.h"
#include "TestComponent.h"
#include "forms/FormsContract.h"
#include "ports/libreoffice/Snapshot.h"
#include "ports/libreoffice/runtime/OfficeRuntime.h"
#include "ports/libreoffice/uno/MainThread.h"
#include "ports/libreoffice/window/ControlPeer.h"
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
        const auto* const peer = libreoffice::ControlPeer::of(&control);
        if (peer == nullptr || peer->native == nullptr ||
            dynamic_cast<forms::OptionButton*>(&control) != nullptr) {
            memory::Driver(control.form()).click(control);
            return;
        }
        const css::uno::Reference<css::accessibility::XAccessible> accessible(
            peer->native->window(), css::uno::UNO_QUERY_THROW);
        const css::uno::Reference<css::accessibility::XAccessibleAction> action(
            accessible->getAccessibleContext(), css::uno::UNO_QUERY_THROW);
        action->doAccessibleAction(0);
        settle();
    }
    void closeWindow(forms::Form& form) { memory::Driver(form).close(); }
    void inNextPump(std::function<void()> happening) {
        libreoffice::postToMainThread(officeContext(), std::move(happening));
    }
    /// An office without a screen answers a box at once, as its only button would.
    void answerNextBox(forms::MsgBoxResult) {}

 private:
    std::shared_ptr<libreoffice::Snapshot> snapshot_ = std::make_shared<libreoffice::Snapshot>();
    libreoffice::ActiveWindow window_{officeContext()};
    libreoffice::OfficeRuntime runtime_{officeContext(), testFolder(), window_, snapshot_};
};

}  // namespace
}  // namespace huebrush::tests

namespace huebrush::forms::contract {

INSTANTIATE_TYPED_TEST_SUITE_P(Office, FormsContract, tests::OfficePort);

}  // namespace huebrush::forms::contract
