#pragma once

#include <com/sun/star/awt/KeyEvent.hpp>
#include <com/sun/star/awt/Point.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <memory>
#include <optional>
#include <rtl/ref.hxx>

#include "forms/MenuChoice.h"
#include "ports/libreoffice/window/MenuPainter.h"
#include "ports/libreoffice/window/NativeWindow.h"

namespace huebrush::libreoffice {

/// The window of an open pop-up menu. It floats over another window and takes no focus from it, so
/// the keys come by way of that. (The office's own pop-up menus leave out disabled items.)
class MenuWindow {
 public:
    using Toolkit = com::sun::star::uno::Reference<com::sun::star::awt::XToolkit>;
    using Peer = com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>;

    /// Opens a menu with its upper left corner at a place of the window below, in its pixels, or
    /// near it where the screen has no room there. `theme` outlives it.
    MenuWindow(const Toolkit& toolkit, const Peer& below, const Theme& theme, const Scale& scale,
               const forms::PopupMenu& menu, const com::sun::star::awt::Point& place);
    MenuWindow(const MenuWindow&) = delete;
    MenuWindow& operator=(const MenuWindow&) = delete;
    ~MenuWindow();

    /// Until the user has picked a line, or closed it without.
    bool isOpen() const { return open_; }
    /// The number of the line that was picked; nothing as long as none is.
    std::optional<std::size_t> picked() const { return picked_; }
    /// Closes it without a pick, and takes the window away. What it floats over may be about to go.
    void end();
    /// A key goes down.
    void press(const com::sun::star::awt::KeyEvent& key);

 private:
    class Listener;

    void place(const Toolkit& toolkit, const Peer& below, com::sun::star::awt::Point at);
    void pointAt(const com::sun::star::awt::Point& at);
    void pressAt(const com::sun::star::awt::Point& at);
    void pickAt(const com::sun::star::awt::Point& at);
    void pickHighlighted();
    void call(const com::sun::star::awt::KeyEvent& key);
    void repaint();
    void paint();

    forms::MenuChoice choice_;
    NativeWindow window_;
    Peer peer_;
    std::unique_ptr<MenuPainter> painter_;
    rtl::Reference<Listener> listener_;
    bool open_ = true;
    std::optional<std::size_t> picked_;
};

}  // namespace huebrush::libreoffice
