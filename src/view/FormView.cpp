// SPDX-License-Identifier: MPL-2.0

#include "view/FormView.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace huebrush::view {

FormView::Surface::~Surface() {
    for (const ControlReference& each : shown) {
        if (each->peer != nullptr) each->peer->native.reset();
    }
    spare.clear();
}

FormView::FormView(forms::Form& form, NativeFrame& frame)
    : form_(form),
      frame_(frame),
      actions_([this] { frame_.askForTurn(); },
               [this](const ActionQueue::Action& action) { frame_.runAction(action); }),
      pointing_(*this),
      keyboard_(*this),
      caption_(form.Caption) {}

FormView::~FormView() {
    close();
}

// Opening and closing.

void FormView::open(const Scale& scale) {
    scale_ = scale;
    open_ = true;
    addPeers(form_);
    const ControlReference& form = ControlPeer::of(&form_)->reference();
    root_ = std::make_unique<Surface>(form, frame_.makeSurface(form));
    if (form_.focused() == nullptr) form_.handle([this] { form_.focusNext(); });
}

void FormView::close() {
    if (!std::exchange(open_, false)) return;
    pointing_.stop();
    menu_.close();
    actions_.clear();
    removePeers(form_);
    boxes_.clear();
    root_.reset();
}

void FormView::addPeers(forms::Control& control) {
    if (control.peer() == nullptr) {
        control.setPeer(std::make_unique<ControlPeer>(control, weak_from_this()));
    }
    for (forms::Control* const child : control.children()) addPeers(*child);
}

void FormView::removePeers(forms::Control& control) {
    control.setPeer(nullptr);
    for (forms::Control* const child : control.children()) removePeers(*child);
}

// What the user does.

void FormView::post(ActionQueue::Action action) {
    actions_.add(std::move(action));
}

std::shared_ptr<void> FormView::repeat(std::chrono::milliseconds interval,
                                       std::function<void()> work) {
    return frame_.repeat(interval, [weak = weak_from_this(), work = std::move(work)] {
        if (const auto view = weak.lock()) work();
    });
}

bool FormView::runActions() {
    if (!open_) return false;
    // An action may close the form, and its view with it.
    const std::shared_ptr<FormView> self = shared_from_this();
    const std::shared_ptr<forms::Form> form = form_.weak_from_this().lock();
    if (form == nullptr) return false;
    collectFromFocused();
    actions_.run();
    return open_;
}

/// What the user does next may depend on it.
void FormView::collectFromFocused() const {
    const ControlPeer* const focused = ControlPeer::of(form_.focused());
    if (focused != nullptr && focused->native != nullptr) focused->native->collect();
}

void FormView::mouse(const MouseInput& input) {
    if (input.kind == MouseInput::Kind::press) menu_.pressBeside();
    post([this, input] { pointing_.handle(input); });
}

void FormView::turnWheel(const ControlReference& surface, int rows) {
    post([surface, rows] {
        if (surface->control != nullptr) Pointing::scroll(*surface->control, rows);
    });
}

void FormView::resized(const Size& size) {
    if (size == size_) return;
    size_ = size;
    changed_ = true;
    form_.handle([&] {
        form_.Width = scale_.toTwips(size.width);
        form_.Height = scale_.toTwips(size.height);
    });
}

void FormView::rescale(const Scale& scale) {
    scale_ = scale;
    changed_ = true;
    if (open_) actions_.wake();
}

void FormView::cancelDrag() {
    if (form_.dragged() != nullptr) pointing_.cancelDrag(form_);
}

// Following the controls.

void FormView::touch(forms::PropertyId id) {
    if (id == forms::PropertyId::Children) childrenChanged_ = true;
    // A flush follows the focus whatever has changed.
    if (id != forms::PropertyId::Focus) changed_ = true;
    if (open_) actions_.wake();
}

void FormView::flush() {
    if (!open_) return;
    if (std::exchange(childrenChanged_, false)) addPeers(form_);
    if (std::exchange(changed_, false)) {
        ++pass_;
        mirrorForm();
        mirrorSurface(*root_);
        hideBoxes();
    }
    followFocus();
}

void FormView::mirrorForm() {
    if (caption_ != form_.Caption.get()) {
        caption_ = form_.Caption;
        frame_.setCaption(caption_);
    }
    const Size wanted{scale_.toPixels(form_.Width), scale_.toPixels(form_.Height)};
    if (wanted != size_) {
        size_ = wanted;
        frame_.setSize(wanted);
    }
    root_->place = {0, 0, size_.width, size_.height};
    root_->native->place(root_->place);
    if (pointer_ == form_.MousePointer) return;
    pointer_ = form_.MousePointer;
    frame_.setWaitPointer(pointer_ == forms::MousePointerShape::hourglass);
}

void FormView::mirrorSurface(Surface& surface) {
    forms::Control* const control = surface.control->control;
    if (control == nullptr) return;
    const std::vector<Placed> scene = sceneOf(*control, scale_.toTwips(surface.place.width),
                                              scale_.toTwips(surface.place.height));
    for (const Placed& placed : scene) mirrorControl(surface, placed);
    keepFocused(surface);
    retireNatives(surface);
    surface.native->repaint();
}

