#pragma once

#include <com/sun/star/awt/KeyEvent.hpp>
#include <com/sun/star/awt/Point.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>

#include "forms/PopupMenu.h"
#include "ports/libreoffice/uno/Services.h"
#include "ports/libreoffice/window/Geometry.h"
#include "ports/libreoffice/window/Theme.h"

namespace huebrush::libreoffice {

class MenuWindow;

/// The pop-up menu of a form's window, while one is open.
class FormMenu {
 public:
    using Peer = com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>;

    explicit FormMenu(const ContextReference& context) : context_(context) {}
    FormMenu(const FormMenu&) = delete;
    FormMenu& operator=(const FormMenu&) = delete;

    /// Opens a menu at a place of a window, in its pixels, and lets events run until it has closed.
    /// The item that the user has picked, or nothing. Opens none while one is open.
    forms::MenuItem* pick(const forms::PopupMenu& menu, const Peer& below, const Theme& theme,
                          const Scale& scale, const com::sun::star::awt::Point& place);

    bool isOpen() const { return open_ != nullptr; }
    /// Closes it without a pick, and takes its window away at once. Harmless when none is open.
    void close();
    /// A key goes down in the form's window. Whether it was the menu's.
    bool press(const com::sun::star::awt::KeyEvent& key);
    /// A button of the mouse goes down beside the menu, which closes it.
    void pressBeside();

 private:
    class Opened;

    ContextReference context_;
    MenuWindow* open_ = nullptr;
    const forms::PopupMenu* menu_ = nullptr;
    /// The menu that the press of the mouse has closed whose release is still to come: what has
    /// opened it is not to open it again with the same click.
    const forms::PopupMenu* closedByPress_ = nullptr;
};

}  // namespace huebrush::libreoffice
