// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/ActionEvent.hpp>
#include <com/sun/star/awt/AdjustmentEvent.hpp>
#include <com/sun/star/awt/ItemEvent.hpp>
#include <com/sun/star/awt/MouseEvent.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <functional>
#include <memory>
#include <rtl/ref.hxx>
#include <string_view>

#include "ports/libreoffice/uno/Services.h"
#include "view/MouseInput.h"
#include "view/Native.h"

namespace huebrush::libreoffice {

/// Where native controls are made: the window that contains them, and who is notified of what the
/// user does.
struct NativeSite {
    com::sun::star::uno::Reference<com::sun::star::awt::XToolkit> toolkit;
    com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer> parent;
    /// Runs what the user did soon, from the event loop.
    std::function<void(std::function<void()>)> post;
    /// Is notified of what the mouse does in a native control.
    std::function<void(const view::MouseInput&)> mouse;
};

/// A control of the office's toolkit that shows a control of ours and passes on what the user does
/// with it. It may show another one later.
class Native : public view::NativeControl {
 public:
    ~Native() override;

    /// A native control of that kind, hidden; nothing where there is none for the kind.
    static std::unique_ptr<Native> make(const forms::Control& control, const NativeSite& site);

    void show(const view::ControlReference& control, const view::Rectangle& place) final;
    void hide() final;
    bool hasFocus() const final;
    void takeFocus() final { window_->setFocus(); }
    void collect() override {}

    const com::sun::star::uno::Reference<com::sun::star::awt::XWindow>& window() const {
        return window_;
    }

 protected:
    Native(NativeSite site, std::string_view service, sal_Int32 attributes = 0);

    template <class Interface>
    com::sun::star::uno::Reference<Interface> as() const {
        return {window_, com::sun::star::uno::UNO_QUERY};
    }
    void setProperty(std::string_view name, const com::sun::star::uno::Any& value);
    void centreVertically();
    /// The text with the office's mark of the access key.
    void setCaption(const std::string& caption);
    /// What the user does to the control that is shown now.
    template <class Kind>
    void post(std::function<void(Kind&)> action) {
        site_.post([control = control_, action = std::move(action)] {
            if (control->control != nullptr) action(dynamic_cast<Kind&>(*control->control));
        });
    }

    /// The control that is shown; nothing once it has ended.
    forms::Control* control() const { return control_->control; }
    /// The part of a control's place that the native one takes; an edge may be painted around it.
    virtual view::Rectangle insideOf(const view::Rectangle& place) const { return place; }
    /// Another control than before is shown from now on.
    virtual void adopted() {}
    /// Brings what is peculiar to the kind up to date. What the toolkit reports meanwhile is not
    /// the user's.
    virtual void mirror(const forms::Control& control) = 0;
    virtual void acted(const com::sun::star::awt::ActionEvent&) {}
    virtual void chosen(const com::sun::star::awt::ItemEvent&) {}
    virtual void adjusted(const com::sun::star::awt::AdjustmentEvent&) {}
    virtual void typed() {}
    /// Whether a press of the mouse gives the control the focus.
    virtual bool takesFocusByMouse() const { return true; }

    class Listener;
    Listener* listener() const { return listener_.get(); }

 private:
    void heardMouse(view::MouseInput::Kind kind, const com::sun::star::awt::MouseEvent& event);
    void mirrorCommon(const forms::Control& control, const view::Rectangle& place);

    NativeSite site_;
    com::sun::star::uno::Reference<com::sun::star::awt::XWindow> window_;
    rtl::Reference<Listener> listener_;
    view::ControlReference control_;
    view::Rectangle place_;
    bool visible_ = false;
    bool mirroring_ = false;
    bool enabled_ = true;
    std::string toolTip_;
    std::string accessibleName_;
    std::string caption_;
};

}  // namespace huebrush::libreoffice
