// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/window/FormWindow.h"

#include <algorithm>
#include <com/sun/star/awt/PosSize.hpp>
#include <com/sun/star/awt/XControlModel.hpp>
#include <com/sun/star/awt/XDevice.hpp>
#include <com/sun/star/awt/XDialog.hpp>
#include <com/sun/star/awt/XTopWindow.hpp>
#include <com/sun/star/awt/XVclWindowPeer.hpp>
#include <com/sun/star/awt/XWindow2.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <utility>

#include "error/mError.h"
#include "ports/libreoffice/app/Pointer.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/MainThread.h"
#include "ports/libreoffice/uno/Repeater.h"
#include "ports/libreoffice/uno/Snapshot.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"
#include "ports/libreoffice/window/KeyListener.h"
#include "ports/libreoffice/window/MenuWindow.h"
#include "ports/libreoffice/window/NativeWindow.h"
#include "view/Painter.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::makeAny;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

/// The screen's own resolution, in steps of a quarter: slightly more than 96 is not larger.
view::Scale scaleOf(const FormWindow::Peer& window) {
    constexpr double kCommon = 96;
    constexpr double kMetresPerInch = 0.0254;
    const Reference<css::awt::XDevice> device(window, UNO_QUERY_THROW);
    const double factor = device->getInfo().PixelPerMeterX * kMetresPerInch / kCommon;
    return view::Scale(kCommon * std::max(1.0, std::round(factor * 4) / 4));
}

}  // namespace

/// Is notified of what happens to the window as a whole.
class FormWindow::Listener final
    : public WeakImplHelper<css::awt::XTopWindowListener, css::awt::XWindowListener,
                            css::awt::XFocusListener> {
 public:
    explicit Listener(FormWindow& window) : window_(&window) {}
    void forget() { window_ = nullptr; }

    void SAL_CALL windowClosing(const css::lang::EventObject&) override {
        if (window_ == nullptr) return;
        closeMenu();
        view().post([window = window_] {
            forms::Form& form = window->view_->form();
            form.handle([&] { form.Unload(); });
        });
    }
    void SAL_CALL windowActivated(const css::lang::EventObject&) override { follow(); }
    void SAL_CALL windowResized(const css::awt::WindowEvent&) override {
        if (window_ == nullptr) return;
        closeMenu();
        view().post([window = window_] { window->resized(); });
    }
    void SAL_CALL focusGained(const css::awt::FocusEvent&) override { follow(); }
    void SAL_CALL focusLost(const css::awt::FocusEvent&) override {}
    void SAL_CALL windowOpened(const css::lang::EventObject&) override {}
    void SAL_CALL windowClosed(const css::lang::EventObject&) override {}
    void SAL_CALL windowMinimized(const css::lang::EventObject&) override {}
    void SAL_CALL windowNormalized(const css::lang::EventObject&) override {}
    void SAL_CALL windowDeactivated(const css::lang::EventObject&) override {}
    void SAL_CALL windowMoved(const css::awt::WindowEvent&) override { closeMenu(); }
    void SAL_CALL windowShown(const css::lang::EventObject&) override {}
    void SAL_CALL windowHidden(const css::lang::EventObject&) override {}
    /// The window below is being destroyed, and everything over it with it: the form ends before
    /// that.
    void SAL_CALL disposing(const css::lang::EventObject& event) override {
        if (window_ == nullptr || event.Source != window_->parent_) return;
        forms::Form& form = view().form();
        form.handle([&] { form.Unload(); });
    }

 private:
    view::FormView& view() const { return *window_->view_; }
    /// The native focus goes where the controls say.
    void follow() {
        if (window_ != nullptr) view().actions().wake();
    }
    void closeMenu() {
        if (window_ != nullptr) view().menu().close();
    }

    FormWindow* window_;
};

FormWindow::FormWindow(const ContextReference& context, forms::Form& form,
                       std::shared_ptr<Snapshot> snapshot)
    : context_(context),
      snapshot_(std::move(snapshot)),
      look_(context),
      view_(std::make_shared<view::FormView>(form, static_cast<view::NativeFrame&>(*this))) {}

