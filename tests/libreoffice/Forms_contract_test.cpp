#include <com/sun/star/accessibility/AccessibleRole.hpp>
#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/accessibility/XAccessibleAction.hpp>
#include <com/sun/star/awt/XExtendedToolkit.hpp>
#include <memory>
#include <string>
#include <utility>

#include "OfficeContext.h"
#include "TestComponent.h"
#include "forms/FormsContract.h"
#include "ports/libreoffice/Snapshot.h"
#include "ports/libreoffice/runtime/OfficeRuntime.h"
#include "ports/libreoffice/uno/MainThread.h"
#include "ports/memory/Driver.h"

namespace huebrush::tests {
namespace {

namespace css = com::sun::star;
using AccessibleReference = css::uno::Reference<css::accessibility::XAccessible>;

/// Presses the first push button below an accessible object. Whether there was one.
bool pressFirstButton(const AccessibleReference& accessible) {
    if (!accessible.is()) return false;
    const auto context = accessible->getAccessibleContext();
    if (context->getAccessibleRole() == css::accessibility::AccessibleRole::PUSH_BUTTON) {
        const css::uno::Reference<css::accessibility::XAccessibleAction> action(
            context, css::uno::UNO_QUERY_THROW);
        action->doAccessibleAction(0);
        return true;
    }
    for (sal_Int32 i = 0; i < context->getAccessibleChildCount(); ++i) {
        if (pressFirstButton(context->getAccessibleChild(i))) return true;
    }
    return false;
}

/// The office as the forms run in it. It has no windows for them yet, so the user acts on the
/// controls; boxes, events, settings and the clipboard are the office's.
class OfficePort {
 public:
    OfficePort() { runtime_.setEventsMayRun(true); }

    forms::Runtime& runtime() { return runtime_; }
    void settle() {}
    void click(forms::Control& control) { memory::Driver(control.form()).click(control); }
    void closeWindow(forms::Form& form) { memory::Driver(form).close(); }
    void inNextPump(std::function<void()> happening) {
        libreoffice::postToMainThread(officeContext(), std::move(happening));
    }
    /// Boxes here have one button.
    void answerNextBox(forms::MsgBoxResult) { pressButtonOfNextBox(); }

 private:
    /// Asks again as long as there is no box, out of the event loop that the box runs.
    static void pressButtonOfNextBox() {
        libreoffice::postToMainThread(officeContext(), [] {
            const auto toolkit = libreoffice::createService<css::awt::XExtendedToolkit>(
                officeContext(), "com.sun.star.awt.Toolkit");
            for (sal_Int32 i = 0; i < toolkit->getTopWindowCount(); ++i) {
                const AccessibleReference window(toolkit->getTopWindow(i), css::uno::UNO_QUERY);
                if (pressFirstButton(window)) return;
            }
            pressButtonOfNextBox();
        });
    }

    std::shared_ptr<libreoffice::Snapshot> snapshot_ = std::make_shared<libreoffice::Snapshot>();
    libreoffice::ActiveWindow window_{officeContext()};
    libreoffice::OfficeRuntime runtime_{officeContext(), testFolder(), window_, snapshot_};
};

}  // namespace
}  // namespace huebrush::tests

namespace huebrush::forms::contract {

INSTANTIATE_TYPED_TEST_SUITE_P(Office, FormsContract, tests::OfficePort);

}  // namespace huebrush::forms::contract
