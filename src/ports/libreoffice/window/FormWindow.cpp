#include "ports/libreoffice/window/FormWindow.h"

#include <algorithm>
#include <com/sun/star/awt/PosSize.hpp>
#include <com/sun/star/awt/XControlModel.hpp>
#include <com/sun/star/awt/XDevice.hpp>
#include <com/sun/star/awt/XTopWindow.hpp>
#include <com/sun/star/awt/XVclWindowPeer.hpp>
#include <com/sun/star/awt/XWindow2.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <utility>

#include "error/mError.h"
#include "ports/libreoffice/app/Pointer.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"
#include "ports/libreoffice/window/Keyboard.h"
#include "ports/libreoffice/window/NativeWindow.h"
#include "ports/libreoffice/window/Painter.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

using css::uno::makeAny;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

/// The screen's own resolution, in steps of a quarter: slightly more than 96 is not larger.
Scale scaleOf(const FormWindow::Peer& window) {
    constexpr double kCommon = 96;
    constexpr double kMetresPerInch = 0.0254;
    const Reference<css::awt::XDevice> device(window, UNO_QUERY_THROW);
    const double factor = device->getInfo().PixelPerMeterX * kMetresPerInch / kCommon;
    return Scale(kCommon * std::max(1.0, std::round(factor * 4) / 4));
}

}  // namespace

/// Hears of what happens to the window as a whole.
class FormWindow::Listener final
    : public WeakImplHelper<css::awt::XTopWindowListener, css::awt::XWindowListener,
                            css::awt::XFocusListener> {
 public:
    explicit Listener(FormWindow& window) : window_(&window) {}
    void forget() { window_ = nullptr; }

    void SAL_CALL windowClosing(const css::lang::EventObject&) override {
        if (window_ == nullptr) return;
        closeMenu();
        window_->post([window = window_] {
            forms::Form& form = window->form();
            form.handle([&] { form.Unload(); });
        });
    }
    void SAL_CALL windowActivated(const css::lang::EventObject&) override { follow(); }
    void SAL_CALL windowResized(const css::awt::WindowEvent&) override {
        if (window_ == nullptr) return;
        closeMenu();
        window_->post([window = window_] { window->resized(); });
    }
    void SAL_CALL focusGained(const css::awt::FocusEvent&) override { follow(); }
    void SAL_CALL focusLost(const css::awt::FocusEvent&) override {}
    void SAL_CALL windowOpened(const css::lang::EventObject&) override {}
    void SAL_CALL windowClosed(const css::lang::EventObject&) override {}
    void SAL_CALL windowMinimized(const css::lang::EventObject&) override {}
    void SAL_CALL windowNormalized(const css::lang::EventObject&) override {}
    void SAL_CALL windowDeactivated(const css::lang::EventObject&) override {}
    void SAL_CALL windowMoved(const css::awt::WindowEvent&) override { closeMenu(); }
    void SAL_CALL windowShown(const css::lang::EventObject&) override {}
    void SAL_CALL windowHidden(const css::lang::EventObject&) override {}
    /// The window below goes, and takes with it what lies over it: the form ends before that.
    void SAL_CALL disposing(const css::lang::EventObject& event) override {
        if (window_ == nullptr || event.Source != window_->parent_) return;
        forms::Form& form = window_->form();
        form.handle([&] { form.Unload(); });
    }

 private:
    /// The native focus goes where the controls say.
    void follow() {
        if (window_ != nullptr) window_->deeds_.wake();
    }
    void closeMenu() {
        if (window_ != nullptr) window_->menu_.close();
    }

    FormWindow* window_;
};

FormWindow::FormWindow(const ContextReference& context, forms::Form& form,
                       std::shared_ptr<Snapshot> snapshot)
    : form_(&form),
      context_(context),
      pictures_(context),
      pointing_(context, *this),
      menu_(context),
      deeds_(context, *this, std::move(snapshot)) {}

FormWindow::~FormWindow() {
    close();
}

// Opening and closing.

void FormWindow::open(const Peer& parent) {
    toolkit_ = createService<css::awt::XToolkit>(context_, "com.sun.star.awt.Toolkit");
    makeDialog(parent);
    theme_ = themeOf(peer());
    scale_ = scaleOf(peer());
    addPeers(*form_);
    root_ = makeSurface(*form_, peer());
    keyboard_ = std::make_unique<Keyboard>(
        *this, Reference<css::awt::XExtendedToolkit>(toolkit_, UNO_QUERY_THROW));
    if (form_->focused() == nullptr) form_->handle([this] { form_->focusNext(); });
    flush();
    centreOver(parent);
    window_->setVisible(true);
}

