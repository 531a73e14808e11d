// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/window/MenuWindow.h"

#include <algorithm>
#include <chrono>
#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/accessibility/XAccessibleComponent.hpp>
#include <com/sun/star/awt/InvalidateStyle.hpp>
#include <com/sun/star/awt/WindowAttribute.hpp>
#include <com/sun/star/awt/XMouseListener.hpp>
#include <com/sun/star/awt/XMouseMotionListener.hpp>
#include <com/sun/star/awt/XPaintListener.hpp>
#include <com/sun/star/awt/XToolkit.hpp>
#include <com/sun/star/awt/XToolkitExperimental.hpp>
#include <com/sun/star/awt/XWindow2.hpp>
#include <optional>
#include <rtl/ref.hxx>
#include <thread>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"
#include "ports/libreoffice/window/NativeWindow.h"
#include "view/MenuPainter.h"
#include "view/MenuPick.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

using Peer = Reference<css::awt::XWindowPeer>;

/// The window of an open menu. It floats over another window and does not take the focus from it,
/// so its keys come through that one.
class MenuWindow final : public view::NativeMenu {
 public:
    using Toolkit = Reference<css::awt::XToolkit>;

    /// Places and lifetimes as for pickFromMenu.
    MenuWindow(const Toolkit& toolkit, const Peer& below, Look& look, const view::Scale& scale,
               const forms::PopupMenu& menu, const view::Point& place);
    ~MenuWindow() override;

