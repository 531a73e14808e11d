// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/tools/AreaDialog.h"

#include <chrono>
#include <com/sun/star/awt/XToolkitExperimental.hpp>
#include <com/sun/star/frame/XController.hpp>
#include <com/sun/star/frame/XDispatchProvider.hpp>
#include <com/sun/star/util/URLTransformer.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <thread>

#include "ports/libreoffice/uno/Errors.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace {

using Clock = std::chrono::steady_clock;
using Model = Reference<css::frame::XModel>;

/// A document that has just been made takes a third of a second until it opens a dialog.
constexpr std::chrono::seconds kOpenLimit(10);
constexpr std::chrono::milliseconds kOpeningPause(10);
/// Short enough for the dialog to follow the mouse, long enough to take no time of the machine.
constexpr std::chrono::milliseconds kOpenPause(15);

/// The dialog over one document. The office has no call that opens it and waits until it closes,
/// and reports neither; but while a dialog is open over a document, its controller does not let
/// itself be suspended.
class AreaDialog {
 public:
    AreaDialog(const ContextReference& context, const Model& model)
        : toolkit_(
              createService<css::awt::XToolkitExperimental>(context, "com.sun.star.awt.Toolkit")),
          model_(model),
          modifiable_(model, UNO_QUERY_THROW),
          controller_(model->getCurrentController(), UNO_QUERY_THROW) {
        url_.Complete = ".uno:FormatArea";
        css::util::URLTransformer::create(context)->parseStrict(url_);
    }

    /// Asked too early, the office silently opens nothing.
    void open() {
        modifiable_->setModified(false);
        const auto dispatch =
            Reference<css::frame::XDispatchProvider>(controller_->getFrame(), UNO_QUERY_THROW)
                ->queryDispatch(url_, "_self", 0);
        const auto end = Clock::now() + kOpenLimit;
        for (;;) {
            if (dispatch.is()) dispatch->dispatch(url_, {});
            if (isOpen()) return;
            if (Clock::now() > end) {
                throw base::Error(HostErrorNumber::kCommandFailed,
                                  "Dialog pro úpravu výplně se neotevřel.");
            }
            runEvents(kOpeningPause);
        }
    }

    void waitForEnd() {
        while (isOpen()) runEvents(kOpenPause);
    }

    /// OK writes the fill whether it was changed or not, and cancelling writes nothing.
    bool wasConfirmed() const { return modifiable_->isModified(); }

 private:
    bool isOpen() const {
        if (!controller_->suspend(true)) return true;
        controller_->suspend(false);
        return false;
    }
    /// The document may be closed in an event.
    void runEvents(std::chrono::milliseconds pause) const {
        toolkit_->processEventsToIdle();
        if (model_->getCurrentController() != controller_) {
            throw base::Error(HostErrorNumber::kNoDocument, "Pomocný dokument byl zavřen.");
        }
        std::this_thread::sleep_for(pause);
    }

    Reference<css::awt::XToolkitExperimental> toolkit_;
    Model model_;
    Reference<css::util::XModifiable> modifiable_;
    Reference<css::frame::XController> controller_;
    css::util::URL url_;
};

}  // namespace

bool runAreaDialog(const ContextReference& context, const Model& model) {
    return officeCalls([&] {
        AreaDialog dialog(context, model);
        dialog.open();
        dialog.waitForEnd();
        return dialog.wasConfirmed();
    });
}

}  // namespace huebrush::libreoffice