void FormWindow::makeDialog(const Peer& parent) {
    const auto model =
        createService<css::awt::XControlModel>(context_, "com.sun.star.awt.UnoControlDialogModel");
    const Reference<css::beans::XPropertySet> properties(model, UNO_QUERY_THROW);
    for (const char* const name : {"Sizeable", "Closeable", "Moveable"}) {
        properties->setPropertyValue(toOffice(name), makeAny(true));
    }
    caption_ = form_->Caption;
    properties->setPropertyValue("Title", makeAny(toOffice(caption_)));
    dialog_ = createService<css::awt::XControl>(context_, "com.sun.star.awt.UnoControlDialog");
    dialog_->setModel(model);
    window_.set(dialog_, UNO_QUERY_THROW);
    window_->setVisible(false);
    dialog_->createPeer(toolkit_, parent);
    parent_.set(parent, UNO_QUERY);
    const css::awt::Rectangle first = window_->getPosSize();
    firstSize_ = {first.Width, first.Height};
    listener_ = new Listener(*this);
    Reference<css::awt::XTopWindow>(dialog_, UNO_QUERY_THROW)
        ->addTopWindowListener(listener_.get());
    window_->addWindowListener(listener_.get());
    if (parent_.is()) {
        parent_->addEventListener(static_cast<css::awt::XTopWindowListener*>(listener_.get()));
    }
}

void FormWindow::centreOver(const Peer& parent) {
    const Reference<css::awt::XWindow> below(parent, UNO_QUERY);
    if (!below.is()) return;
    const css::awt::Rectangle room = below->getPosSize();
    window_->setPosSize(std::max(0, (room.Width - size_.Width) / 2),
                        std::max(0, (room.Height - size_.Height) / 2), 0, 0,
                        css::awt::PosSize::POS);
}

void FormWindow::retire() {
    if (!dialog_.is()) return;
    keyboard_.reset();
    pointing_.stop();
    menu_.close();
    listener_->forget();
    if (parent_.is()) {
        ignoringOffice([&] {
            parent_->removeEventListener(
                static_cast<css::awt::XTopWindowListener*>(listener_.get()));
        });
    }
    parent_.clear();
    deeds_.clear();
    removePeers(*form_);
    boxes_.clear();
    root_.reset();
    // A modal dialog that is disposed before it has ended leaves the windows below without clicks.
    if (waiting_) {
        ignoringOffice(
            [this] { Reference<css::awt::XDialog>(dialog_, UNO_QUERY_THROW)->endExecute(); });
    }
    dialog_.clear();
    retired_ = std::exchange(window_, {});
    ignoringOffice([&] { retired_->setVisible(false); });
}

void FormWindow::close() {
    retire();
    dispose(std::exchange(retired_, {}));
}

void FormWindow::waitForEnd() {
    const Reference<css::awt::XDialog> dialog(dialog_, UNO_QUERY_THROW);
    waiting_ = true;
    ignoringOffice([&] { dialog->execute(); });
    waiting_ = false;
}

void FormWindow::toFront() {
    const Reference<css::awt::XTopWindow> top(dialog_, UNO_QUERY);
    if (top.is()) top->toFront();
}

FormWindow::Peer FormWindow::peer() const {
    return dialog_.is() ? dialog_->getPeer() : Peer();
}

void FormWindow::addPeers(forms::Control& control) {
    if (control.peer() == nullptr) {
        control.setPeer(std::make_unique<ControlPeer>(control, weak_from_this()));
    }
    for (forms::Control* const child : control.children()) addPeers(*child);
}

void FormWindow::removePeers(forms::Control& control) {
    control.setPeer(nullptr);
    for (forms::Control* const child : control.children()) removePeers(*child);
}

// Deeds of the user.

void FormWindow::post(std::function<void()> deed) {
    deeds_.add(std::move(deed));
}

std::shared_ptr<void> FormWindow::pauseDeeds() {
    struct Paused {
        explicit Paused(std::shared_ptr<FormWindow> paused)
            : window(std::move(paused)), pause(window->deeds_) {}
        std::shared_ptr<FormWindow> window;
        Deeds::Pause pause;
    };
    return std::make_shared<Paused>(shared_from_this());
}

void FormWindow::takeTurn() {
    if (!dialog_.is()) return;
    // A deed may close the form, and its window with it.
    const std::shared_ptr<FormWindow> self = shared_from_this();
    const std::shared_ptr<forms::Control> form =
        std::static_pointer_cast<forms::Control>(form_->weak_from_this().lock());
    if (form == nullptr) return;
    deeds_.run();
    flush();
}

