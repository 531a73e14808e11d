#pragma once

#include <com/sun/star/awt/XControl.hpp>
#include <com/sun/star/awt/XDialog.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <functional>
#include <memory>
#include <rtl/ref.hxx>
#include <vector>

#include "forms/Form.h"
#include "forms/PopupMenu.h"
#include "ports/libreoffice/uno/Services.h"
#include "ports/libreoffice/window/ControlPeer.h"
#include "ports/libreoffice/window/Deeds.h"
#include "ports/libreoffice/window/FormMenu.h"
#include "ports/libreoffice/window/Geometry.h"
#include "ports/libreoffice/window/Pictures.h"
#include "ports/libreoffice/window/Pointing.h"
#include "ports/libreoffice/window/Scene.h"
#include "ports/libreoffice/window/Surface.h"
#include "ports/libreoffice/window/Theme.h"

namespace huebrush::libreoffice {

class Keyboard;
class Snapshot;

/// The window of one form. The controls are the truth; the window follows them: when control
/// returns to the event loop it looks once at what has changed, whatever the number of changes.
/// What the user does comes back as calls on the controls, one deed after the other, always out of
/// the event loop.
class FormWindow : public std::enable_shared_from_this<FormWindow> {
 public:
    using Peer = com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>;

    FormWindow(const ContextReference& context, forms::Form& form,
               std::shared_ptr<Snapshot> snapshot);
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;
    ~FormWindow();

    /// Shows the form over a window.
    void open(const Peer& parent);
    /// Waits, with events running, until the form has left the screen. The window is there until
    /// then: whoever closes it meanwhile has it retire.
    void waitForEnd();
    bool isWaiting() const { return waiting_; }
    /// Hides the window, detached from its form: neither notices the other any more. Harmless when
    /// there is none.
    void retire();
    /// Takes the window away. Harmless when there is none.
    void close();
    void toFront();

    /// Whether this is the form's window.
    bool shows(const forms::Form& form) const { return form_ == &form; }
    /// Nothing when the window is closed.
    Peer peer() const;

    /// Runs what the user did soon, from the event loop, unless the window is closed by then.
    void post(std::function<void()> deed);
    /// While what it returns lives, what is posted waits. It keeps the window alive.
    std::shared_ptr<void> pauseDeeds();
    /// Does now what has been posted, and brings the window up to date.
    void takeTurn();
    /// A property of a control has changed.
    void touch(forms::PropertyId id);
    /// Brings the window up to date at once.
    void flush();

    /// Opens a menu at a place of a control, in its twips, and waits until it has closed. The item
    /// that the user has picked, or nothing.
    forms::MenuItem* pickFrom(const forms::PopupMenu& menu, forms::Control& owner, double x,
                              double y);

    forms::Form& form() const { return *form_; }
    Pointing& pointing() { return pointing_; }
    FormMenu& menu() { return menu_; }
    const Scale& scale() const { return scale_; }
    /// All of its surfaces, the form's own first.
    std::vector<const Surface*> surfaces() const;
    /// The window of a surface; nothing when there is none.
    Surface* windowOf(const forms::Control& surface) const;
    bool isActive() const;
    /// Whether the keys that a native window gets are the form's: it is this one or lies in it.
    bool takesKeysOf(
        const com::sun::star::uno::Reference<com::sun::star::uno::XInterface>& window) const;

 private:
    class Listener;

    void makeDialog(const Peer& parent);
    void centreOver(const Peer& parent);
    void addPeers(forms::Control& control);
    void removePeers(forms::Control& control);
    std::unique_ptr<Surface> makeSurface(forms::Control& control, const Peer& parent);

    void mirrorForm();
    void mirrorSurface(Surface& surface);
    void mirrorControl(Surface& surface, const Placed& placed);
    void showNative(Surface& surface, ControlPeer& peer, const Box& place);
    void retireNatives(Surface& surface);
    void followFocus();
    bool hasNativeFocus() const;
    void mirrorPointer();

    void resized();
    void paint(Surface& surface);

    forms::Form* form_;
    ContextReference context_;
    Pictures pictures_;
    Theme theme_;
    Scale scale_;
    Pointing pointing_;
    FormMenu menu_;
    Deeds deeds_;

    com::sun::star::uno::Reference<com::sun::star::awt::XToolkit> toolkit_;
    com::sun::star::uno::Reference<com::sun::star::awt::XControl> dialog_;
    com::sun::star::uno::Reference<com::sun::star::awt::XWindow> window_;
    com::sun::star::uno::Reference<com::sun::star::awt::XWindow> retired_;
    /// The window below.
    com::sun::star::uno::Reference<com::sun::star::lang::XComponent> parent_;
    rtl::Reference<Listener> listener_;
    std::unique_ptr<Keyboard> keyboard_;
    std::unique_ptr<Surface> root_;
    std::vector<std::unique_ptr<Surface>> boxes_;

    bool waiting_ = false;
    bool childrenChanged_ = true;
    bool changed_ = true;
    unsigned pass_ = 0;
    com::sun::star::awt::Size size_{0, 0};
    /// The size that the window was made with. Under load the screen tells of it once more after
    /// the window has got its own, which it tells of again then; that is no deed of the user.
    com::sun::star::awt::Size firstSize_{0, 0};
    std::string caption_;
    /// The control that the native focus was given to last.
    ControlReference followed_;
    forms::MousePointerShape pointer_ = forms::MousePointerShape::standard;
};

}  // namespace huebrush::libreoffice
