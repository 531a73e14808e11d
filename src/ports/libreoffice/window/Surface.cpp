// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/window/Surface.h"

#include <com/sun/star/awt/InvalidateStyle.hpp>
#include <com/sun/star/awt/MouseWheelBehavior.hpp>
#include <com/sun/star/awt/VclWindowPeerAttribute.hpp>
#include <com/sun/star/awt/XMouseListener.hpp>
#include <com/sun/star/awt/XMouseMotionListener.hpp>
#include <com/sun/star/awt/XNumericField.hpp>
#include <com/sun/star/awt/XPaintListener.hpp>
#include <com/sun/star/awt/XSpinField.hpp>
#include <com/sun/star/awt/XVclWindowPeer.hpp>
#include <utility>

#include "forms/Form.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"
#include "ports/libreoffice/window/Input.h"
#include "ports/libreoffice/window/NativeWindow.h"
#include "ports/libreoffice/window/native/Native.h"
#include "view/Scene.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

class Surface::Listener final
    : public WeakImplHelper<css::awt::XPaintListener, css::awt::XMouseListener,
                            css::awt::XMouseMotionListener, css::awt::XSpinListener> {
 public:
    explicit Listener(Surface& surface) : surface_(&surface) {}
    void forget() { surface_ = nullptr; }

    void SAL_CALL windowPaint(const css::awt::PaintEvent&) override {
        if (surface_ != nullptr) ignoringOffice([&] { surface_->owner_->paint(*surface_); });
    }
    void SAL_CALL mousePressed(const css::awt::MouseEvent& event) override {
        hear(view::MouseInput::Kind::press, event);
    }
    void SAL_CALL mouseReleased(const css::awt::MouseEvent& event) override {
        hear(view::MouseInput::Kind::release, event);
    }
    void SAL_CALL mouseDragged(const css::awt::MouseEvent& event) override {
        hear(view::MouseInput::Kind::move, event);
    }
    void SAL_CALL mouseMoved(const css::awt::MouseEvent& event) override {
        hear(view::MouseInput::Kind::move, event);
    }
    /// The first move over a window is reported only as this.
    void SAL_CALL mouseEntered(const css::awt::MouseEvent& event) override {
        hear(view::MouseInput::Kind::move, event);
    }
    void SAL_CALL mouseExited(const css::awt::MouseEvent& event) override {
        hear(view::MouseInput::Kind::leave, event);
    }
    void SAL_CALL up(const css::awt::SpinEvent&) override { turn(-1); }
    void SAL_CALL down(const css::awt::SpinEvent&) override { turn(1); }
    void SAL_CALL first(const css::awt::SpinEvent&) override {}
    void SAL_CALL last(const css::awt::SpinEvent&) override {}
    void SAL_CALL disposing(const css::lang::EventObject&) override {}

 private:
    void hear(view::MouseInput::Kind kind, const css::awt::MouseEvent& event) {
        if (surface_ != nullptr)
            surface_->owner_->mouse(mouseInput(kind, surface_->control_, event));
    }
    void turn(int notches) {
        if (surface_ != nullptr) surface_->owner_->wheel(surface_->control_, notches);
    }

    Surface* surface_;
};

Surface::Surface(std::shared_ptr<const Owner> owner, const Peer& parent,
                 view::ControlReference control)
    : owner_(std::move(owner)), control_(std::move(control)), listener_(new Listener(*this)) {
    Peer container = parent;
    if (control_->control->container() != nullptr &&
        !view::barsAround(*control_->control).empty()) {
        listenToTheWheel(parent);
        container.set(wheelField_, css::uno::UNO_QUERY_THROW);
    }
    window_ = makeNativeWindow(owner_->toolkit, container, "window",
                               css::awt::VclWindowPeerAttribute::CLIPCHILDREN);
    peer_.set(window_, css::uno::UNO_QUERY_THROW);
    window_->addPaintListener(listener_.get());
    window_->addMouseListener(listener_.get());
    window_->addMouseMotionListener(listener_.get());
    peer_->setBackground(owner_->background(*control_->control));
    owner_->made(window_);
}

void Surface::listenToTheWheel(const Peer& parent) {
    constexpr double kFar = 1e9;
    wheelField_ = makeNativeWindow(owner_->toolkit, parent, "numericfield",
                                   css::awt::VclWindowPeerAttribute::NOBORDER);
    const css::uno::Reference<css::awt::XNumericField> number(wheelField_,
                                                              css::uno::UNO_QUERY_THROW);
    number->setMin(-kFar);
    number->setMax(kFar);
    css::uno::Reference<css::awt::XVclWindowPeer>(wheelField_, css::uno::UNO_QUERY_THROW)
        ->setProperty("MouseWheelBehavior",
                      css::uno::makeAny(sal_Int16(css::awt::MouseWheelBehavior::SCROLL_ALWAYS)));
    css::uno::Reference<css::awt::XSpinField>(wheelField_, css::uno::UNO_QUERY_THROW)
        ->addSpinListener(listener_.get());
}

Surface::~Surface() {
    listener_->forget();
    dispose(window_);
    dispose(wheelField_);
}

void Surface::place(const view::Rectangle& place) {
    const bool moved = moveTo(wheelField_.is() ? wheelField_ : window_, bounds_, place);
    if (moved && wheelField_.is()) {
        window_->setPosSize(0, 0, place.width, place.height, css::awt::PosSize::POSSIZE);
    }
    if (visible_) return;
    visible_ = true;
    window_->setVisible(true);
    if (wheelField_.is()) wheelField_->setVisible(true);
}

void Surface::hide() {
    if (!visible_) return;
    visible_ = false;
    (wheelField_.is() ? wheelField_ : window_)->setVisible(false);
}

void Surface::setToolTip(const std::string& text) {
    if (text == toolTip_) return;
    // A tip that is open would stay where it is, with the new text, under gtk3: so it is closed
    // first.
    toolTip_ = toolTip_.empty() ? text : std::string();
    css::uno::Reference<css::awt::XVclWindowPeer>(peer_, css::uno::UNO_QUERY_THROW)
        ->setProperty("HelpText", css::uno::makeAny(toOffice(toolTip_)));
}

std::unique_ptr<view::NativeControl> Surface::makeControl(const forms::Control& control) {
    auto native = Native::make(control, {owner_->toolkit, peer_, owner_->post, owner_->mouse});
    owner_->made(native->window());
    return native;
}

std::unique_ptr<view::NativeSurface> Surface::makeSurface(const view::ControlReference& box) {
    return std::make_unique<Surface>(owner_, peer_, box);
}

void Surface::repaint() {
    peer_->invalidate(css::awt::InvalidateStyle::NOERASE | css::awt::InvalidateStyle::NOCHILDREN);
}

}  // namespace huebrush::libreoffice
