// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/app/ActiveWindow.h"

#include <algorithm>
#include <com/sun/star/awt/XWindow2.hpp>
#include <com/sun/star/frame/XController.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <cppuhelper/weakref.hxx>
#include <mutex>
#include <utility>
#include <vector>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

bool isTextDocument(const css::uno::Reference<css::uno::XInterface>& component) {
    const css::uno::Reference<css::lang::XServiceInfo> info(component, css::uno::UNO_QUERY);
    return info.is() && info->supportsService("com.sun.star.text.TextDocument");
}

bool isShown(const ActiveWindow::Frame& frame) {
    const css::uno::Reference<css::awt::XWindow2> window(frame->getContainerWindow(),
                                                         css::uno::UNO_QUERY);
    return window.is() && window->isVisible();
}

ActiveWindow::Model modelIn(const ActiveWindow::Frame& frame) {
    const css::uno::Reference<css::frame::XController> controller = frame->getController();
    return controller.is() ? controller->getModel() : ActiveWindow::Model();
}

/// Whether the frame is still open, shown to the user, and holds a text document.
bool canBeActive(const ActiveWindow::Frame& frame) {
    bool can = false;
    ignoringOffice([&] { can = isShown(frame) && isTextDocument(modelIn(frame)); });
    return can;
}

}  // namespace

/// The frames of text documents, the last one worked in first. The office reports windows on
/// whatever thread opens them; the office is never called while the list is locked.
class ActiveWindow::History {
 public:
    void moveToFront(const Frame& frame) {
        if (!frame.is()) return;
        const std::lock_guard lock(mutex_);
        erase(frame);
        frames_.insert(frames_.begin(), WeakFrame(frame));
    }

    void remove(const Frame& frame) {
        const std::lock_guard lock(mutex_);
        erase(frame);
    }

    Frame front() const {
        for (const WeakFrame& known : copy()) {
            const Frame frame(known);
            if (frame.is() && canBeActive(frame)) return frame;
        }
        return {};
    }

 private:
    using WeakFrame = css::uno::WeakReference<css::frame::XFrame>;

    std::vector<WeakFrame> copy() const {
        const std::lock_guard lock(mutex_);
        return frames_;
    }
    void erase(const Frame& frame) {
        std::erase_if(frames_, [&](const WeakFrame& known) {
            const Frame other(known);
            return !other.is() || other == frame;
        });
    }

    mutable std::mutex mutex_;
    std::vector<WeakFrame> frames_;
};

/// Is notified of every window of the office that opens, gets the focus or closes.
class ActiveWindow::Listener : public WeakImplHelper<css::document::XDocumentEventListener> {
 public:
    explicit Listener(std::weak_ptr<History> history) : history_(std::move(history)) {}

    void SAL_CALL documentEventOccured(const css::document::DocumentEvent& event) override {
        const std::shared_ptr<History> history = history_.lock();
        if (history == nullptr || !event.ViewController.is()) return;
        ignoringOffice([&] { note(*history, event); });
    }
    void SAL_CALL disposing(const css::lang::EventObject&) override {}

 private:
    static void note(History& history, const css::document::DocumentEvent& event) {
        const Frame frame = event.ViewController->getFrame();
        if (event.EventName == "OnFocus" || event.EventName == "OnViewCreated") {
            if (isTextDocument(event.Source)) history.moveToFront(frame);
        } else if (event.EventName == "OnViewClosed") {
            history.remove(frame);
        }
    }

    std::weak_ptr<History> history_;
};

ActiveWindow::ActiveWindow(const ContextReference& context)
    : history_(std::make_shared<History>()),
      events_(singleton<css::document::XDocumentEventBroadcaster>(
          context, "com.sun.star.frame.theGlobalEventBroadcaster")),
      listener_(new Listener(history_)) {
    events_->addDocumentEventListener(listener_);
}

ActiveWindow::~ActiveWindow() {
    ignoringOffice([&] { events_->removeDocumentEventListener(listener_); });
}

ActiveWindow::Frame ActiveWindow::frame() const {
    return history_->front();
}

ActiveWindow::Model ActiveWindow::model() const {
    const Frame active = frame();
    if (!active.is()) {
        throw base::Error(HostErrorNumber::kNoDocument, "Není otevřen žádný textový dokument.");
    }
    return modelIn(active);
}

void ActiveWindow::activate(const Frame& frame) {
    ignoringOffice([&] {
        if (isTextDocument(modelIn(frame))) history_->moveToFront(frame);
    });
}

}  // namespace huebrush::libreoffice
