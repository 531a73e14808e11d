// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "forms/Font.h"

namespace huebrush::forms {

enum class MousePointerShape : std::int16_t { standard = 0, hourglass = 11 };
enum class WindowState : std::int16_t { normal = 0, minimized = 1, maximized = 2 };

/// A dialog. It is owned by shared pointers, because whoever unloads it may be called by one of its
/// own handlers: a handler in progress keeps the form until the outermost one has returned.
class Form : public Control, public std::enable_shared_from_this<Form> {
 public:
    explicit Form(std::string name) : Control(std::move(name)) {}

    Property<std::string> Caption{*this, PropertyId::Caption};
    Property<MousePointerShape> MousePointer{*this, PropertyId::MousePointer,
                                             MousePointerShape::standard};
    Property<forms::Font> Font{*this, PropertyId::Font};
    forms::WindowState WindowState = forms::WindowState::normal;
    /// Whether the form stays above all other windows, as far as the platform has such a level.
    Property<bool> TopMost{*this, PropertyId::TopMost};

    base::Event<> Resize;
    /// Raised once, when the form has been unloaded: its owner releases it.
    base::Event<> Unloaded;

    /// The inner size, in twips: without the frame that the platform draws around the window.
    double ScaleWidth() const;
    double ScaleHeight() const;
    /// How much of the size the platform's frame takes, in twips.
    void setFrameSize(double width, double height);

    /// Shows the form on the screen; when it is modal, waits until it is closed.
    void Show(bool modal = false);
    /// Removes the form and its array elements at once. Handlers in progress go on; the array
    /// elements that they touch are missing.
    void Unload();
    bool isUnloaded() const { return unloaded_; }
    /// Whether Escape ends a form that has no cancel button: a form in which that would lose the
    /// user's work returns false.
    virtual bool endsByEscape() const { return true; }

    /// The control that has the focus, or nothing.
    Control* focused() const { return focused_; }
    /// Moves the focus to the next control in the order of creation, or to the previous one.
    void focusNext(bool backwards = false);

    // The user presses a key that means the same wherever the focus is.

    /// Return presses the button that has the focus, or else the default one. Not for the Return
    /// that a text box keeps (TextBox::keepsReturn).
    void pressReturn();
    /// Escape presses the form's cancel button. Where there is none it ends the form, if the form
    /// lets it.
    void pressEscape();

    /// The control being dragged, or nothing.
    Control* dragged() const { return dragged_; }
    /// The mouse with the dragged control enters, passes over or leaves a control.
    void dragOver(Control& target, float x, float y, DragState state);
    /// The dragged control is dropped on a control, or nowhere.
    void dropAt(Control* target, float x, float y);

    /// The port's entry for every event of the user: runs the handlers, keeps the form alive for
    /// them, and passes what they throw to Runtime::UnhandledError. Nothing escapes.
    void handle(const std::function<void()>& handlers) noexcept;
    /// Keeps an unloaded array element until no handler runs any more.
    void keepWhileHandling(std::shared_ptr<Control> element);

    void propertyChanged(PropertyId id) override;

 protected:
    Form* asForm() final { return this; }
    /// Removes what the form loaded at run time. Called once, by Unload.
    virtual void unloadElements() {}

 private:
    friend class Control;
    void moveFocus(Control* target);
    void moveFocusOff(const Control& control);
    void beginDrag(Control& control) { dragged_ = &control; }
    void collectTabOrder(Control& from, std::vector<Control*>& order) const;

    Control* focused_ = nullptr;
    Control* dragged_ = nullptr;
    bool unloaded_ = false;
    int handlersRunning_ = 0;
    double frameWidth_ = 0;
    double frameHeight_ = 0;
    std::vector<std::shared_ptr<Control>> kept_;
};

}  // namespace huebrush::forms
