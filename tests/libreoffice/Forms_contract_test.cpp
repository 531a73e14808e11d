#include <functional>
#include <memory>
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

/// The office as the forms run in it. It has no windows for them, so the user acts on the controls;
/// boxes, events, settings and the clipboard are the port's.
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