    /// Until the user has picked a line, or closed it without.
    bool isOpen() const { return pick_.isOpen(); }
    /// The number of the line that was picked; none until then.
    std::optional<std::size_t> picked() const { return pick_.picked(); }
    /// What it floats over may be about to be destroyed.
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

class MenuWindow::Listener final
    : public WeakImplHelper<css::awt::XPaintListener, css::awt::XMouseListener,
                            css::awt::XMouseMotionListener> {
 public:
    explicit Listener(MenuWindow& menu) : menu_(&menu) {}
    void forget() { menu_ = nullptr; }

    void SAL_CALL windowPaint(const css::awt::PaintEvent&) override {
        if (menu_ != nullptr) ignoringOffice([this] { menu_->paint(); });
    }
    void SAL_CALL mousePressed(const css::awt::MouseEvent& event) override {
        if (menu_ != nullptr) menu_->pressAt({event.X, event.Y});
    }
    void SAL_CALL mouseDragged(const css::awt::MouseEvent& event) override { moveTo(event); }
    void SAL_CALL mouseMoved(const css::awt::MouseEvent& event) override { moveTo(event); }
    void SAL_CALL mouseEntered(const css::awt::MouseEvent& event) override { moveTo(event); }
    void SAL_CALL mouseReleased(const css::awt::MouseEvent& event) override {
        if (menu_ != nullptr) menu_->releaseAt({event.X, event.Y});
    }
    void SAL_CALL mouseExited(const css::awt::MouseEvent&) override {}
    void SAL_CALL disposing(const css::lang::EventObject&) override {}

 private:
    void moveTo(const css::awt::MouseEvent& event) {
        if (menu_ != nullptr) menu_->pointAt({event.X, event.Y});
    }

    MenuWindow* menu_;
};

MenuWindow::MenuWindow(const Toolkit& toolkit, const Peer& below, Look& look,
                       const view::Scale& scale, const forms::PopupMenu& menu,
                       const view::Point& place)
    : pick_(menu),
      // Of all its attributes only this one leaves a floating window without title and focus.
      window_(
          makeNativeWindow(toolkit, below, "floatingwindow", css::awt::WindowAttribute::CLOSEABLE)),
      peer_(window_, UNO_QUERY_THROW),
      look_(look),
      layout_(measured(scale)),
      listener_(new Listener(*this)) {
    peer_->setBackground(look.theme.colours.menu);
    window_->addPaintListener(listener_.get());
    window_->addMouseListener(listener_.get());
    window_->addMouseMotionListener(listener_.get());
    this->place(toolkit, below, place);
    window_->setVisible(true);
}

view::MenuLayout MenuWindow::measured(const view::Scale& scale) {
    OfficeCanvas canvas(OfficeCanvas::Device(window_, UNO_QUERY_THROW), {}, look_);
    return view::layoutOf(pick_.choice(), canvas, scale);
}

MenuWindow::~MenuWindow() {
    end();
}

void MenuWindow::end() {
    pick_.close();
    listener_->forget();
    dispose(window_);
}

/// Such a window is placed in its parent's pixels. The screen that the office reports may not be
/// the parent's.
void MenuWindow::place(const Toolkit& toolkit, const Peer& below, view::Point at) {
    const view::Size size = layout_.size();
    ignoringOffice([&] {
        const Reference<css::accessibility::XAccessibleComponent> parent(
            Reference<css::accessibility::XAccessible>(below, UNO_QUERY_THROW)
                ->getAccessibleContext(),
            UNO_QUERY_THROW);
        const css::awt::Point origin = parent->getLocationOnScreen();
        const css::awt::Rectangle screen = toolkit->getWorkArea();
        const auto moved = [](sal_Int32 start, sal_Int32 length, sal_Int32 begin, sal_Int32 room) {
            const bool isOn = start >= begin && start < begin + room;
            return isOn ? std::max(begin, std::min(start, begin + room - length)) : start;
        };
        at = {moved(origin.X + at.x, size.width, screen.X, screen.Width) - origin.X,
              moved(origin.Y + at.y, size.height, screen.Y, screen.Height) - origin.Y};
    });
    window_->setPosSize(at.x, at.y, size.width, size.height, css::awt::PosSize::POSSIZE);
}

void MenuWindow::press(const view::Key& key) {
    pick_.press(key);
    repaint();
}

void MenuWindow::pointAt(const view::Point& at) {
    if (pick_.pointAt(layout_.lineAt(at))) repaint();
}

/// gtk3 reports to an open menu all that the mouse does, wherever it is, and a press elsewhere as
/// one in the corner of the menu's frame.
void MenuWindow::pressAt(const view::Point& at) {
    pick_.pressAt(layout_.lineAt(at));
    repaint();
}

void MenuWindow::releaseAt(const view::Point& at) {
    pick_.releaseAt(layout_.lineAt(at));
}

void MenuWindow::repaint() {
    ignoringOffice([this] { peer_->invalidate(css::awt::InvalidateStyle::NOERASE); });
}

void MenuWindow::paint() {
    paintWindow(peer_, layout_.size(), look_, [this](view::Canvas& canvas) {
        view::MenuPainter(canvas, look_.theme.colours, layout_, pick_.choice()).paint();
    });
}

bool isActiveWindow(const Peer& window) {
    const Reference<css::awt::XWindow2> active(window, UNO_QUERY);
    return active.is() && active->isActive();
}

}  // namespace

forms::MenuItem* pickFromMenu(const ContextReference& context, view::Menu& state,
                              const forms::PopupMenu& menu, const Peer& below, Look& look,
                              const view::Scale& scale, const view::Point& place) {
    /// Short enough for the menu to follow the mouse.
    constexpr std::chrono::milliseconds kPause(10);
    if (!state.mayOpen(menu)) return nullptr;
    return officeCalls([&]() -> forms::MenuItem* {
        const auto toolkit =
            createService<css::awt::XToolkitExperimental>(context, "com.sun.star.awt.Toolkit");
        MenuWindow window({toolkit, UNO_QUERY_THROW}, below, look, scale, menu, place);
        const view::Menu::Opened opened(state, window, menu);
        // The window may lose the keyboard to its own menu for a moment, while events run.
        bool wasActive = false;
        while (window.isOpen()) {
            toolkit->processEventsToIdle();
            const bool isActive = window.isOpen() && isActiveWindow(below);
            if (wasActive && !isActive) break;
            wasActive = isActive;
            std::this_thread::sleep_for(kPause);
        }
        const auto line = window.picked();
        return line ? menu.items().at(*line) : nullptr;
    });
}

}  // namespace huebrush::libreoffice
