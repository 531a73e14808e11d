// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/window/native/Native.h"

#include <com/sun/star/awt/XVclWindowPeer.hpp>
#include <com/sun/star/awt/XWindow2.hpp>
#include <com/sun/star/style/VerticalAlignment.hpp>

#include "base/RaisedFlag.h"
#include "forms/Form.h"
#include "ports/libreoffice/window/Input.h"
#include "ports/libreoffice/window/NativeWindow.h"
#include "ports/libreoffice/window/native/Kinds.h"
#include "ports/libreoffice/window/native/Listener.h"
#include "view/NativeKinds.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

Native::Native(NativeSite site, std::string_view service, sal_Int32 attributes)
    : site_(std::move(site)), listener_(new Listener(*this)) {
    window_ = makeNativeWindow(site_.toolkit, site_.parent, service, attributes);
    window_->addMouseListener(listener_.get());
    window_->addMouseMotionListener(listener_.get());
}

Native::~Native() {
    listener_->forget();
    dispose(window_);
}

std::unique_ptr<Native> Native::make(const forms::Control& control, const NativeSite& site) {
    std::unique_ptr<Native> made;
    view::visitNativeKind(control, [&](const auto& kind) { made = makeNative(kind, site); });
    return made;
}

void Native::show(const view::ControlReference& control, const view::Rectangle& place) {
    if (control != control_) {
        control_ = control;
        adopted();
    }
    mirrorCommon(*control->control, place);
    {
        const base::RaisedFlag mirroring(mirroring_);
        mirror(*control->control);
    }
    if (!visible_) window_->setVisible(true);
    visible_ = true;
}

void Native::hide() {
    if (visible_) window_->setVisible(false);
    visible_ = false;
}

bool Native::hasFocus() const {
    const auto window = as<css::awt::XWindow2>();
    return window.is() && window->hasFocus();
}

void Native::mirrorCommon(const forms::Control& control, const view::Rectangle& place) {
    moveTo(window_, place_, insideOf(place));
    if (const bool enabled = control.isUsable(); enabled != enabled_) {
        enabled_ = enabled;
        window_->setEnable(enabled);
    }
    if (control.ToolTipText.get() != toolTip_) {
        toolTip_ = control.ToolTipText;
        setProperty("HelpText", css::uno::makeAny(toOffice(toolTip_)));
    }
    if (control.AccessibleName.get() != accessibleName_) {
        accessibleName_ = control.AccessibleName;
        setProperty("AccessibleName", css::uno::makeAny(toOffice(accessibleName_)));
    }
}

void Native::setProperty(std::string_view name, const css::uno::Any& value) {
    as<css::awt::XVclWindowPeer>()->setProperty(toOffice(name), value);
}

void Native::centreVertically() {
    setProperty("VerticalAlign", css::uno::makeAny(css::style::VerticalAlignment_MIDDLE));
}

void Native::setCaption(const std::string& caption) {
    if (caption == caption_) return;
    caption_ = caption;
    setProperty("Label", css::uno::makeAny(toOffice(caption).replace('&', '~')));
}

void Native::heardMouse(view::MouseInput::Kind kind, const css::awt::MouseEvent& event) {
    if (kind == view::MouseInput::Kind::press && takesFocusByMouse()) {
        post<forms::Control>([](forms::Control& control) {
            control.form().handle([&] {
                if (control.isUsable()) control.SetFocus();
            });
        });
    }
    site_.mouse(mouseInput(kind, control_, event));
}

}  // namespace huebrush::libreoffice
