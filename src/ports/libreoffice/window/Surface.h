// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <functional>
#include <memory>
#include <rtl/ref.hxx>
#include <string>

#include "ports/libreoffice/uno/Services.h"
#include "view/MouseInput.h"
#include "view/Native.h"

namespace huebrush::libreoffice {

/// The office's window for the inside of a form or of a picture box.
class Surface final : public view::NativeSurface {
 public:
    using Peer = com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>;
    using Window = com::sun::star::uno::Reference<com::sun::star::awt::XWindow>;

    /// What all surfaces of a form's window share.
    struct Owner {
        com::sun::star::uno::Reference<com::sun::star::awt::XToolkit> toolkit;
        /// Draws the surface, within the toolkit's own painting.
        std::function<void(Surface&)> paint;
        std::function<void(const view::MouseInput&)> mouse;
        /// The wheel was turned over a surface: 1 for towards the user, -1 for away.
        std::function<void(const view::ControlReference&, int)> wheel;
        /// Runs what the user did soon, from the event loop.
        std::function<void(std::function<void()>)> post;
        /// A new window was made inside the form's: a surface or a native control.
        std::function<void(const Window&)> made;
        /// The colour of what native controls leave free, as 0xRRGGBB.
        std::function<sal_Int32(const forms::Control&)> background;
    };

    Surface(std::shared_ptr<const Owner> owner, const Peer& parent, view::ControlReference control);
    ~Surface() override;

    void place(const view::Rectangle& place) override;
    void hide() override;
    void repaint() override;
    void setToolTip(const std::string& text) override;
    std::unique_ptr<view::NativeControl> makeControl(const forms::Control& control) override;
    std::unique_ptr<view::NativeSurface> makeSurface(const view::ControlReference& box) override;

    /// Null once it has ended.
    forms::Control* control() const { return control_->control; }
    const Peer& peer() const { return peer_; }
    const view::Rectangle& bounds() const { return bounds_; }

 private:
    class Listener;
    void listenToTheWheel(const Peer& parent);

    std::shared_ptr<const Owner> owner_;
    view::ControlReference control_;
    rtl::Reference<Listener> listener_;
    /// The toolkit reports the wheel to fields with a number only, so one lies under a surface that
    /// the wheel may scroll. Readers for the blind do not find what is inside of it.
    Window wheelField_;
    Window window_;
    Peer peer_;
    view::Rectangle bounds_;
    bool visible_ = false;
    std::string toolTip_;
};

}  // namespace huebrush::libreoffice