void FormWindow::resized() {
    const css::awt::Rectangle now = window_->getPosSize();
    const auto is = [&](const css::awt::Size& size) {
        return now.Width == size.Width && now.Height == size.Height;
    };
    if (is(size_) || is(firstSize_)) return;
    firstSize_ = {};
    size_ = {now.Width, now.Height};
    changed_ = true;
    form_->handle([&] {
        form_->Width = scale_.toTwips(now.Width);
        form_->Height = scale_.toTwips(now.Height);
    });
}

// Following the controls.

void FormWindow::touch(forms::PropertyId id) {
    if (id == forms::PropertyId::Children) childrenChanged_ = true;
    changed_ = true;
    if (dialog_.is()) deeds_.wake();
}

void FormWindow::flush() {
    if (!dialog_.is()) return;
    ignoringOffice([this] {
        if (std::exchange(childrenChanged_, false)) addPeers(*form_);
        if (std::exchange(changed_, false)) {
            ++pass_;
            mirrorForm();
            mirrorSurface(*root_);
        }
        followFocus();
    });
}

void FormWindow::mirrorForm() {
    if (caption_ != form_->Caption.get()) {
        caption_ = form_->Caption;
        Reference<css::beans::XPropertySet>(dialog_->getModel(), UNO_QUERY_THROW)
            ->setPropertyValue("Title", makeAny(toOffice(caption_)));
    }
    const css::awt::Size wanted{scale_.toPixels(form_->Width), scale_.toPixels(form_->Height)};
    if (wanted.Width != size_.Width || wanted.Height != size_.Height) {
        size_ = wanted;
        window_->setPosSize(0, 0, wanted.Width, wanted.Height, css::awt::PosSize::SIZE);
    }
    root_->place({0, 0, size_.Width, size_.Height});
    mirrorPointer();
}

void FormWindow::mirrorPointer() {
    if (pointer_ == form_->MousePointer) return;
    pointer_ = form_->MousePointer;
    setPointerInside(context_, peer(), pointer_ == forms::MousePointerShape::hourglass);
}

void FormWindow::mirrorSurface(Surface& surface) {
    forms::Control* const control = surface.control();
    if (control == nullptr) return;
    const css::awt::Rectangle& bounds = surface.bounds();
    const std::vector<Placed> scene =
        sceneOf(*control, scale_.toTwips(bounds.Width), scale_.toTwips(bounds.Height));
    for (const Placed& placed : scene) mirrorControl(surface, placed);
    // The focus stays in a control that is scrolled out of view.
    ControlPeer* const focused = ControlPeer::of(form_->focused());
    if (focused != nullptr && focused->shownInPass != pass_ &&
        &surfaceOf(*form_->focused()) == control && form_->focused()->isShown()) {
        showNative(surface, *focused,
                   {-form_->focused()->Width, -form_->focused()->Height, form_->focused()->Width,
                    form_->focused()->Height});
    }
    retireNatives(surface);
    surface.repaint();
}

void FormWindow::mirrorControl(Surface& surface, const Placed& placed) {
    ControlPeer* const peer = ControlPeer::of(placed.control);
    if (peer == nullptr) return;
    if (isSurface(*placed.control)) {
        auto found = std::ranges::find_if(
            boxes_, [&](const auto& box) { return box->control() == placed.control; });
        if (found == boxes_.end()) {
            boxes_.push_back(makeSurface(*placed.control, surface.peer()));
            found = std::prev(boxes_.end());
        }
        (*found)->place(scale_.toPixels(placed.place));
        peer->shownInPass = pass_;
        mirrorSurface(**found);
    } else if (Native::isFor(*placed.control)) {
        showNative(surface, *peer, placed.place);
    }
}

void FormWindow::showNative(Surface& surface, ControlPeer& peer, const Box& place) {
    forms::Control& control = *peer.reference()->control;
    if (peer.native == nullptr) {
        const auto spare = std::ranges::find_if(
            surface.spare, [&](const auto& native) { return native->fits(control); });
        if (spare != surface.spare.end()) {
            peer.native = std::move(*spare);
            surface.spare.erase(spare);
        } else {
            peer.native = Native::make(
                control, {toolkit_, surface.peer(),
                          [this](std::function<void()> deed) { post(std::move(deed)); },
                          [this](const MouseInput& input) { pointing_.hear(input); }});
            peer.native->window()->addFocusListener(listener_.get());
        }
        surface.shown.push_back(peer.reference());
    }
    peer.shownInPass = pass_;
    peer.native->show(peer.reference(), scale_.toPixels(place));
}

