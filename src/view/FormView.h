// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/Form.h"
#include "view/ActionQueue.h"
#include "view/ControlPeer.h"
#include "view/Geometry.h"
#include "view/InputTarget.h"
#include "view/Keyboard.h"
#include "view/Menu.h"
#include "view/Native.h"
#include "view/Pointing.h"
#include "view/Scene.h"

namespace huebrush::view {

/// A form on a screen. The controls are the truth; what a toolkit shows follows them: when control
/// returns to the event loop the view looks once at what has changed, whatever the number of
/// changes. What the user does becomes calls on the controls, one action after the other, always
/// from the event loop.
class FormView final : public InputTarget,
                       public ChangeListener,
                       public std::enable_shared_from_this<FormView> {
 public:
    /// The frame outlives the view.
    FormView(forms::Form& form, NativeFrame& frame);
    virtual ~FormView();

    /// Attaches to the form and makes its surface; the caller flushes. What the toolkit throws
    /// passes to the caller.
    void open(const Scale& scale);
    /// Detaches from the form: neither affects the other any more. Harmless when it is not open.
    void close();
    bool isOpen() const override { return open_; }

    forms::Form& form() const override { return form_; }
    NativeFrame& frame() const { return frame_; }
    const Scale& scale() const { return scale_; }
    const Size& size() const { return size_; }
    ActionQueue& actions() { return actions_; }
    Keyboard& keyboard() { return keyboard_; }
    Menu& menu() override { return menu_; }

    // What the user does. Nothing of it happens before the next turn.

    void post(ActionQueue::Action action) override;
    std::shared_ptr<void> repeat(std::chrono::milliseconds interval,
                                 std::function<void()> work) override;
    /// Runs what has been posted. Returns whether the form still exists; then the caller flushes.
    bool runActions();
    /// The mouse has done something in a native window.
    void mouse(const MouseInput& input);
    /// The wheel was turned over a surface: away from the user where `rows` is less than 0.
    void turnWheel(const ControlReference& surface, int rows);
    /// The user has resized the window; this is the size of its inside.
    void resized(const Size& size);
    void cancelDrag() override;
    /// The window is on a screen of another resolution; the caller flushes.
    void rescale(const Scale& scale);

    // Following the controls.

    void touch(forms::PropertyId id) override;
    /// Brings what the toolkit shows up to date now. What the toolkit throws passes to the caller.
    void flush();

    Mouse::Place placeOn(forms::Control& surface, const Point& at) const override;
    /// A place of a control, given in its twips, in pixels of the form's inside; nothing where the
    /// control's surface is not shown.
    std::optional<Point> placeInWindow(forms::Control& control, double x, double y) const;
    void setToolTip(const forms::Control& surface, const std::string& text) override;

 private:
    /// A native surface, and the native controls on it, in use or spare.
    struct Surface {
        Surface(ControlReference shownControl, std::unique_ptr<NativeSurface> window)
            : control(std::move(shownControl)), native(std::move(window)) {}
        Surface(const Surface&) = delete;
        Surface& operator=(const Surface&) = delete;
        ~Surface();

        ControlReference control;
        std::unique_ptr<NativeSurface> native;
        Rectangle place;
        std::vector<ControlReference> shown;
        std::vector<std::unique_ptr<NativeControl>> spare;
    };

    void addPeers(forms::Control& control);
    void removePeers(forms::Control& control);
    Surface* find(const forms::Control& surface) const;
    Surface& boxFor(forms::Control& control, Surface& on);

    void mirrorForm();
    void mirrorSurface(Surface& surface);
    void mirrorControl(Surface& surface, const Placed& placed);
    void keepFocused(Surface& surface);
    void showNative(Surface& surface, ControlPeer& peer, const Box& place);
    std::unique_ptr<NativeControl> takeNative(Surface& surface, const forms::Control& control);
    void retireNatives(Surface& surface);
    void hideBoxes();
    void followFocus();
    void collectFromFocused() const;
    bool hasNativeFocus() const;

    forms::Form& form_;
    NativeFrame& frame_;
    Scale scale_;
    ActionQueue actions_;
    Pointing pointing_;
    Menu menu_;
    Keyboard keyboard_;

    std::unique_ptr<Surface> root_;
    std::vector<std::unique_ptr<Surface>> boxes_;

    bool open_ = false;
    bool childrenChanged_ = true;
    bool changed_ = true;
    unsigned pass_ = 0;
    Size size_;
    std::string caption_;
    /// The control that the native focus was given to last.
    ControlReference followed_;
    forms::MousePointerShape pointer_ = forms::MousePointerShape::standard;
};

}  // namespace huebrush::view