void FormView::mirrorControl(Surface& surface, const Placed& placed) {
    ControlPeer* const peer = ControlPeer::of(placed.control);
    if (peer == nullptr) return;
    if (isSurface(*placed.control)) {
        Surface& box = boxFor(*placed.control, surface);
        box.place = scale_.toPixels(placed.place);
        box.native->place(box.place);
        peer->shownInPass = pass_;
        mirrorSurface(box);
    } else if (isNative(*placed.control)) {
        showNative(surface, *peer, placed.place);
    }
}

/// The focus stays in a control that is scrolled out of view.
void FormView::keepFocused(Surface& surface) {
    forms::Control* const focused = form_.focused();
    ControlPeer* const peer = ControlPeer::of(focused);
    if (peer == nullptr || peer->shownInPass == pass_ || !focused->isShown()) return;
    if (&surfaceOf(*focused) != surface.control->control) return;
    showNative(surface, *peer,
               {-focused->Width, -focused->Height, focused->Width, focused->Height});
}

void FormView::showNative(Surface& surface, ControlPeer& peer, const Box& place) {
    if (peer.native == nullptr) {
        peer.native = takeNative(surface, *peer.reference()->control);
        surface.shown.push_back(peer.reference());
    }
    peer.shownInPass = pass_;
    peer.place = scale_.toPixels(place);
    peer.native->show(peer.reference(), peer.place);
}

/// A spare one, or else a new one.
std::unique_ptr<NativeControl> FormView::takeNative(Surface& surface,
                                                    const forms::Control& control) {
    const auto spare = std::ranges::find_if(
        surface.spare, [&](const auto& native) { return native->fits(control); });
    if (spare == surface.spare.end()) return surface.native->makeControl(control);
    std::unique_ptr<NativeControl> native = std::move(*spare);
    surface.spare.erase(spare);
    return native;
}

void FormView::retireNatives(Surface& surface) {
    std::erase_if(surface.shown, [&](const ControlReference& control) {
        if (control->peer == nullptr) return true;
        if (control->peer->shownInPass == pass_) return false;
        control->peer->native->hide();
        surface.spare.push_back(std::move(control->peer->native));
        return true;
    });
}

void FormView::hideBoxes() {
    for (const auto& box : boxes_) {
        const ControlPeer* const peer = box->control->peer;
        if (peer == nullptr || peer->shownInPass != pass_) box->native->hide();
    }
}

void FormView::followFocus() {
    const ControlPeer* const focused = ControlPeer::of(form_.focused());
    if (focused == nullptr || focused->native == nullptr || !frame_.isActive()) return;
    // A native control that has the focus otherwise has just been clicked, and its action is still
    // to come.
    const bool follows = std::exchange(followed_, focused->reference()) == focused->reference();
    if (focused->native->hasFocus() || (follows && hasNativeFocus())) return;
    focused->native->takeFocus();
}

/// Whether any of the native controls has the focus.
bool FormView::hasNativeFocus() const {
    const auto hasFocusOn = [](const Surface& surface) {
        return std::ranges::any_of(surface.shown, [](const ControlReference& control) {
            return control->peer != nullptr && control->peer->native->hasFocus();
        });
    };
    return hasFocusOn(*root_) ||
           std::ranges::any_of(boxes_, [&](const auto& box) { return hasFocusOn(*box); });
}

// Surfaces.

FormView::Surface* FormView::find(const forms::Control& surface) const {
    if (&surface == &form_) return root_.get();
    const auto found = std::ranges::find_if(
        boxes_, [&](const auto& box) { return box->control->control == &surface; });
    return found == boxes_.end() ? nullptr : found->get();
}

FormView::Surface& FormView::boxFor(forms::Control& control, Surface& on) {
    if (Surface* const box = find(control)) return *box;
    const ControlReference& reference = ControlPeer::of(&control)->reference();
    boxes_.push_back(std::make_unique<Surface>(reference, on.native->makeSurface(reference)));
    return *boxes_.back();
}

Mouse::Place FormView::placeOn(forms::Control& surface, const Point& at) const {
    const Surface* const found = find(surface);
    if (found == nullptr) return {};
    return {&surface, scale_.toTwips(at.x), scale_.toTwips(at.y),
            scale_.toTwips(found->place.width), scale_.toTwips(found->place.height)};
}

std::optional<Point> FormView::placeInWindow(forms::Control& control, double x, double y) const {
    if (&control == &form_) return Point{scale_.toPixels(x), scale_.toPixels(y)};
    const Surface* const surface = find(surfaceOf(control));
    if (surface == nullptr) return std::nullopt;
    const Box box = placeOnSurface(control);
    return Point{surface->place.left + scale_.toPixels(box.left + x),
                 surface->place.top + scale_.toPixels(box.top + y)};
}

void FormView::setToolTip(const forms::Control& surface, const std::string& text) {
    if (Surface* const found = find(surface)) found->native->setToolTip(text);
}

}  // namespace huebrush::view