void FormWindow::retireNatives(Surface& surface) {
    std::erase_if(surface.shown, [&](const ControlReference& control) {
        if (control->peer == nullptr) return true;
        if (control->peer->shownInPass == pass_) return false;
        control->peer->native->hide();
        surface.spare.push_back(std::move(control->peer->native));
        return true;
    });
    for (const auto& box : boxes_) {
        const ControlPeer* const peer = ControlPeer::of(box->control());
        if (&surface == root_.get() && (peer == nullptr || peer->shownInPass != pass_)) box->hide();
    }
}

std::unique_ptr<Surface> FormWindow::makeSurface(forms::Control& control, const Peer& parent) {
    auto surface = std::make_unique<Surface>(
        toolkit_, parent, ControlPeer::of(&control)->reference(),
        Surface::Callbacks{[this](Surface& painted) { paint(painted); },
                           [this](const MouseInput& input) { pointing_.hear(input); },
                           [this](Surface&, int notches) { pointing_.turnWheel(notches); }});
    surface->window()->addFocusListener(listener_.get());
    // What native controls leave free shows it.
    surface->peer()->setBackground(theme_.colour(backgroundOf(control)));
    return surface;
}

void FormWindow::followFocus() {
    const ControlPeer* const focused = ControlPeer::of(form_->focused());
    if (focused == nullptr || focused->native == nullptr || !isActive()) return;
    // A native control that has the focus otherwise has just been clicked, and is about to tell.
    const bool follows = std::exchange(followed_, focused->reference()) == focused->reference();
    if (focused->native->hasFocus() || (follows && hasNativeFocus())) return;
    focused->native->window()->setFocus();
}

/// Whether any of the native controls has the focus.
bool FormWindow::hasNativeFocus() const {
    const auto hasFocusOn = [](const Surface& surface) {
        return std::ranges::any_of(surface.shown, [](const ControlReference& control) {
            return control->peer != nullptr && control->peer->native->hasFocus();
        });
    };
    return hasFocusOn(*root_) ||
           std::ranges::any_of(boxes_, [&](const auto& box) { return hasFocusOn(*box); });
}

bool FormWindow::isActive() const {
    const Reference<css::awt::XWindow2> window(peer(), UNO_QUERY);
    return window.is() && window->isActive();
}

std::vector<const Surface*> FormWindow::surfaces() const {
    std::vector<const Surface*> all{root_.get()};
    for (const auto& box : boxes_) all.push_back(box.get());
    return all;
}

Surface* FormWindow::windowOf(const forms::Control& surface) const {
    if (&surface == form_) return root_.get();
    const auto found =
        std::ranges::find_if(boxes_, [&](const auto& box) { return box->control() == &surface; });
    return found == boxes_.end() ? nullptr : found->get();
}

forms::MenuItem* FormWindow::pickFrom(const forms::PopupMenu& menu, forms::Control& owner, double x,
                                      double y) {
    css::awt::Point place{scale_.toPixels(x), scale_.toPixels(y)};
    if (&owner != form_) {
        const Box box = placeOnSurface(owner);
        const Surface* const surface = windowOf(surfaceOf(owner));
        if (surface == nullptr) return nullptr;
        const css::awt::Rectangle bounds = surface->bounds();
        place = {bounds.X + scale_.toPixels(box.left + x), bounds.Y + scale_.toPixels(box.top + y)};
    }
    const Deeds::Pause pause(deeds_);
    forms::MenuItem* picked = nullptr;
    error::ignoring([&] { picked = menu_.pick(menu, peer(), theme_, scale_, place); });
    return picked;
}

void FormWindow::paint(Surface& surface) {
    forms::Control* const control = surface.control();
    if (control == nullptr) return;
    const Reference<css::awt::XDevice> device(surface.peer(), UNO_QUERY_THROW);
    const css::awt::Rectangle& bounds = surface.bounds();
    const Reference<css::awt::XDevice> buffer = device->createDevice(bounds.Width, bounds.Height);
    Painter(device, buffer->createGraphics(), theme_, scale_, pictures_)
        .paint(*control, bounds.Width, bounds.Height);
    device->createGraphics()->copy(buffer, 0, 0, bounds.Width, bounds.Height, 0, 0, bounds.Width,
                                   bounds.Height);
}

bool FormWindow::takesKeysOf(const Reference<css::uno::XInterface>& window) const {
    const Reference<css::awt::XWindowPeer> inside(window, UNO_QUERY);
    const Reference<css::awt::XVclWindowPeer> outer(peer(), UNO_QUERY);
    if (!inside.is() || !outer.is()) return false;
    return inside == peer() || outer->isChild(inside);
}

}  // namespace huebrush::libreoffice