FormWindow::~FormWindow() {
    close();
}

// Opening and closing.

void FormWindow::open(const Peer& parent) {
    toolkit_ = createService<css::awt::XToolkit>(context_, "com.sun.star.awt.Toolkit");
    makeDialog(parent);
    look_.theme = themeOf(peer());
    listenToKeys();
    view_->open(scaleOf(peer()));
    flush();
    centreOver(parent);
    window_->setVisible(true);
}

void FormWindow::listenToKeys() {
    keys_ = std::make_unique<KeyListener>(
        Reference<css::awt::XExtendedToolkit>(toolkit_, UNO_QUERY_THROW), view_->keyboard(),
        [this](const KeyListener::Window& window) {
            const Peer inside(window, UNO_QUERY);
            const Reference<css::awt::XVclWindowPeer> outer(peer(), UNO_QUERY);
            if (!inside.is() || !outer.is()) return false;
            return inside == peer() || outer->isChild(inside) != 0;
        });
}

void FormWindow::makeDialog(const Peer& parent) {
    const auto model =
        createService<css::awt::XControlModel>(context_, "com.sun.star.awt.UnoControlDialogModel");
    const Reference<css::beans::XPropertySet> properties(model, UNO_QUERY_THROW);
    for (const char* const name : {"Sizeable", "Closeable", "Moveable"}) {
        properties->setPropertyValue(toOffice(name), makeAny(true));
    }
    properties->setPropertyValue("Title", makeAny(toOffice(view_->form().Caption.get())));
    dialog_ = createService<css::awt::XControl>(context_, "com.sun.star.awt.UnoControlDialog");
    dialog_->setModel(model);
    window_.set(dialog_, UNO_QUERY_THROW);
    window_->setVisible(false);
    dialog_->createPeer(toolkit_, parent);
    parent_.set(parent, UNO_QUERY);
    const css::awt::Rectangle first = window_->getPosSize();
    firstSize_ = {first.Width, first.Height};
    listener_ = new Listener(*this);
    Reference<css::awt::XTopWindow>(dialog_, UNO_QUERY_THROW)
        ->addTopWindowListener(listener_.get());
    window_->addWindowListener(listener_.get());
    if (parent_.is()) {
        parent_->addEventListener(static_cast<css::awt::XTopWindowListener*>(listener_.get()));
    }
}

void FormWindow::centreOver(const Peer& parent) {
    const Reference<css::awt::XWindow> below(parent, UNO_QUERY);
    if (!below.is()) return;
    const css::awt::Rectangle room = below->getPosSize();
    const view::Size& size = view_->size();
    window_->setPosSize(std::max(0, (room.Width - size.width) / 2),
                        std::max(0, (room.Height - size.height) / 2), 0, 0, css::awt::PosSize::POS);
}

void FormWindow::retire() {
    if (!dialog_.is()) return;
    keys_.reset();
    view_->menu().close();
    listener_->forget();
    if (parent_.is()) {
        ignoringOffice([&] {
            parent_->removeEventListener(
                static_cast<css::awt::XTopWindowListener*>(listener_.get()));
        });
    }
    parent_.clear();
    view_->close();
    // A modal dialog that is disposed before it has ended leaves the windows below without clicks.
    if (waiting_) {
        ignoringOffice(
            [this] { Reference<css::awt::XDialog>(dialog_, UNO_QUERY_THROW)->endExecute(); });
    }
    dialog_.clear();
    retired_ = std::exchange(window_, {});
    ignoringOffice([&] { retired_->setVisible(false); });
}

void FormWindow::close() {
    retire();
    dispose(std::exchange(retired_, {}));
}

void FormWindow::waitForEnd() {
    const Reference<css::awt::XDialog> dialog(dialog_, UNO_QUERY_THROW);
    waiting_ = true;
    ignoringOffice([&] { dialog->execute(); });
    waiting_ = false;
}

