#pragma once

#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <memory>
#include <optional>
#include <rtl/ref.hxx>

#include "ports/libreoffice/window/NativeWindow.h"
#include "ports/libreoffice/window/OfficeCanvas.h"
#include "view/Menu.h"
#include "view/MenuPainter.h"
#include "view/MenuPick.h"

namespace huebrush::libreoffice {

/// The window of an open pop-up menu. It floats over another window and takes no focus from it, so
/// the keys come by way of that. (The office's own pop-up menus leave out disabled items.)
class MenuWindow final : public view::NativeMenu {
 public:
    using Toolkit = com::sun::star::uno::Reference<com::sun::star::awt::XToolkit>;
    using Peer = com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>;

    /// Opens a menu with its upper left corner at a place of the window below, in its pixels, or
    /// near it where the screen has no room there. `look` outlives it.
    MenuWindow(const Toolkit& toolkit, const Peer& below, Look& look, const view::Scale& scale,
               const forms::PopupMenu& menu, const view::Point& place);
    ~MenuWindow() override;

    /// Until the user has picked a line, or closed it without.
    bool isOpen() const { return pick_.isOpen(); }
    /// The number of the line that was picked; nothing as long as none is.
    std::optional<std::size_t> picked() const { return pick_.picked(); }
    /// What it floats over may be about to go.
    void end() override;
    void press(const view::Key& key) override;

 private:
    class Listener;

    view::MenuLayout measured(const view::Scale& scale);
    void place(const Toolkit& toolkit, const Peer& below, view::Point at);
    void pointAt(const view::Point& at);
    void pressAt(const view::Point& at);
    void releaseAt(const view::Point& at);
    void repaint();
    void paint();

    view::MenuPick pick_;
    NativeWindow window_;
    Peer peer_;
    Look& look_;
    view::MenuLayout layout_;
    rtl::Reference<Listener> listener_;
};

}  // namespace huebrush::libreoffice
