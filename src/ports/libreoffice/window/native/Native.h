#pragma once

#include <com/sun/star/awt/ActionEvent.hpp>
#include <com/sun/star/awt/AdjustmentEvent.hpp>
#include <com/sun/star/awt/ItemEvent.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <functional>
#include <memory>
#include <rtl/ref.hxx>
#include <string_view>

#include "ports/libreoffice/uno/Services.h"
#include "ports/libreoffice/window/ControlPeer.h"
#include "ports/libreoffice/window/MouseInput.h"

namespace huebrush::libreoffice {

/// Where native controls are made: the window that contains them, and who hears of the user.
struct NativeSite {
    com::sun::star::uno::Reference<com::sun::star::awt::XToolkit> toolkit;
    com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer> parent;
    /// Runs what the user did soon, from the event loop.
    std::function<void(std::function<void()>)> post;
    /// Hears of the mouse in a native control, in pixels of that.
    std::function<void(const MouseInput&)> mouse;
};

/// A control of the office's toolkit that shows a control of ours and hands on what the user does
/// with it. It may show another one later.
class Native {
 public:
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
    virtual ~Native();

    /// Whether controls of this one's kind have native controls at all.
    static bool isFor(const forms::Control& control);
    /// A native control of that kind, hidden.
    static std::unique_ptr<Native> make(const forms::Control& control, const NativeSite& site);

    /// Whether this could show the control.
    virtual bool fits(const forms::Control& control) const = 0;
    /// Shows the control at a place in pixels of the site.
    void show(const ControlReference& control, const com::sun::star::awt::Rectangle& place);
    void hide();

    const com::sun::star::uno::Reference<com::sun::star::awt::XWindow>& window() const {
        return window_;
    }
    const com::sun::star::awt::Rectangle& place() const { return place_; }
    bool hasFocus() const;

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
    /// A deed of the user on the control that is shown now.
    template <class Kind>
    void post(std::function<void(Kind&)> deed) {
        site_.post([control = control_, deed = std::move(deed)] {
            if (control->control != nullptr) deed(dynamic_cast<Kind&>(*control->control));
        });
    }

    /// Brings what is peculiar to the kind up to date.
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
    void heardMouse(const MouseInput& input);
    void mirrorCommon(const forms::Control& control, const com::sun::star::awt::Rectangle& place);

    NativeSite site_;
    com::sun::star::uno::Reference<com::sun::star::awt::XWindow> window_;
    rtl::Reference<Listener> listener_;
    ControlReference control_;
    com::sun::star::awt::Rectangle place_{0, 0, 0, 0};
    bool visible_ = false;
    bool enabled_ = true;
    std::string toolTip_;
    std::string caption_;
};

}  // namespace huebrush::libreoffice
