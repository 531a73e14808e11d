// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/awt/XControl.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <functional>
#include <memory>
#include <rtl/ref.hxx>

#include "forms/Form.h"
#include "forms/PopupMenu.h"
#include "ports/libreoffice/uno/Services.h"
#include "ports/libreoffice/window/OfficeCanvas.h"
#include "ports/libreoffice/window/Surface.h"
#include "view/FormView.h"

namespace huebrush::libreoffice {

class KeyListener;
class Snapshot;

/// The office's window around a form: it shows the form's view.
class FormWindow : public std::enable_shared_from_this<FormWindow>, private view::NativeFrame {
 public:
    using Peer = com::sun::star::uno::Reference<com::sun::star::awt::XWindowPeer>;

    FormWindow(const ContextReference& context, forms::Form& form,
               std::shared_ptr<Snapshot> snapshot);
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;
    ~FormWindow() override;

    /// Shows the form over a window.
    void open(const Peer& parent);
    /// Waits, with events running, until the form has left the screen. The window is there until
    /// then: whoever closes it meanwhile has it retire.
    void waitForEnd();
    bool isWaiting() const { return waiting_; }
    /// Hides the window, detached from its form: neither notices the other any more. Harmless when
    /// there is none.
    void retire();
    /// Destroys the window. Harmless when there is none.
    void close();
    void toFront();

    /// Whether this is the form's window.
    bool shows(const forms::Form& form) const { return &view_->form() == &form; }
    /// Null when the window is closed.
    Peer peer() const;

    /// While what it returns lives, what the user does is queued. It keeps the window alive.
    std::shared_ptr<void> pauseActions();
    /// Brings the window up to date at once.
    void flush();

    /// Opens a menu at a place of a control, in its twips, and waits until it has closed. The item
    /// that the user has picked, or nothing.
    forms::MenuItem* pickFrom(const forms::PopupMenu& menu, forms::Control& owner, double x,
                              double y);

 private:
    class Listener;

    // What the view asks for.
    void setCaption(const std::string& caption) override;
    void setSize(const view::Size& size) override;
    void setWaitPointer(bool waits) override;
    bool isActive() const override;
    std::unique_ptr<view::NativeSurface> makeSurface(const view::ControlReference& form) override;
    void askForTurn() override;
    void runAction(const std::function<void()>& action) override;
    std::shared_ptr<void> repeat(std::chrono::milliseconds interval,
                                 std::function<void()> work) override;

    void makeDialog(const Peer& parent);
    void centreOver(const Peer& parent);
    void listenToKeys();
    void takeTurn();
    void resized();
    void paint(const Surface& surface);

    ContextReference context_;
    std::shared_ptr<Snapshot> snapshot_;
    Look look_;
    std::shared_ptr<view::FormView> view_;

    com::sun::star::uno::Reference<com::sun::star::awt::XToolkit> toolkit_;
    com::sun::star::uno::Reference<com::sun::star::awt::XControl> dialog_;
    com::sun::star::uno::Reference<com::sun::star::awt::XWindow> window_;
    com::sun::star::uno::Reference<com::sun::star::awt::XWindow> retired_;
    /// The window below.
    com::sun::star::uno::Reference<com::sun::star::lang::XComponent> parent_;
    rtl::Reference<Listener> listener_;
    std::unique_ptr<KeyListener> keys_;

    bool waiting_ = false;
    /// The size that the window was made with. Under load the screen reports it once more after the
    /// window has got its own, which it reports again then; the user has done neither.
    view::Size firstSize_;
};

}  // namespace huebrush::libreoffice
