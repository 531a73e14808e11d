#pragma once

#include <com/sun/star/awt/XNumericField.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <functional>
#include <memory>
#include <rtl/ref.hxx>
#include <string>
#include <vector>

#include "ports/libreoffice/window/ControlPeer.h"
#include "ports/libreoffice/window/MouseInput.h"
#include "ports/libreoffice/window/native/Native.h"

namespace huebrush::libreoffice {

/// The native window of a form's inside or of a picture box: its owner draws on it, and native
/// controls lie on it.
class Surface {
 public:
    using Peer = com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>;

    struct Callbacks {
        /// Draws the surface, within the toolkit's own painting.
        std::function<void(Surface&)> paint;
        std::function<void(const MouseInput&)> mouse;
        /// The wheel was turned over the surface: 1 for towards the user, -1 for away.
        std::function<void(Surface&, int)> wheel;
    };

    Surface(const com::sun::star::uno::Reference<com::sun::star::awt::XToolkit>& toolkit,
            const Peer& parent, ControlReference control, Callbacks callbacks);
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;
    ~Surface();

    /// Nothing once it has ended.
    forms::Control* control() const { return control_->control; }
    void place(const com::sun::star::awt::Rectangle& place);
    void hide();
    /// The tool tip that the mouse brings up where it rests on the surface; nothing for none.
    void setToolTip(const std::string& text);
    /// Lets the surface be drawn anew, soon.
    void repaint();

    const Peer& peer() const { return peer_; }
    const com::sun::star::awt::Rectangle& bounds() const { return bounds_; }
    com::sun::star::uno::Reference<com::sun::star::awt::XWindow> window() const { return window_; }

    /// The native controls on the surface that show a control, and those that wait for one.
    std::vector<ControlReference> shown;
    std::vector<std::unique_ptr<Native>> spare;

 private:
    class Listener;
    void listenToTheWheel(const com::sun::star::uno::Reference<com::sun::star::awt::XToolkit>& kit,
                          const Peer& parent);

    ControlReference control_;
    Callbacks callbacks_;
    rtl::Reference<Listener> listener_;
    /// The toolkit tells of the wheel to fields with a number only, so one lies under the surface.
    com::sun::star::uno::Reference<com::sun::star::awt::XWindow> wheelField_;
    com::sun::star::uno::Reference<com::sun::star::awt::XWindow> window_;
    Peer peer_;
    com::sun::star::awt::Rectangle bounds_{0, 0, 0, 0};
    bool visible_ = false;
    std::string toolTip_;
};

}  // namespace huebrush::libreoffice