void FormWindow::toFront() {
    const Reference<css::awt::XTopWindow> top(dialog_, UNO_QUERY);
    if (top.is()) top->toFront();
}

FormWindow::Peer FormWindow::peer() const {
    return dialog_.is() ? dialog_->getPeer() : Peer();
}

std::shared_ptr<void> FormWindow::pauseActions() {
    struct Paused {
        explicit Paused(std::shared_ptr<FormWindow> paused)
            : window(std::move(paused)), pause(window->view_->actions()) {}
        std::shared_ptr<FormWindow> window;
        view::ActionQueue::Pause pause;
    };
    return std::make_shared<Paused>(shared_from_this());
}

void FormWindow::flush() {
    ignoringOffice([this] { view_->flush(); });
}

void FormWindow::resized() {
    const css::awt::Rectangle bounds = window_->getPosSize();
    const view::Size now{bounds.Width, bounds.Height};
    if (now == view_->size() || now == firstSize_) return;
    firstSize_ = {};
    view_->resized(now);
}

void FormWindow::takeTurn() {
    if (view_->runActions()) flush();
}

forms::MenuItem* FormWindow::pickFrom(const forms::PopupMenu& menu, forms::Control& owner, double x,
                                      double y) {
    const auto place = view_->placeInWindow(owner, x, y);
    if (!place) return nullptr;
    const view::ActionQueue::Pause pause(view_->actions());
    forms::MenuItem* picked = nullptr;
    error::ignoring([&] {
        picked = pickFromMenu(context_, view_->menu(), menu, peer(), look_, view_->scale(), *place);
    });
    return picked;
}

void FormWindow::paint(const Surface& surface) {
    forms::Control* const control = surface.control();
    if (control == nullptr) return;
    const view::Size size{surface.bounds().width, surface.bounds().height};
    paintWindow(surface.peer(), size, look_, [&](view::Canvas& canvas) {
        view::Painter(canvas, look_.theme.colours, view_->scale()).paint(*control, size);
    });
}

// What the view asks for.

void FormWindow::setCaption(const std::string& caption) {
    Reference<css::beans::XPropertySet>(dialog_->getModel(), UNO_QUERY_THROW)
        ->setPropertyValue("Title", makeAny(toOffice(caption)));
}

void FormWindow::setSize(const view::Size& size) {
    window_->setPosSize(0, 0, size.width, size.height, css::awt::PosSize::SIZE);
}

void FormWindow::setWaitPointer(bool waits) {
    setPointerInside(context_, peer(), waits);
}

bool FormWindow::isActive() const {
    const Reference<css::awt::XWindow2> window(peer(), UNO_QUERY);
    return window.is() && window->isActive();
}

std::unique_ptr<view::NativeSurface> FormWindow::makeSurface(const view::ControlReference& form) {
    const auto owner = std::make_shared<Surface::Owner>();
    owner->toolkit = toolkit_;
    owner->paint = [this](const Surface& surface) { paint(surface); };
    owner->mouse = [this](const view::MouseInput& input) { view_->mouse(input); };
    owner->wheel = [this](const view::ControlReference& surface, int notches) {
        view_->turnWheel(surface, notches);
    };
    owner->post = [this](std::function<void()> action) { view_->post(std::move(action)); };
    owner->made = [this](const Surface::Window& made) { made->addFocusListener(listener_.get()); };
    owner->background = [this](const forms::Control& control) {
        return look_.theme.colours.colour(view::backgroundOf(control));
    };
    return std::make_unique<Surface>(owner, peer(), form);
}

void FormWindow::askForTurn() {
    postToMainThread(context_, [weak = weak_from_this()] {
        if (const auto window = weak.lock()) window->takeTurn();
    });
}

void FormWindow::runAction(const std::function<void()>& action) {
    const HandlerScope scope(snapshot_);
    action();
}

std::shared_ptr<void> FormWindow::repeat(std::chrono::milliseconds interval,
                                         std::function<void()> work) {
    return std::make_shared<Repeater>(context_, interval, std::move(work));
}

}  // namespace huebrush::libreoffice
